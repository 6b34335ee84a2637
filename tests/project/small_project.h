// One small complete project: every record, every form of line. As the file's lines, written down
// by hand, and as the tables that they stand for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace orvane::test {

// The places in the small project's file that the tests speak of, counted from 1.
namespace line {
constexpr int OrvaneNumber = 1;
constexpr int ProjectDate = 6;
constexpr int ItemCount = 7;
constexpr int Mark = 8;  // of the first item
constexpr int Product = 10;
constexpr int Length = 11;
constexpr int Notes = 15;
constexpr int HoleCount = 17;
constexpr int FirstHoleXPos = 29;
constexpr int FirstHoleCounterSunk = 37;
constexpr int NotchCount = 51;
constexpr int NotchCode = 52;
constexpr int Pitch = 58;
constexpr int SecondMark = 61;
constexpr int SecondHoleCount = 70;
constexpr int Lines1Count = 77;
constexpr int Lines1End = 81;  // the last line that every project file has
constexpr int Lines2Count = 82;
constexpr int Lines2Mark = 84;
constexpr int Lines2NoOff = 85;
constexpr int Lines2ValueCount = 86;
constexpr int Lines2End = 92;
constexpr int FirstFlag = 93;
constexpr int LastFlag = 96;
}  // namespace line

// The lines without their ends; element 0 is line 1. The catalogues behind it hold two accessories
// of each type.
std::vector<std::string> SmallProjectLines();

// Lines with another text at `number`, counted from 1.
std::vector<std::string> With(std::vector<std::string> lines, int number, const std::string& text);

// The first `count` lines.
std::vector<std::string> First(std::vector<std::string> lines, int count);

// A file's bytes: each line with its line end.
std::string Joined(const std::vector<std::string>& lines, const std::string& lineEnd = "\r\n");

// The lines of a project text, which must all end in CR LF; and one of them, counted from 1.
std::vector<std::string> LinesOf(const std::string& text);
std::string LineOf(const std::string& text, int number);

class ProjectFileTest : public SystemTest {
 protected:
  ProjectFileTest() { SetCatalogue(2, 2); }

  // As many accessories, with their flags cleared, as if catalogues of that size had been loaded.
  static void SetCatalogue(std::int16_t type1, std::int16_t type2);

  // Puts the small project into the tables.
  static void FillSmallProject();

  // Puts an earlier project into the tables, all of whose values differ from the small project's:
  // one item with two notches, a line of each type, all flags set.
  static void FillEarlierProject();
  static void ExpectEarlierItems();
  static void ExpectEarlierLines1();
  static void ExpectEarlierLines2();
  static void ExpectFlags(const std::vector<int>& flags);

  // A file of these bytes under a name of its own: many disks are slow to write one name again and
  // again.
  std::string FreshFile(const std::string& bytes);

  // Reads a project file of these lines, or of these bytes.
  void Read(const std::vector<std::string>& lines) { ReadBytes(Joined(lines)); }
  void ReadBytes(const std::string& bytes);
  // The error that reading raises; with a failed test if it raises none.
  std::string ErrorOfReading(const std::vector<std::string>& lines);

 private:
  int files_ = 0;
};

}  // namespace orvane::test
