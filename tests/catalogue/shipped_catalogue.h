// What the tests of the catalogue files that ship share: the catalogues loaded, the files' own rows
// as a second opinion, and small look-ups.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "tests/support/fixture.h"

namespace orvane::test {

using Texts = std::vector<std::string>;

// Loads the catalogues that ship.
class ShippedCatalogue : public SystemTest {
 protected:
  void SetUp() override { LoadShippedCatalogues(); }
};

// The files themselves, cut at every line feed and comma without the readers' help.

inline const Texts ShippedNames = {"dims.csv", "punch.csv", "accs1.csv", "accs2.csv", "check.csv"};

std::string ShippedBytes(const std::string& name);
// Without the empty line behind the last line end.
Texts LinesOf(const std::string& name);
// The cells of the lines that begin with one of the single-letter tags.
std::vector<Texts> RowsOf(const std::string& name, std::string_view tags);

// The tables.

template <class T>
std::vector<T> RowsIn(const Table<T>& table) {
  return {table.begin(), table.end()};
}

std::vector<SectionDim> ProductsOf(std::string_view letter);
std::set<double> DepthsOf(std::string_view letter);
std::vector<PunchPattern> PatternsOf(std::string_view letter);

bool Contains(std::string_view text, std::string_view part);

// A name that can stand in a list and in a line of a file: not empty, no blanks at its ends, no
// commas and no quotes.
void ExpectPlainName(std::string_view name);

}  // namespace orvane::test
