// How the catalogue check reads: row by row with the program's own readers, looking over their
// shoulder at what each of them takes from where.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/catalogues.h"
#include "core/table.h"
#include "output/catalogue_finding.h"
#include "output/catalogue_source.h"

namespace orvane {

// What is known of a catalogue while it is checked.
struct CheckedCatalogue {
  std::vector<CatalogueFinding> Findings;
  // The line of the file that each row of SectionDims, PunchPatterns and AccDefs comes from.
  Table<int> DimRows, PatternRows, AccessoryRows;
  bool AccessoriesWhole = false;  // both of their files were read to the end

  void Add(CatalogueRule rule, std::string_view file, int row, int column, std::string what) {
    Findings.push_back({rule, std::string(file), row, column, std::move(what)});
  }
};

// Reads one of the five files over the tables, as the start-up does, and adds what is found of its
// rows; false when the reader stopped before the end.
bool CheckRows(std::string_view name, const std::string& bytes, CheckedCatalogue& checked);

// What the tables then hold and can't work with.
void CheckProducts(CheckedCatalogue& checked);
void CheckPatterns(CheckedCatalogue& checked);
void CheckAccessories(const CatalogueSource& source, CheckedCatalogue& checked);

// A cell's text as it is quoted in a finding: between quotes, long ones cut.
std::string Quoted(std::string_view cell);

}  // namespace orvane
