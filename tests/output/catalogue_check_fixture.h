// What the tests of the catalogue check share: a catalogue of few rows with nothing to be found, of
// which a test replaces a file.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "output/catalogue_check.h"
#include "tests/support/fixture.h"

namespace orvane::test {

using Texts = std::vector<std::string>;

// 140 deep, gauges 40, 60 and 40, end pair 60.
inline const std::string Product = "Z,Z1,140,65,60,1.2,16,16,40,60,40,2.69,60,3\n";
inline const std::string Pattern = "Z,Butt,A0 A6,,\n";

// So many accessories of type 1 with three sizes each.
inline std::string Type1(int count) {
  std::string text;
  for (int row = 1; row <= count; ++row) {
    text += "A,One " + std::to_string(row) + ",None,60,0,30,N\nI,a,a\nI,b,b\nI,c,c\n";
  }
  return text;
}
// So many of type 2 with that many columns behind "Mark" and "No.Off".
inline std::string Type2(int count, int columns = 7) {
  std::string text;
  for (int row = 1; row <= count; ++row) {
    text += "A,Two " + std::to_string(row) + ",None,60,0,30,Text\n";
    for (int column = 1; column <= columns; ++column) text += "P,c\n";
  }
  return text;
}

using Files = std::map<std::string, std::optional<std::string>>;

inline Files CleanFiles() {
  return {{"dims.csv", Product},
          {"punch.csv", Pattern},
          {"accs1.csv", Type1(5)},
          {"accs2.csv", Type2(16)},
          {"check.csv", std::nullopt}};
}

// Of pictures "acc01" is there, and the cleader rail's.
inline std::vector<CatalogueFinding> FindingsOf(const Files& files) {
  const auto read = [&](std::string_view name) {
    const std::optional<std::string>& text = files.at(std::string(name.substr(1)));
    if (!text) throw RuntimeError(Failure::FileNotFound);
    return *text;
  };
  const auto fault = [](std::string_view name) -> std::string {
    return name == "\\Drawings\\acc01.wmf" || name == "\\Drawings\\drg015.wmf" ? ""
                                                                               : "File not found";
  };
  return CheckCatalogue({read, fault});
}

inline std::vector<CatalogueFinding> FindingsWith(const std::string& file,
                                                  const std::optional<std::string>& text) {
  Files files = CleanFiles();
  files.at(file) = text;
  return FindingsOf(files);
}

// "dims.csv 1:3 number-cut" of each.
inline Texts InShort(const std::vector<CatalogueFinding>& findings) {
  Texts texts;
  for (const CatalogueFinding& finding : findings) {
    texts.push_back(finding.File + " " + std::to_string(finding.Row) + ":" +
                    std::to_string(finding.Column) + " " +
                    std::string(CatalogueRules.at(RowOf(finding.Rule)).Name));
  }
  return texts;
}

}  // namespace orvane::test
