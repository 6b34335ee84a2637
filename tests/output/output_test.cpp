#include "tests/output/output_test.h"

#include <utility>

#include "output/accessory_list.h"
#include "output/cam_export.h"

namespace orvane::test {

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::string Filled(std::string_view text, std::size_t width) {
  EXPECT_LE(text.size(), width) << text;
  return std::string(text) + std::string(width - text.size(), ' ');
}

std::string HoleLine(std::string_view text) {
  return Filled(text, 41);
}

std::string ListRow(const std::vector<std::string>& columns) {
  std::string row;
  for (std::size_t i = 0; i < columns.size(); ++i) row += Filled(columns[i], i == 0 ? 35 : 12);
  return row;
}

Hole MakeHole(std::int16_t x, float diameter, float slotLength, const std::string& counterSunk,
              const HoleLines& lines) {
  Hole hole;
  hole.XPos = x;
  hole.Kind = "C";
  hole.BF = lines[0];
  hole.W1 = lines[1];
  hole.W2 = lines[2];
  hole.TF = lines[3];
  hole.Diameter = diameter;
  hole.SlotLength = slotLength;
  hole.CounterSunk = counterSunk;
  return hole;
}

Notch MakeNotch(const std::string& code, float size1, float size2, float size3) {
  Notch notch;
  notch.Code = code;
  notch.Size1 = size1;
  notch.Size2 = size2;
  notch.Size3 = size3;
  return notch;
}

Item MakeItem(const std::string& sectionType, const std::string& mark, std::int16_t length) {
  Item item;
  item.Mark = mark;
  item.SectionType = sectionType;
  item.Product = "X20018";
  item.Length = length;
  item.Quantity = 1;
  item.PatternName = "Custom";
  return item;
}

void AddHoles(Item& item, std::initializer_list<Hole> holes) {
  for (const Hole& hole : holes) item.Holes.Append(hole);
}

void AddNotches(Item& item, std::initializer_list<Notch> notches) {
  for (const Notch& notch : notches) item.Notches.Append(notch);
}

AccLine1 MakeLine1(int accIndex, int paramIndex, int qty) {
  AccLine1 line;
  line.AccIndex = Int16(accIndex);
  line.ParamIndex = Int16(paramIndex);
  line.Qty = Int16(qty);
  return line;
}

AccLine2 MakeLine2(int accIndex, const std::string& mark, int noOff,
                   const std::vector<std::string>& values) {
  AccLine2 line;
  line.AccIndex = Int16(accIndex);
  line.Mark = mark;
  line.NoOff = Int16(noOff);
  for (const std::string& value : values) line.Values.Append(value);
  return line;
}

const std::string OutputTest::CamHeader =
    "COLDCAM 5.3\r\n"
    "* Job Number: J1042\r\n"
    "* Customer:   Dunmore Farms\r\n"
    "* Project:    Grain store\r\n"
    "* Designer:   A. Reid\r\n"
    "* Date:       04/03/24\r\n"
    "*\r\n"
    "* Created:    Tue Mar 05 2024 14:07:09\r\n"
    "\r\n";

const std::string OutputTest::ListHeader =
    "ACCLIST 5.3\r\n"
    "----------------------------------------------------------\r\n"
    "\r\n"
    "Job Number: J1042\r\n"
    "Customer:   Dunmore Farms\r\n"
    "Project:    Grain store\r\n"
    "Designer:   A. Reid\r\n"
    "Date:       04/03/24\r\n"
    "\r\n"
    "Created:    Tue Mar 05 2024 14:07:09\r\n"
    "\r\n"
    "----------------------------------------------------------\r\n"
    "\r\n";

OutputTest::OutputTest() {
  InstallOutputScreen(screen);
  txtProject = {"ORV123456", "J1042", "Dunmore Farms", "Grain store", "A. Reid"};
  DTPicker1 = {2024, 3, 4};
}

OutputTest::~OutputTest() {
  UninstallOutputScreen();
}

std::string OutputTest::Blocks() {
  const FactoryFile file = CamFile(desktop.Present);
  EXPECT_FALSE(file.Error) << file.Error->Description();
  EXPECT_EQ(file.Text.substr(0, CamHeader.size()), CamHeader);
  return file.Text.substr(CamHeader.size());
}

std::string OutputTest::ListLines() {
  const FactoryFile file = AccListFile(desktop.Present);
  EXPECT_FALSE(file.Error) << file.Error->Description();
  EXPECT_EQ(file.Text.substr(0, ListHeader.size()), ListHeader);
  return file.Text.substr(ListHeader.size());
}

void OutputTest::AddAccessories() {
  for (int row = 1; row <= 22; ++row) {
    AccDef accessory;
    accessory.Name = "Accessory " + std::to_string(row);
    accessory.IsType1 = ToBoolean(row <= 5);
    if (row <= 5) {
      for (const char* size : {"One", "Two", "Three"}) {
        accessory.ParamTexts.Append("Size " + std::string(size));
        accessory.ParamNames.Append("S" + std::string(size));
      }
    } else {
      accessory.Option = "Text " + std::to_string(row);
      for (const char* heading : {"Mark", "No.Off", "A", "B", "C", "D", "E"}) {
        accessory.ParamNames.Append(heading);
      }
    }
    AccDefs.Append(std::move(accessory));
  }
  AccType1Count = 5;
  AccType2Count = 17;
  AccUsed.Resize(22);
}

}  // namespace orvane::test
