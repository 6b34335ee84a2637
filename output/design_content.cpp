#include "output/design_content.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/numbers.h"

namespace orvane {

namespace {

void AppendText(std::string& content, std::string_view text) {
  content.append(DecimalText(static_cast<long long>(text.size()))).append(1, ':').append(text);
}

void AppendHole(std::string& content, const Hole& hole) {
  AppendFileNumber(content, hole.XPos);
  for (const std::string* line : {&hole.BF, &hole.W1, &hole.W2, &hole.TF}) {
    AppendText(content, *line);
  }
  AppendFileNumber(content, hole.Diameter);
  AppendFileNumber(content, hole.SlotLength);
  content += hole.CounterSunk == CounterSunkMark ? '*' : ' ';
}

}  // namespace

std::string ContentBesideMark(const Item& item) {
  std::string content;
  for (const std::string* text :
       {&item.SectionType, &item.Product, &item.Notes, &item.PatternName, &item.Pitch}) {
    AppendText(content, *text);
  }
  for (const std::int16_t number : {item.Length, item.JointingPieces, item.SagBarDia}) {
    AppendFileNumber(content, number);
  }
  AppendFileNumber(content, item.MitreLeft);
  AppendFileNumber(content, item.MitreRight);
  // A pattern's holes follow from it. Holes and notches are the same in whatever order.
  std::vector<std::string> parts;
  const bool isCustom = item.PatternName == CustomPattern;
  for (const Hole& hole : item.Holes) {
    if (isCustom || hole.Kind == CustomKind) AppendHole(parts.emplace_back("H"), hole);
  }
  for (const Notch& notch : item.Notches) {
    AppendText(parts.emplace_back("N"), notch.Code);
    for (const float size : {notch.Size1, notch.Size2, notch.Size3}) {
      AppendFileNumber(parts.back(), size);
    }
  }
  std::sort(parts.begin(), parts.end());
  for (const std::string& part : parts) content += part;
  return content;
}

}  // namespace orvane
