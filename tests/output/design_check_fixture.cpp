#include "tests/output/design_check_fixture.h"

#include "core/settings.h"

namespace orvane::test {

DesignCheckTest::DesignCheckTest() {
  LoadShippedCatalogues();
  LoadMaxDims();
}

DesignCheckTest::~DesignCheckTest() {
  TheRules = ShippedRules();
}

Item& DesignCheckTest::Add(const std::string& letter, const std::string& product,
                           std::int16_t length) {
  Item item = MakeItem(letter, "P" + std::to_string(Items.UBound() + 1), length);
  item.Product = product;
  return Items.Append(item);
}

Texts DesignCheckTest::Found() {
  Texts lines;
  for (const Finding& finding : CheckSection(OpenJob(), 1)) lines.push_back(FindingLine(finding));
  return lines;
}

bool DesignCheckTest::Finds(DesignRule rule) {
  for (const Finding& finding : CheckSection(OpenJob(), 1)) {
    if (finding.Rule == DesignRules.at(RowOf(rule)).Name) return true;
  }
  return false;
}

bool DesignCheckTest::Finds(DesignRule rule, std::initializer_list<Hole> holes) {
  Items.At(1).Holes.Clear();
  AddHoles(Items.At(1), holes);
  return Finds(rule);
}

bool DesignCheckTest::Finds(DesignRule rule, std::initializer_list<Notch> notches) {
  Items.At(1).Notches.Clear();
  AddNotches(Items.At(1), notches);
  return Finds(rule);
}

Texts DesignCheckTest::Rules(const std::vector<Finding>& findings) {
  Texts rules;
  for (const Finding& finding : findings) rules.emplace_back(finding.Rule);
  return rules;
}

void DesignCheckTest::SwitchOff(DesignRule rule) {
  TheRules.at(RowOf(rule)).Used = false;
}

namespace {

// The lines of a hole in the order of their letters.
Hole WithLines(std::int16_t x, const std::array<std::string, 4>& lines, float diameter,
               float slotLength) {
  return MakeHole(x, diameter, slotLength, "",
                  {lines[0].c_str(), lines[1].c_str(), lines[2].c_str(), lines[3].c_str()});
}

}  // namespace

Hole OnLines(std::int16_t x, const std::string& lines, float diameter, float slotLength) {
  return WithLines(x, {lines.substr(0, 1), lines.substr(1, 1), lines.substr(2, 1), lines.substr(3)},
                   diameter, slotLength);
}

Hole OffGauge(std::int16_t x, int line, const std::string& distance, float diameter) {
  std::array<std::string, 4> lines = {"n", "n", "n", "n"};
  lines.at(static_cast<std::size_t>(line)) = distance;
  return WithLines(x, lines, diameter, 0);
}

}  // namespace orvane::test
