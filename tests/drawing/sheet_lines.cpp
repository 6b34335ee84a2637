#include "tests/drawing/sheet_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/numbers.h"

namespace orvane::test {

namespace {

constexpr double Twips = 56.7;

std::string Mm(double number) {
  return " " + ShortestText(number) + "mm";
}

std::string Bare(double number) {
  return " " + ShortestText(number);
}

std::string WholeTwip(double mm) {
  return ShortestText(std::floor(mm * Twips));
}

std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words(1);
  for (const char letter : line) {
    if (letter == ' ') {
      words.emplace_back();
    } else {
      words.back() += letter;
    }
  }
  return words;
}

// True if both are one number in the same unit, at most that far from each other.
bool IsNear(std::string one, std::string other, double most) {
  for (const std::string unit : {"mm", "\""}) {
    if (one.ends_with(unit) != other.ends_with(unit)) return false;
    if (!one.ends_with(unit)) continue;
    one.resize(one.size() - unit.size());
    other.resize(other.size() - unit.size());
    if (unit == "mm") most = std::min(most, 1e-9);
  }
  if (one.starts_with('"') && other.starts_with('"')) {
    one.erase(0, 1);
    other.erase(0, 1);
  }
  if (!IsNumber(one) || !IsNumber(other)) return false;
  return std::abs(ParseDouble(one) - ParseDouble(other)) <= most;
}

bool IsSameLine(const std::string& recorded, const std::string& expected) {
  if (recorded == expected) return true;
  const std::vector<std::string> one = Words(recorded);
  const std::vector<std::string> other = Words(expected);
  if (one.front() != other.front() || one.size() != other.size()) return false;
  double most = 0;
  const auto is = [&one](const std::string& operation) { return one.front() == operation; };
  if (is("Polygon") || is("DrawRectangle") || is("CurrentX") || is("CurrentY")) most = 1;
  if (is("DrawLine") || is("DrawArc") || is("DrawPicture") || is("TextBox")) most = 1e-9;
  if (is("DrawLine") && !one.back().ends_with("mm")) most = 1e-6;
  for (std::size_t at = 1; at < one.size(); ++at) {
    if (one.at(at) != other.at(at) && !(most > 0 && IsNear(one.at(at), other.at(at), most))) {
      return false;
    }
  }
  return true;
}

}  // namespace

SheetLines& SheetLines::Says(const std::string& line) {
  lines_.push_back(line);
  return *this;
}

SheetLines& SheetLines::Pen(double width) {
  return Says("PenWidth" + Mm(width));
}

SheetLines& SheetLines::Line(double x1, double y1, double x2, double y2) {
  return Says("DrawLine" + Mm(x1) + Mm(y1) + Mm(x2) + Mm(y2));
}

SheetLines& SheetLines::Rectangle(double x1, double y1, double x2, double y2) {
  return Says("DrawRectangle" + Mm(x1) + Mm(y1) + Mm(x2) + Mm(y2));
}

SheetLines& SheetLines::Entry(double y, const std::string& label, double valueX,
                              const std::string& value) {
  Says("CurrentX 15mm").Says("CurrentY" + Mm(y)).Says("Text \"" + label + "\"");
  return Says("CurrentX" + Mm(valueX)).Says("Text \"" + value + "\"");
}

SheetLines& SheetLines::Edge(double x1, double y1, double x2, double y2) {
  return Pen(0.4).Line(x1, y1, x2, y2).Pen(0.1);
}

SheetLines& SheetLines::Head(double dx, double dy, double x, double y) {
  // 1.1 mm back from the tip, then 0.35 mm to either side.
  const double backX = x - 1.1 * dx;
  const double backY = y - 1.1 * dy;
  const double sideX = 0.35 * dy;
  const double sideY = -0.35 * dx;
  const std::string tip = WholeTwip(x) + " " + WholeTwip(y);
  const std::string first = WholeTwip(backX + sideX) + " " + WholeTwip(backY + sideY);
  const std::string second = WholeTwip(backX - sideX) + " " + WholeTwip(backY - sideY);
  Says("BrushStyle 0").Says("BrushColor 0,0,0");
  Says("Polygon \"" + tip + " " + first + " " + second + " " + tip + "\"");
  return Says("BrushStyle 1").Says("BrushColor 255,255,255");
}

SheetLines& SheetLines::CentredText(std::string_view text, double x, double y) {
  std::size_t characters = 0;
  for (const char byte : text) {
    if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) ++characters;
  }
  const double width = 70.0 * static_cast<double>(characters);
  const double left = std::floor(x * Twips) - width / 2;
  const double top = std::floor(y * Twips) - 80;  // half of 161
  Says("BrushStyle 0").Says("BrushColor 255,255,255").Says("PenColor 255,255,255");
  Says("DrawRectangle" + Bare(left) + Bare(top) + Bare(left + width) + Bare(top + 161));
  Says("CurrentX" + Bare(left)).Says("CurrentY" + Bare(top));
  return Says("Text \"" + std::string(text) + "\"").Says("PenColor 0,0,0");
}

SheetLines& SheetLines::Upright(double x, double y1, double y2, std::string_view value) {
  Pen(0.1).Line(x, y1, x, y2).Head(0, -1, x, y1).Head(0, 1, x, y2);
  return CentredText(value, x, (y1 + y2) / 2);
}

SheetLines& SheetLines::Level(double x1, double x2, double y, std::string_view value) {
  Pen(0.1).Line(x1, y, x2, y).Head(-1, 0, x1, y).Head(1, 0, x2, y);
  return CentredText(value, (x1 + x2) / 2, y);
}

SheetLines& SheetLines::Turned(std::string_view value, double x, double y, int tenths) {
  const double width = 70.0 * static_cast<double>(value.size());
  Says("BrushStyle 0").Says("BrushColor 255,255,255").Says("PenColor 255,255,255");
  Says("TextAngle" + Bare(tenths));
  Says("TextBox \"" + std::string(value) + "\"" + Mm(x) + Mm(y) + Bare(width) + " 161 true");
  return Says("TextAngle 0").Says("PenColor 0,0,0");
}

SheetLines& SheetLines::LengthOver(double baseY, double left, double right,
                                   std::string_view value) {
  Pen(0.1).Line(left, baseY - 26, left, baseY - 2).Line(right, baseY - 26, right, baseY - 2);
  return Level(left, right, baseY - 24, value);
}

void ExpectSameSheet(const std::vector<std::string>& recorded,
                     const std::vector<std::string>& expected) {
  const std::size_t both = std::min(recorded.size(), expected.size());
  for (std::size_t at = 0; at < both; ++at) {
    if (IsSameLine(recorded.at(at), expected.at(at))) continue;
    ADD_FAILURE() << "line " << at << ":\n  recorded " << recorded.at(at) << "\n  expected "
                  << expected.at(at) << "\n  behind   " << (at > 0 ? recorded.at(at - 1) : "");
    return;
  }
  for (std::size_t at = both; at < recorded.size(); ++at) {
    ADD_FAILURE() << "not expected: " << recorded.at(at);
  }
  for (std::size_t at = both; at < expected.size(); ++at) {
    ADD_FAILURE() << "missing: " << expected.at(at);
  }
}

}  // namespace orvane::test
