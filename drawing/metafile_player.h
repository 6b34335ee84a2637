// Plays the records of a metafile into the shapes of a picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "drawing/document.h"
#include "drawing/metafile_records.h"
#include "drawing/metafile_shapes.h"

namespace orvane {

// The part of a metafile's coordinates that fills the picture.
struct MetafileWindow {
  double X = 0;
  double Y = 0;
  double Width = 1;  // not 0; below 0 where the axis runs the other way
  double Height = 1;
};

class MetafilePlayer {
 public:
  // The picture, which has its size already, outlives the player.
  MetafilePlayer(Picture& picture, const MetafileWindow& window);

  // All records up to the one that ends the file.
  void Play(MetafileBytes bytes);

  // Something was passed over that would have been seen: a bitmap, a pixel, a region.
  bool HasPassedOver() const { return passedOver_; }

 private:
  // What drawing is done with. A slot of the table of objects keeps its number until it is deleted.
  struct Pen {
    bool Visible = true;
    double Width = 0;  // in the file's units
    Rgb Color = Black;
    std::uint16_t Style = 0;  // solid, dashed, dotted, dash and dot, dash and two dots
  };
  struct Brush {
    bool Solid = true;
    Rgb Color = White;
    std::vector<HatchLines> Lines;  // neither solid nor lines: nothing
  };
  struct Font {
    std::string Name = "Arial";
    double Size = 0;  // in the file's units, 0 for 10 points
    double Angle = 0;
    bool Bold = false;
    bool Italic = false;
  };
  struct Deleted {};
  struct Unknown {};  // palettes, regions
  using Object = std::variant<Deleted, Unknown, Pen, Brush, Font>;

  // What is saved and restored.
  struct State {
    MetafileWindow Window;
    Pen Stroke;
    Brush Inside;
    Font Type;
    Point Position;  // in the file's units
    Rgb TextColor = Black;
    Rgb GroundColor = White;
    bool Opaque = true;  // the ground shows behind texts and between the lines of a hatch
    bool Winding = false;
    TextSide Side = TextSide::Left;
    double AboveBaseline = 0.905;  // of a text's point, as a part of its size
    bool FromPosition = false;     // texts begin at the position
    std::optional<Box> Clip;       // mm
  };

  void PlayRecord(const MetafileBytes::Entry& entry);

  // The state.
  void SaveState(const MetafileRecord& record);
  void RestoreState(const MetafileRecord& record);
  void SetBackgroundMode(const MetafileRecord& record);
  void SetFillMode(const MetafileRecord& record);
  void SetTextAlign(const MetafileRecord& record);
  void SetBackgroundColor(const MetafileRecord& record);
  void SetTextColor(const MetafileRecord& record);
  void SetWindowOrigin(const MetafileRecord& record);
  void SetWindowExtents(const MetafileRecord& record);
  void OffsetWindowOrigin(const MetafileRecord& record);
  void ScaleWindowExtents(const MetafileRecord& record);
  void IntersectClip(const MetafileRecord& record);
  void OffsetClip(const MetafileRecord& record);
  void SelectClip(const MetafileRecord& record);

  // Objects.
  void CreatePen(const MetafileRecord& record);
  void CreateBrush(const MetafileRecord& record);
  void CreatePatternBrush(const MetafileRecord& record);
  void CreateFont(const MetafileRecord& record);
  void CreateUnknown(const MetafileRecord& record);
  void Create(Object object);
  void SelectObject(const MetafileRecord& record);
  void DeleteObject(const MetafileRecord& record);

  // Shapes.
  void MoveTo(const MetafileRecord& record);
  void LineTo(const MetafileRecord& record);
  void DrawPolyline(const MetafileRecord& record);
  void DrawPolygon(const MetafileRecord& record);
  void DrawPolyPolygon(const MetafileRecord& record);
  void DrawRectangle(const MetafileRecord& record);
  void DrawRoundRectangle(const MetafileRecord& record);
  void DrawEllipse(const MetafileRecord& record);
  void DrawArc(const MetafileRecord& record);
  void DrawChord(const MetafileRecord& record);
  void DrawPie(const MetafileRecord& record);
  void AddArc(const MetafileRecord& record, bool closed, bool pie);

  // Texts.
  void TextOut(const MetafileRecord& record);
  void ExtendedTextOut(const MetafileRecord& record);
  void AddText(const Point& at, std::string_view bytes, const std::optional<Box>& clip);

  Point Mm(const Point& point) const;
  double MmWide(double units) const;
  double MmHigh(double units) const;
  Box BoxMm(const Point& a, const Point& b) const;
  // As records put it: bottom, right, top, left.
  Box BoxMm(const MetafileRecord& record, std::size_t at) const;
  std::vector<Point> PointsMm(const MetafileRecord& record, std::size_t at, std::size_t count);
  MetafileInk Ink() const;

  Picture& picture_;
  MetafileShapes shapes_;
  State state_;
  std::vector<State> saved_;
  std::vector<Object> objects_;
  std::set<std::size_t> free_;  // slots of deleted objects
  bool passedOver_ = false;
};

}  // namespace orvane
