#include "tests/screens/detail_fixture.h"

#include <map>

#include "core/numbers.h"

namespace orvane::test {

namespace {

const std::map<std::string, std::string> Products = {
    {"Z", "Z14012"}, {"E", "E17016"}, {"C", "14012"}, {"V", "VCR"}, {"R", "CLR"}, {"T", "T05010"}};

}  // namespace

DetailTest::DetailTest() {
  DrawingWidth = 180;
}

Item& DetailTest::PutSection(const std::string& letter, const std::string& pattern,
                             std::int16_t sagBarDia) {
  const std::string mark = letter + DecimalText(Items.UBound() + 1);
  Item& item = Put(letter, mark, Products.at(letter), 3000);
  item.PatternName = pattern;
  item.SagBarDia = sagBarDia;
  return item;
}

Item& DetailTest::PutCustom(const std::vector<std::int16_t>& positions) {
  Item& item = PutSection("Z", "Custom");
  for (const std::int16_t x : positions) PutHole(item, x, "C");
  return item;
}

std::string DetailTest::ShownParts() {
  std::string shown;
  for (const char* name : {"SSPanelPunching", "SSpanelCustom", "fraSagBars", "lblPitch", "cboPitch",
                           "lblJointing", "txtJointing"}) {
    if (!Shown(name)) continue;
    if (!shown.empty()) shown += ' ';
    shown += name;
  }
  return shown;
}

std::string DetailTest::ShownOption() {
  if (!Shown("fraSagBars")) return "";
  EXPECT_NE(SagBarOption(0).isChecked(), SagBarOption(1).isChecked());
  return FromQt(SagBarOption(SagBarOption(0).isChecked() ? 0 : 1).text());
}

std::vector<std::string> DetailTest::HoleTexts(int row) {
  std::vector<std::string> texts;
  for (int column = 0; column < HoleList().Cols(); ++column) {
    texts.push_back(HoleList().TextMatrix(row, column));
  }
  return texts;
}

std::vector<std::string> DetailTest::ListedHoles() {
  std::vector<std::string> positions;
  for (int row = 1; row < HoleList().Rows(); ++row) {
    positions.push_back(HoleList().TextMatrix(row, 0));
  }
  return positions;
}

std::vector<HoleSize> DetailTest::SizesOf(int row) {
  std::vector<HoleSize> sizes;
  for (const Hole& hole : Items.At(row).Holes) sizes.push_back({hole.XPos, hole.Diameter});
  return sizes;
}

std::string RecordText(const Item& item) {
  std::string text;
  for (const std::string& field :
       {item.Mark, item.SectionType, item.Product, DecimalText(item.Length),
        DecimalText(item.Quantity), item.DateText, item.Notes, ShortestText(item.MitreLeft),
        ShortestText(item.MitreRight), DecimalText(item.HoleCount()),
        DecimalText(item.NotchCount()), item.PatternName, DecimalText(item.CustomHoleCount),
        item.Pitch, DecimalText(item.JointingPieces), DecimalText(item.SagBarDia)}) {
    text += field + "|";
  }
  for (const Hole& hole : item.Holes) {
    text += "\n";
    for (const std::string& field :
         {DecimalText(hole.XPos), hole.Kind, hole.BF, hole.W1, hole.W2, hole.TF,
          ShortestText(hole.Diameter), ShortestText(hole.SlotLength), ShortestText(hole.RelX),
          ShortestText(hole.DrawGap), hole.CounterSunk}) {
      text += field + "|";
    }
  }
  return text;
}

}  // namespace orvane::test
