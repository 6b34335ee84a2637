#include "tests/project/small_project.h"

#include "project/project_file.h"

namespace orvane::test {

std::vector<std::string> SmallProjectLines() {
  return {
      // head
      "v1.07:OV 1234",        // 1
      "\"J-77, phase 2\"",    // 2
      "\"Ångström & Søn\"",   // 3
      "\"Halle 3 – Süd €\"",  // 4
      "\"K. Müller\"",        // 5
      "05/03/2024",           // 6
      " 2 ",                  // 7
      // first item: a purlin with everything on it
      "\"Z1\"",                  // 8
      "Z",                       // 9
      "20020",                   // 10
      " 6000 ",                  // 11
      " 12 ",                    // 12
      " 22.5 ",                  // 13
      "-0.1 ",                   // 14
      "\"sleeved, both ends\"",  // 15
      "12.03.2024",              // 16
      " 2 ",                     // 17
      // element 0: the end sentinel
      " 6000 ",   // 18
      "",         // 19
      "",         // 20
      "",         // 21
      "",         // 22
      "",         // 23
      " 0 ",      // 24
      " 0 ",      // 25
      "",         // 26
      " 300 ",    // 27
      " 412.5 ",  // 28
      // a pattern hole
      " 35 ",     // 29
      "S",        // 30
      "n",        // 31
      "y",        // 32
      "y",        // 33
      "n",        // 34
      " 14 ",     // 35
      " 0 ",      // 36
      " ",        // 37
      " 35 ",     // 38
      " 1E-14 ",  // 39
      // a custom slot off gauge
      " 5700 ",              // 40
      "C",                   // 41
      "42.5",                // 42
      "n",                   // 43
      "n",                   // 44
      "y",                   // 45
      " 17.6 ",              // 46
      " 30 ",                // 47
      "*",                   // 48
      " 5665 ",              // 49
      " 133.333333333333 ",  // 50
      // its notch
      " 1 ",      // 51
      "TL1",      // 52
      " 50 ",     // 53
      " 120.5 ",  // 54
      "-3 ",      // 55
      // the rest of the item
      "\"Slvd, 2 rows\"",  // 56
      " 1 ",               // 57
      "22.5",              // 58
      " 0 ",               // 59
      " 14 ",              // 60
      // second item: a cleader rail without holes and notches
      "\"R é\"",  // 61
      "R",        // 62
      "CLR",      // 63
      " 3050 ",   // 64
      "-1 ",      // 65
      " 0 ",      // 66
      " 0 ",      // 67
      "\"\"",     // 68
      "",         // 69
      " 0 ",      // 70
      " 0 ",      // 71
      "\"\"",     // 72
      " 0 ",      // 73
      "",         // 74
      " 4 ",      // 75
      " 0 ",      // 76
      // accessory lines, type 1
      " 1 ",   // 77
      " 1 ",   // 78
      " 2 ",   // 79
      " 10 ",  // 80
      "-5 ",   // 81
      // accessory lines, type 2
      " 2 ",             // 82
      " 3 ",             // 83
      "A1",              // 84
      " 4 ",             // 85
      " 2 ",             // 86
      "\"6000\"",        // 87
      "\"ø 16, long\"",  // 88
      " 4 ",             // 89
      "B2",              // 90
      " 7 ",             // 91
      " 0 ",             // 92
      // flags
      "-1 ",  // 93
      " 0 ",  // 94
      "-1 ",  // 95
      "-1 ",  // 96
  };
}

std::vector<std::string> With(std::vector<std::string> lines, int number, const std::string& text) {
  lines.at(static_cast<std::size_t>(number) - 1) = text;
  return lines;
}

std::vector<std::string> First(std::vector<std::string> lines, int count) {
  lines.resize(static_cast<std::size_t>(count));
  return lines;
}

std::string Joined(const std::vector<std::string>& lines, const std::string& lineEnd) {
  std::string bytes;
  for (const std::string& text : lines) bytes.append(text).append(lineEnd);
  return bytes;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = text.find("\r\n", at);
    if (end == std::string::npos) {
      ADD_FAILURE() << "the last line has no line end";
      break;
    }
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

std::string LineOf(const std::string& text, int number) {
  return LinesOf(text).at(static_cast<std::size_t>(number) - 1);
}

void ProjectFileTest::SetCatalogue(std::int16_t type1, std::int16_t type2) {
  AccType1Count = type1;
  AccType2Count = type2;
  AccUsed.Clear();
  AccUsed.Resize(type1 + type2);
}

void ProjectFileTest::FillSmallProject() {
  txtProject = {"OV 1234", "J-77, phase 2", "Ångström & Søn", "Halle 3 – Süd €", "K. Müller"};
  DTPicker1 = {2024, 3, 5};

  Item purlin;
  purlin.Mark = "Z1";
  purlin.SectionType = "Z";
  purlin.Product = "20020";
  purlin.Length = 6000;
  purlin.Quantity = 12;
  purlin.MitreLeft = 22.5F;
  purlin.MitreRight = -0.1F;
  purlin.Notes = "sleeved, both ends";
  purlin.DateText = "12.03.2024";
  purlin.Holes.At(0).XPos = 6000;
  purlin.Holes.At(0).RelX = 300;
  purlin.Holes.At(0).DrawGap = 412.5;
  purlin.Holes.Append({35, "S", "n", "y", "y", "n", 14, 0, 35, 1e-14, " "});
  purlin.Holes.Append({5700, "C", "42.5", "n", "n", "y", 17.6F, 30, 5665, 400.0 / 3, "*"});
  purlin.Notches.Append({"TL1", 50, 120.5F, -3});
  purlin.PatternName = "Slvd, 2 rows";
  purlin.CustomHoleCount = 1;
  purlin.Pitch = "22.5";
  purlin.SagBarDia = 14;

  Item rail;
  rail.Mark = "R é";
  rail.SectionType = "R";
  rail.Product = "CLR";
  rail.Length = 3050;
  rail.Quantity = -1;
  rail.JointingPieces = 4;

  Items.Clear();
  Items.Append(purlin);
  Items.Append(rail);

  AccLines1.Clear();
  AccLines1.Append({1, 2, 10, -5});

  AccLine2 values{3, "A1", 4, {}};
  values.Values.Append("6000");
  values.Values.Append("ø 16, long");
  AccLines2.Clear();
  AccLines2.Append(values);
  AccLines2.Append({4, "B2", 7, {}});

  AccUsed.At(1) = True;
  AccUsed.At(2) = False;
  AccUsed.At(3) = True;
  AccUsed.At(4) = True;
}

void ProjectFileTest::FillEarlierProject() {
  txtProject = {"old 0", "old 1", "old 2", "old 3", "old 4"};
  DTPicker1 = {2019, 12, 31};

  Item item;
  item.Mark = "old mark";
  item.DateText = "old date";
  item.Notches.Append({"T2", 1, 2, 3});
  item.Notches.Append({"B2", 4, 5, 6});
  Items.Clear();
  Items.Append(item);

  AccLines1.Clear();
  AccLines1.Append({9, 8, 7, 6});
  AccLines2.Clear();
  AccLines2.Append({5, "old line", 4, {}});
  for (Boolean& flag : AccUsed) flag = True;
}

void ProjectFileTest::ExpectEarlierItems() {
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(1).Mark, "old mark");
  EXPECT_EQ(Items.At(1).DateText, "old date");
  EXPECT_EQ(Items.At(1).Notches.UBound(), 2);
}

void ProjectFileTest::ExpectEarlierLines1() {
  ASSERT_EQ(AccLines1.UBound(), 1);
  EXPECT_EQ(AccLines1.At(1).AccIndex, 9);
  EXPECT_EQ(AccLines1.At(1).Param, 6);
}

void ProjectFileTest::ExpectEarlierLines2() {
  ASSERT_EQ(AccLines2.UBound(), 1);
  EXPECT_EQ(AccLines2.At(1).AccIndex, 5);
  EXPECT_EQ(AccLines2.At(1).Mark, "old line");
}

void ProjectFileTest::ExpectFlags(const std::vector<int>& flags) {
  EXPECT_EQ(std::vector<int>(AccUsed.begin(), AccUsed.end()), flags);
}

std::string ProjectFileTest::FreshFile(const std::string& bytes) {
  return TempFile("job" + std::to_string(++files_) + ".ovd", bytes);
}

void ProjectFileTest::ReadBytes(const std::string& bytes) {
  ReadProjectFile(FreshFile(bytes));
}

std::string ProjectFileTest::ErrorOfReading(const std::vector<std::string>& lines) {
  const std::string path = FreshFile(Joined(lines));
  return ErrorOf([&] { ReadProjectFile(path); });
}

}  // namespace orvane::test
