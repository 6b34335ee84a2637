#include "drawing/text_fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "drawing/length.h"
#include "drawing/text_flow.h"

namespace orvane {

namespace {

// The least share of its width, and then of its size, that a text is set in: narrower or smaller it
// isn't read on a building site.
constexpr double LeastShare = 0.6;
constexpr double SizesPerPoint = 20;  // fonts come in whole twips
// Rooms are measured in whole twips, so that a text can be this much wider than its own width.
constexpr double Tolerance = 1 / TwipsPerMm;
constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

double WidthOf(const FontMetrics& metrics, const Font& font, std::string_view text) {
  return metrics.Width(font, text) / TwipsPerMm;
}

void SetSize(TextShape& text, const FontMetrics& metrics, double size) {
  text.Type.Size = size;
  const double ascent = metrics.Ascent(text.Type) / TwipsPerMm;
  text.TopLeft.Y += text.Ascent - ascent;
  text.Ascent = ascent;
}

// The longest beginning of the text that has room with the ellipsis behind it, and both together.
std::string Cut(const FontMetrics& metrics, const Font& font, std::string_view text, double room) {
  std::vector<std::size_t> ends = {0};
  while (ends.back() < text.size()) {
    ends.push_back(ends.back() + FirstChars(text.substr(ends.back()), 1).size());
  }
  const auto withEllipsis = [&](std::size_t end) {
    const std::string_view kept = text.substr(0, end);
    return std::string(kept.substr(0, kept.find_last_not_of(' ') + 1)).append(Ellipsis);
  };
  const auto fits = [&](std::size_t end) {
    return WidthOf(metrics, font, withEllipsis(end)) <= room;
  };
  const auto tooFar = std::partition_point(ends.begin() + 1, ends.end(), fits);
  return withEllipsis(*(tooFar - 1));
}

}  // namespace

double FitText(TextShape& text, const FontMetrics& metrics, double room) {
  const double width = TextTwips(metrics, text.Type, text.Text) / TwipsPerMm;
  if (width <= room + Tolerance) return width;
  const double share = std::max(room, 0.0) / width;
  if (share >= LeastShare) {
    text.WidthScale = share;
    return room;
  }

  text.WidthScale = LeastShare;
  const double fullSize = text.Type.Size;
  const double wanted = std::floor(fullSize * share / LeastShare * SizesPerPoint) / SizesPerPoint;
  SetSize(text, metrics, std::max(wanted, fullSize * LeastShare));
  double set = text.WidthScale * WidthOf(metrics, text.Type, text.Text);
  if (set > room + Tolerance) {
    text.Text = Cut(metrics, text.Type, text.Text, room / LeastShare);
    set = text.WidthScale * WidthOf(metrics, text.Type, text.Text);
  }
  return set;
}

}  // namespace orvane
