#include "output/catalogue_check.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "core/catalogue_folder.h"
#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "core/runtime_error.h"
#include "drawing/pictures.h"
#include "output/catalogue_rows.h"
#include "output/design_check_rules.h"

namespace orvane {

namespace {

// In the order of the help.
constexpr std::array<std::string_view, 5> Files = {DimsFile, PunchFile, Accs1File, Accs2File,
                                                   CheckFile};

// The tables that the readers fill, put back at the end: what is checked is not what is used.
class TablesApart {
 public:
  TablesApart()
      : dims_(std::exchange(SectionDims, {})),
        patterns_(std::exchange(PunchPatterns, {})),
        accessories_(std::exchange(AccDefs, {})),
        type1Count_(std::exchange(AccType1Count, std::int16_t{0})),
        type2Count_(std::exchange(AccType2Count, std::int16_t{0})),
        rules_(std::exchange(TheRules, ShippedRules())) {}
  ~TablesApart() {
    std::swap(SectionDims, dims_);
    std::swap(PunchPatterns, patterns_);
    std::swap(AccDefs, accessories_);
    AccType1Count = type1Count_;
    AccType2Count = type2Count_;
    std::swap(TheRules, rules_);
  }
  TablesApart(const TablesApart&) = delete;
  TablesApart& operator=(const TablesApart&) = delete;

 private:
  Table<SectionDim> dims_;
  Table<PunchPattern> patterns_;
  Table<AccDef> accessories_;
  std::int16_t type1Count_;
  std::int16_t type2Count_;
  RulesInUse rules_;
};

bool IsMissing(const RuntimeError& error) {
  return error.Number() == static_cast<int>(Failure::FileNotFound) ||
         error.Number() == static_cast<int>(Failure::PathNotFound);
}

// False when nothing, or not all, was read of it. Without a check.csv the rules are as they ship.
bool CheckFileOf(const CatalogueSource& source, std::string_view name, CheckedCatalogue& checked) {
  std::string bytes;
  try {
    bytes = source.Read(name);
  } catch (const RuntimeError& error) {
    if (name == CheckFile && IsMissing(error)) return true;
    checked.Add(CatalogueRule::FileMissing, name.substr(1), 0, 0,
                "The file can't be read: " + error.Description());
    return false;
  }
  return CheckRows(name, bytes, checked);
}

std::size_t PlaceOf(const std::string& file) {
  const auto* const found = std::find(Files.begin(), Files.end(), "\\" + file);
  return static_cast<std::size_t>(found - Files.begin());
}

std::string PictureFaultOf(std::string_view name) {
  try {
    ReadDrawing(name);
    return {};
  } catch (const RuntimeError& error) {
    return error.Description();
  }
}

}  // namespace

std::vector<CatalogueFinding> CheckCatalogue(const CatalogueSource& source) {
  const TablesApart apart;
  CheckedCatalogue checked;
  CheckFileOf(source, DimsFile, checked);
  CheckFileOf(source, PunchFile, checked);
  // The second is read only behind a whole first, and its rows continue those of the first.
  checked.AccessoriesWhole =
      CheckFileOf(source, Accs1File, checked) && CheckFileOf(source, Accs2File, checked);
  CheckFileOf(source, CheckFile, checked);
  CheckProducts(checked);
  CheckPatterns(checked);
  CheckAccessories(source, checked);
  const auto key = [](const CatalogueFinding& finding) {
    return std::tuple(PlaceOf(finding.File), finding.Row, finding.Column, RowOf(finding.Rule));
  };
  std::stable_sort(
      checked.Findings.begin(), checked.Findings.end(),
      [&](const CatalogueFinding& a, const CatalogueFinding& b) { return key(a) < key(b); });
  return std::move(checked.Findings);
}

std::vector<CatalogueFinding> CheckCatalogueIn(const std::string& officeFolder) {
  const OfficeFolderApart apart(officeFolder);
  return CheckCatalogue(
      {[](std::string_view name) { return ReadWholeFile(CataloguePath(name)); }, PictureFaultOf});
}

}  // namespace orvane
