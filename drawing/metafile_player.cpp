#include "drawing/metafile_player.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "core/model.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr double PointsToTheMm = 72 / 25.4;

// Above and below the baseline, as parts of a text's size: Arial's, whose metrics the shipped font
// has.
constexpr double AscentOfText = 0.905;
constexpr double DescentOfText = 0.212;
constexpr double SizeOfPlainText = 10 / PointsToTheMm;  // mm, while no font is chosen

constexpr double HatchSpacing = 1;  // mm

// The dashes of a pen of that style and width in mm; none for a solid one. They grow with the pen,
// so that the dots of a broad one don't flow together.
DashPattern DashesOfPen(std::uint16_t style, double width) {
  enum { Dashed = 1, Dotted = 2, DashDot = 3, DashDotDot = 4 };
  const double dot = std::max(0.5, width);
  const double gap = 2 * dot;
  const double dash = 6 * dot;
  switch (style) {
    case Dashed:
      return {dash, gap};
    case Dotted:
      return {dot, gap};
    case DashDot:
      return {dash, gap, dot, gap};
    case DashDotDot:
      return {dash, gap, dot, gap, dot, gap};
    default:
      return {};
  }
}

constexpr std::size_t MostSavedStates = 256;

// An extent beyond this is none of 16 bits, whatever it was scaled by.
constexpr double MostExtent = 1'000'000;

std::string TextOf(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    // A byte beyond ASCII is never UTF-8 when it stands alone, so it is read as Windows-1252.
    text += static_cast<unsigned char>(byte) < ' ' ? " " : DecodeText(std::string(1, byte));
  }
  return text;
}

}  // namespace

MetafilePlayer::MetafilePlayer(Picture& picture, const MetafileWindow& window)
    : picture_(picture), shapes_(picture.Shapes) {
  state_.Window = window;
}

void MetafilePlayer::Play(MetafileBytes bytes) {
  for (MetafileBytes::Entry entry = bytes.TakeRecord(); entry.Function != 0;
       entry = bytes.TakeRecord()) {
    shapes_.Spend(1);
    PlayRecord(entry);
  }
}

void MetafilePlayer::PlayRecord(const MetafileBytes::Entry& entry) {
  struct Kind {
    std::uint16_t Function = 0;
    void (MetafilePlayer::*Play)(const MetafileRecord&) = nullptr;
  };
  // What is not named here is passed over: excluded rectangles, the viewport, spacing of letters,
  // palettes in use, escapes; and what would be seen, which is noted.
  static constexpr std::array Kinds = {
      Kind{0x001E, &MetafilePlayer::SaveState},
      Kind{0x0127, &MetafilePlayer::RestoreState},
      Kind{0x0102, &MetafilePlayer::SetBackgroundMode},
      Kind{0x0106, &MetafilePlayer::SetFillMode},
      Kind{0x012E, &MetafilePlayer::SetTextAlign},
      Kind{0x0201, &MetafilePlayer::SetBackgroundColor},
      Kind{0x0209, &MetafilePlayer::SetTextColor},
      Kind{0x020B, &MetafilePlayer::SetWindowOrigin},
      Kind{0x020C, &MetafilePlayer::SetWindowExtents},
      Kind{0x020F, &MetafilePlayer::OffsetWindowOrigin},
      Kind{0x0410, &MetafilePlayer::ScaleWindowExtents},
      Kind{0x0416, &MetafilePlayer::IntersectClip},
      Kind{0x0220, &MetafilePlayer::OffsetClip},
      Kind{0x012C, &MetafilePlayer::SelectClip},

      Kind{0x02FA, &MetafilePlayer::CreatePen},
      Kind{0x02FC, &MetafilePlayer::CreateBrush},
      Kind{0x0142, &MetafilePlayer::CreatePatternBrush},  // of a bitmap with its own palette
      Kind{0x01F9, &MetafilePlayer::CreatePatternBrush},
      Kind{0x02FB, &MetafilePlayer::CreateFont},
      Kind{0x00F7, &MetafilePlayer::CreateUnknown},  // palette
      Kind{0x06FF, &MetafilePlayer::CreateUnknown},  // region
      Kind{0x012D, &MetafilePlayer::SelectObject},
      Kind{0x01F0, &MetafilePlayer::DeleteObject},

      Kind{0x0214, &MetafilePlayer::MoveTo},
      Kind{0x0213, &MetafilePlayer::LineTo},
      Kind{0x0325, &MetafilePlayer::DrawPolyline},
      Kind{0x0324, &MetafilePlayer::DrawPolygon},
      Kind{0x0538, &MetafilePlayer::DrawPolyPolygon},
      Kind{0x041B, &MetafilePlayer::DrawRectangle},
      Kind{0x061C, &MetafilePlayer::DrawRoundRectangle},
      Kind{0x0418, &MetafilePlayer::DrawEllipse},
      Kind{0x0817, &MetafilePlayer::DrawArc},
      Kind{0x0830, &MetafilePlayer::DrawChord},
      Kind{0x081A, &MetafilePlayer::DrawPie},

      Kind{0x0521, &MetafilePlayer::TextOut},
      Kind{0x0A32, &MetafilePlayer::ExtendedTextOut},
  };
  const auto* kind = std::find_if(Kinds.begin(), Kinds.end(), [&](const Kind& candidate) {
    return candidate.Function == entry.Function;
  });
  if (kind != Kinds.end()) {
    (this->*kind->Play)(entry.Record);
    return;
  }
  // Bitmaps and blocks of them, single pixels, flood fills, regions.
  static constexpr std::array<std::uint16_t, 14> Unseen = {
      0x0922, 0x0B23, 0x0940, 0x0B41, 0x0F43, 0x0D33, 0x061D,
      0x041F, 0x0419, 0x0548, 0x0228, 0x0429, 0x012A, 0x012B,
  };
  if (std::find(Unseen.begin(), Unseen.end(), entry.Function) != Unseen.end()) passedOver_ = true;
}

// The state.

void MetafilePlayer::SaveState(const MetafileRecord&) {
  if (saved_.size() >= MostSavedStates) RefusePicture();
  saved_.push_back(state_);
}

// Below 0 counts back from the state saved last, above 0 from the first one.
void MetafilePlayer::RestoreState(const MetafileRecord& record) {
  const int which = record.Number(0);
  const int index = which < 0 ? static_cast<int>(saved_.size()) + which : which - 1;
  if (index < 0 || index >= static_cast<int>(saved_.size())) return;
  state_ = saved_[static_cast<std::size_t>(index)];
  saved_.resize(static_cast<std::size_t>(index));
}

void MetafilePlayer::SetBackgroundMode(const MetafileRecord& record) {
  state_.Opaque = record.Word(0) != 1;
}

void MetafilePlayer::SetFillMode(const MetafileRecord& record) {
  state_.Winding = record.Word(0) == 2;
}

void MetafilePlayer::SetTextAlign(const MetafileRecord& record) {
  const std::uint16_t flags = record.Word(0);
  state_.FromPosition = (flags & 1) != 0;
  const int side = flags & 6;
  state_.Side = side == 6 ? TextSide::Middle : side == 2 ? TextSide::Right : TextSide::Left;
  const int level = flags & 24;
  state_.AboveBaseline = level == 24 ? 0 : level == 8 ? -DescentOfText : AscentOfText;
}

void MetafilePlayer::SetBackgroundColor(const MetafileRecord& record) {
  state_.GroundColor = record.Color(0);
}

void MetafilePlayer::SetTextColor(const MetafileRecord& record) {
  state_.TextColor = record.Color(0);
}

void MetafilePlayer::SetWindowOrigin(const MetafileRecord& record) {
  const Point origin = record.YX(0);
  state_.Window.X = origin.X;
  state_.Window.Y = origin.Y;
}

void MetafilePlayer::SetWindowExtents(const MetafileRecord& record) {
  const Point extents = record.YX(0);
  if (extents.X == 0 || extents.Y == 0) return;  // nothing could be drawn in it
  state_.Window.Width = extents.X;
  state_.Window.Height = extents.Y;
}

void MetafilePlayer::OffsetWindowOrigin(const MetafileRecord& record) {
  const Point offset = record.YX(0);
  state_.Window.X += offset.X;
  state_.Window.Y += offset.Y;
}

void MetafilePlayer::ScaleWindowExtents(const MetafileRecord& record) {
  // The divisor and the factor of Y, then those of X.
  const Point divisors{static_cast<double>(record.Number(2)),
                       static_cast<double>(record.Number(0))};
  const Point factors{static_cast<double>(record.Number(3)), static_cast<double>(record.Number(1))};
  if (divisors.X == 0 || divisors.Y == 0) return;
  const double width = std::trunc(state_.Window.Width * factors.X / divisors.X);
  const double height = std::trunc(state_.Window.Height * factors.Y / divisors.Y);
  const auto usable = [](double extent) { return extent != 0 && std::abs(extent) < MostExtent; };
  if (!usable(width) || !usable(height)) return;
  state_.Window.Width = width;
  state_.Window.Height = height;
}

void MetafilePlayer::IntersectClip(const MetafileRecord& record) {
  const Box box = BoxMm(record, 0);
  state_.Clip = state_.Clip ? CommonBox(*state_.Clip, box) : box;
}

// Moves the clip by so many units down and right.
void MetafilePlayer::OffsetClip(const MetafileRecord& record) {
  const Point offset = record.YX(0);
  if (!state_.Clip) return;
  state_.Clip->Left += offset.X * picture_.Width / state_.Window.Width;
  state_.Clip->Top += offset.Y * picture_.Height / state_.Window.Height;
}

// 0 lifts the clip. Regions, which another number would name, aren't kept, so that the clip stays.
void MetafilePlayer::SelectClip(const MetafileRecord& record) {
  if (record.Word(0) == 0) state_.Clip.reset();
}

// Objects.

// Style, width (and a height that says nothing), colour.
void MetafilePlayer::CreatePen(const MetafileRecord& record) {
  constexpr int NoLine = 5;
  const std::uint16_t style = record.Word(0) & 0xF;
  Create(Pen{style != NoLine, std::abs(static_cast<double>(record.Number(1))), record.Color(3),
             style});
}

// Style, colour, the kind of hatch.
void MetafilePlayer::CreateBrush(const MetafileRecord& record) {
  enum { SolidStyle = 0, HatchedStyle = 2 };
  static const std::array<std::vector<HatchLines>, 6> Kinds = {{
      {HatchLines::Level},
      {HatchLines::Upright},
      {HatchLines::Falling},
      {HatchLines::Rising},
      {HatchLines::Level, HatchLines::Upright},
      {HatchLines::Rising, HatchLines::Falling},
  }};
  const std::uint16_t style = record.Word(0);
  Brush brush{style == SolidStyle, record.Color(1), {}};
  if (style == HatchedStyle && record.Word(3) < Kinds.size()) brush.Lines = Kinds[record.Word(3)];
  Create(brush);
}

// What a bitmap would fill stays as it is.
void MetafilePlayer::CreatePatternBrush(const MetafileRecord&) {
  Create(Brush{false, White, {}});
}

// Height, width, two angles, weight; then bytes: italic, underlined, struck out, the set of
// characters, four that say how to choose; then the name. Every set is read as Windows-1252, no
// line is drawn at the letters, and their width is the font's own.
void MetafilePlayer::CreateFont(const MetafileRecord& record) {
  constexpr int SemiBold = 600;
  Font font;
  const double height = record.Number(0);
  // Above 0 it is the height from ascent to descent.
  font.Size = height < 0 ? -height : height / (AscentOfText + DescentOfText);
  font.Angle = record.Number(2) / 10.0;
  font.Bold = record.Number(4) >= SemiBold;
  font.Italic = (record.Word(5) & 0xFF) != 0;
  const std::string_view name = record.BytesFrom(9);
  const std::string_view upToItsEnd = name.substr(0, std::min(name.find('\0'), name.size()));
  if (!upToItsEnd.empty()) font.Name = TextOf(upToItsEnd.substr(0, 32));
  Create(font);
}

void MetafilePlayer::CreateUnknown(const MetafileRecord&) {
  Create(Unknown{});
}

void MetafilePlayer::Create(Object object) {
  if (free_.empty()) {
    objects_.push_back(std::move(object));
    return;
  }
  // The lowest slot that is free.
  objects_[*free_.begin()] = std::move(object);
  free_.erase(free_.begin());
}

void MetafilePlayer::SelectObject(const MetafileRecord& record) {
  const std::size_t slot = record.Word(0);
  if (slot >= objects_.size()) return;
  const Object& object = objects_[slot];
  if (const auto* pen = std::get_if<Pen>(&object)) state_.Stroke = *pen;
  if (const auto* brush = std::get_if<Brush>(&object)) state_.Inside = *brush;
  if (const auto* font = std::get_if<Font>(&object)) state_.Type = *font;
}

void MetafilePlayer::DeleteObject(const MetafileRecord& record) {
  const std::size_t slot = record.Word(0);
  if (slot >= objects_.size()) return;
  objects_[slot] = Deleted{};
  free_.insert(slot);
}

// Shapes.

void MetafilePlayer::MoveTo(const MetafileRecord& record) {
  state_.Position = record.YX(0);
}

void MetafilePlayer::LineTo(const MetafileRecord& record) {
  const Point from = std::exchange(state_.Position, record.YX(0));
  shapes_.AddLine(Mm(from), Mm(state_.Position), Ink());
}

void MetafilePlayer::DrawPolyline(const MetafileRecord& record) {
  shapes_.AddChain(PointsMm(record, 1, record.Count(0)), Ink());
}

void MetafilePlayer::DrawPolygon(const MetafileRecord& record) {
  shapes_.AddPolygon({PointsMm(record, 1, record.Count(0))}, Ink());
}

// The number of polygons, the number of corners of each, then all corners.
void MetafilePlayer::DrawPolyPolygon(const MetafileRecord& record) {
  const std::size_t count = record.Count(0);
  std::vector<std::vector<Point>> rings;
  std::size_t at = 1 + count;
  for (std::size_t i = 0; i < count; ++i) {
    rings.push_back(PointsMm(record, at, record.Count(1 + i)));
    at += 2 * rings.back().size();
  }
  shapes_.AddPolygon(std::move(rings), Ink());
}

void MetafilePlayer::DrawRectangle(const MetafileRecord& record) {
  shapes_.AddRectangle(BoxMm(record, 0), Ink());
}

// The height and width of the corners' ellipse, then the box.
void MetafilePlayer::DrawRoundRectangle(const MetafileRecord& record) {
  const Point corner = record.YX(0);
  shapes_.AddRoundRectangle(BoxMm(record, 2), MmWide(corner.X), MmHigh(corner.Y), Ink());
}

void MetafilePlayer::DrawEllipse(const MetafileRecord& record) {
  shapes_.AddEllipse(BoxMm(record, 0), Ink());
}

void MetafilePlayer::DrawArc(const MetafileRecord& record) {
  AddArc(record, false, false);
}

void MetafilePlayer::DrawChord(const MetafileRecord& record) {
  AddArc(record, true, false);
}

void MetafilePlayer::DrawPie(const MetafileRecord& record) {
  AddArc(record, true, true);
}

// A point on the ray of the arc's end, one on that of its start, then the box of the ellipse.
void MetafilePlayer::AddArc(const MetafileRecord& record, bool closed, bool pie) {
  ArcShape arc;
  arc.Place = BoxMm(record, 4);
  const double a = arc.Place.Width / 2;
  const double b = arc.Place.Height / 2;
  if (a <= 0 || b <= 0) return;
  const auto angleOf = [&](const Point& units) {
    const Point point = Mm(units);
    return std::atan2((arc.Place.Top + b - point.Y) / b, (point.X - arc.Place.Left - a) / a);
  };
  arc.Start = angleOf(record.YX(2));
  arc.Span = angleOf(record.YX(0)) - arc.Start;
  if (arc.Span <= 0) arc.Span += 2 * Pi;
  arc.Pie = pie;
  arc.StrokeAll = closed;
  shapes_.AddArc(arc, Ink());
}

// Texts.

// The length, the text, then where it stands.
void MetafilePlayer::TextOut(const MetafileRecord& record) {
  const std::size_t length = record.Count(0);
  const std::string_view bytes = record.Bytes(1, length);
  AddText(record.YX(1 + (length + 1) / 2), bytes, {});
}

// Where it stands, the length, options, a rectangle if they ask for one, the text. The advances of
// the letters that may follow are left to the font.
void MetafilePlayer::ExtendedTextOut(const MetafileRecord& record) {
  enum { FillsRectangle = 2, CutsAtRectangle = 4 };
  const std::size_t length = record.Count(2);
  const std::uint16_t options = record.Word(3);
  std::size_t at = 4;
  std::optional<Box> clip;
  if ((options & (FillsRectangle | CutsAtRectangle)) != 0) {
    // Unlike other boxes from left to bottom.
    const Box rectangle = BoxMm(record.XY(4), record.XY(6));
    at = 8;
    if ((options & CutsAtRectangle) != 0) clip = rectangle;
    if ((options & FillsRectangle) != 0) {
      MetafileInk ground;
      ground.Stroke.Visible = false;
      ground.Inside = {true, state_.GroundColor};
      ground.Clip = state_.Clip;
      shapes_.AddRectangle(rectangle, ground);
    }
  }
  AddText(record.YX(0), record.Bytes(at, length), clip);
}

void MetafilePlayer::AddText(const Point& at, std::string_view bytes,
                             const std::optional<Box>& clip) {
  const double size = state_.Type.Size == 0 ? SizeOfPlainText : MmHigh(state_.Type.Size);
  // Letters larger than the picture are a damaged file's, and fonts break on them.
  if (bytes.empty() || size > 2 * std::max(picture_.Width, picture_.Height)) return;
  TextShape text;
  text.TopLeft = Mm(state_.FromPosition ? state_.Position : at);
  text.Text = TextOf(bytes);
  text.Type = {state_.Type.Name, size * PointsToTheMm, state_.Type.Bold, state_.Type.Italic};
  text.Color = state_.TextColor;
  text.Angle = state_.Type.Angle;
  text.Ascent = state_.AboveBaseline * size;
  text.Side = state_.Side;
  text.Behind = {state_.Opaque, state_.GroundColor};
  text.Clipped = clip.has_value();
  if (clip) text.Clip = *clip;
  MetafileInk ink;
  ink.Clip = state_.Clip;
  shapes_.AddText(std::move(text), ink);
}

// Coordinates.

Point MetafilePlayer::Mm(const Point& point) const {
  const MetafileWindow& window = state_.Window;
  return {(point.X - window.X) * picture_.Width / window.Width,
          (point.Y - window.Y) * picture_.Height / window.Height};
}

double MetafilePlayer::MmWide(double units) const {
  return std::abs(units * picture_.Width / state_.Window.Width);
}

double MetafilePlayer::MmHigh(double units) const {
  return std::abs(units * picture_.Height / state_.Window.Height);
}

Box MetafilePlayer::BoxMm(const Point& a, const Point& b) const {
  const Point from = Mm(a);
  const Point to = Mm(b);
  return {std::min(from.X, to.X), std::min(from.Y, to.Y), std::abs(to.X - from.X),
          std::abs(to.Y - from.Y)};
}

Box MetafilePlayer::BoxMm(const MetafileRecord& record, std::size_t at) const {
  return BoxMm(record.YX(at + 2), record.YX(at));
}

std::vector<Point> MetafilePlayer::PointsMm(const MetafileRecord& record, std::size_t at,
                                            std::size_t count) {
  record.Need(at + 2 * count);
  shapes_.Spend(static_cast<double>(count));
  std::vector<Point> points;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) points.push_back(Mm(record.XY(at + 2 * i)));
  return points;
}

MetafileInk MetafilePlayer::Ink() const {
  MetafileInk ink;
  ink.Stroke = {MmWide(state_.Stroke.Width), state_.Stroke.Color, state_.Stroke.Visible};
  ink.Dashes = DashesOfPen(state_.Stroke.Style, ink.Stroke.Width);
  const Brush& brush = state_.Inside;
  if (brush.Solid) ink.Inside = {true, brush.Color};
  if (!brush.Lines.empty()) {
    ink.Inside = {state_.Opaque, state_.GroundColor};
    for (const HatchLines lines : brush.Lines) {
      ink.Hatches.push_back({.Color = brush.Color, .Lines = lines, .Spacing = HatchSpacing});
    }
  }
  ink.Winding = state_.Winding;
  ink.Clip = state_.Clip;
  return ink;
}

}  // namespace orvane
