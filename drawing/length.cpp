#include "drawing/length.h"

#include <cmath>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

Length::Length(std::string_view text) {
  constexpr std::string_view unit = "mm";
  std::string_view number = Trim(text);
  millimetres_ = number.ends_with(unit);
  if (millimetres_) number.remove_suffix(unit.size());
  value_ = ParseDouble(number);
}

std::string Length::Text() const {
  std::string text = ShortestText(value_);
  if (millimetres_) text += "mm";
  return text;
}

double FiniteMm(const Length& length) {
  const double millimetres = length.Mm();
  if (!std::isfinite(millimetres)) throw RuntimeError(Failure::Overflow);
  return millimetres;
}

}  // namespace orvane
