// The shapes that a metafile's records draw: cut to the clip rectangle, hatched and dashed, and
// bounded in number, since nothing in a file says how much a record may ask for.
#pragma once

#include <optional>
#include <vector>

#include "drawing/dashes.h"
#include "drawing/document.h"
#include "drawing/hatch.h"

namespace orvane {

// How a shape is to be drawn. All in mm.
struct MetafileInk {
  Pen Stroke;
  DashPattern Dashes;  // of the stroke
  Fill Inside;
  std::vector<Hatch> Hatches;  // over the inside
  bool Winding = false;
  std::optional<Box> Clip;
};

class MetafileShapes {
 public:
  explicit MetafileShapes(std::vector<Shape>& shapes) : shapes_(shapes) {}

  void AddLine(const Point& from, const Point& to, const MetafileInk& ink);
  void AddChain(const std::vector<Point>& points, const MetafileInk& ink);
  void AddPolygon(std::vector<std::vector<Point>> rings, const MetafileInk& ink);
  void AddRectangle(const Box& place, const MetafileInk& ink);
  // Corners are quarters of an ellipse of that size.
  void AddRoundRectangle(const Box& place, double cornerWidth, double cornerHeight,
                         const MetafileInk& ink);
  void AddEllipse(const Box& place, const MetafileInk& ink);
  // The arc alone, or, with StrokeAll, the area up to its chord or centre.
  void AddArc(const ArcShape& arc, const MetafileInk& ink);
  void AddText(TextShape text, const MetafileInk& ink);

  // Counts work done for the file; what asks for more than any picture does is refused.
  void Spend(double work);

 private:
  // A closed shape: as it stands where nothing cuts or hatches it, else by its outline's rings.
  template <typename Area, typename OutlineOf>
  void AddArea(Area area, const Box& bounds, const OutlineOf& outlineOf, const MetafileInk& ink);
  void AddPieces(const std::vector<Point>& points, bool closed, const MetafileInk& ink);
  void AddChainPieces(const std::vector<Point>& points, bool closed, const MetafileInk& ink);

  std::vector<Shape>& shapes_;
  double work_ = 0;
};

// The part of two boxes that both share; its width or height is 0 where they share none.
Box CommonBox(const Box& a, const Box& b);

}  // namespace orvane
