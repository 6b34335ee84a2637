// The in-memory model that all of the system works on: the records, and the application-wide tables
// and values. One project is open at a time. Lengths are millimetres, angles degrees. Nothing is
// computed here; a count of a table's rows is asked of the table, "Overflow" beyond 16 bits.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/table.h"

namespace orvane {

// Texts of the trade that the records hold, in the project file too.

constexpr std::string_view CustomKind = "C";       // Hole.Kind: placed by hand
constexpr std::string_view PatternKind = "S";      // Hole.Kind: made from the pattern
constexpr std::string_view CounterSunkMark = "*";  // Hole.CounterSunk: compare with this text only
constexpr std::string_view CustomPattern = "Custom";  // Item.PatternName: holes placed by hand

// HoleDialogMode.
constexpr std::int16_t EditHole = 1;
constexpr std::int16_t AddAbsolute = 2;  // by the distance from the left-hand end
constexpr std::int16_t AddRelative = 3;  // by the distance from the last hole

// Records of the project.

// One hole or slot of a section. A hole line ("BF" to "TF") holds "n" for no hole, "y" for a hole
// at the standard gauge, or a number as text: a hole off gauge, at that distance.
struct Hole {
  std::int16_t XPos = 0;  // distance from the left-hand end, mm
  std::string Kind;       // CustomKind, or PatternKind: made afresh from the pattern
  std::string BF;         // bottom flange
  std::string W1;         // first web row
  std::string W2;         // second web row
  std::string TF;         // top flange
  float Diameter = 0;     // mm
  float SlotLength = 0;   // whole length of a slot, mm; 0 for a round hole
  double RelX = 0;        // distance from the previous hole, mm
  double DrawGap = 0;     // that gap as drawn: RelX widened to a least separation on paper, mm
  // CounterSunkMark; else empty for a custom hole, one blank for a pattern hole.
  std::string CounterSunk;
};

// One notch of a section.
struct Notch {
  std::string Code;  // "TL1", "TR1", "T2", "L3", "R3", "BL1", "BR1" or "B2"
  float Size1 = 0;   // depth, mm
  float Size2 = 0;   // width, mm
  float Size3 = 0;   // position, mm
};

// One marked section of the project.
struct Item {
  std::string Mark;           // unique in the project
  std::string SectionType;    // section letter: Z, E, C, V, R or T
  std::string Product;        // a SectionDim's Product, or "VCR" or "CLR"
  std::int16_t Length = 0;    // mm
  std::int16_t Quantity = 0;  // number off
  std::string DateText;       // carried through from file to file; nothing gives it a value
  std::string Notes;          // free note
  float MitreLeft = 0;        // mitre angle at the left end, degrees; 0 is a square end
  float MitreRight = 0;       // mitre angle at the right end, degrees
  Table<Hole> Holes;          // element 0 is the end sentinel that AdjustHoleSpacing writes
  Table<Notch> Notches;
  std::string PatternName;  // a PunchPattern's Name, or CustomPattern
  // Holes of CustomKind, as they were counted last: it lags behind when the list is emptied or
  // mirrored, and is saved as it stands.
  std::int16_t CustomHoleCount = 0;
  std::string Pitch;                // eaves beams: roof pitch as chosen, degrees as text
  std::int16_t JointingPieces = 0;  // cleader rails: number of jointing pieces
  std::int16_t SagBarDia = 0;       // 0 without sag bars, else their hole diameter, 14 or 18 mm
  // Tells it from every other section as long as the program runs, whatever row it comes to stand
  // in and whatever mark it bears; 0 until somebody asks (project/section_serial). Not saved.
  std::int32_t Serial = 0;

  // Rows of Holes, pattern and custom holes together, and of Notches.
  std::int16_t HoleCount() const { return Int16(Holes.UBound()); }
  std::int16_t NotchCount() const { return Int16(Notches.UBound()); }
};

// One line of a type 1 accessory.
struct AccLine1 {
  std::int16_t AccIndex = 0;    // row of AccDefs
  std::int16_t ParamIndex = 0;  // which of the accessory's parameters the line is for
  std::int16_t Qty = 0;         // number off
  std::int16_t Param = 0;       // the parameter's value
};

// One line of a type 2 accessory.
struct AccLine2 {
  std::int16_t AccIndex = 0;  // row of AccDefs
  std::string Mark;
  std::int16_t NoOff = 0;     // number off
  Table<std::string> Values;  // one for each parameter behind "Mark" and "No.Off"

  // Rows of Values: the accessory's ParamCount less 2.
  std::int16_t ValueCount() const { return Int16(Values.UBound()); }
};

// Records of the catalogues.

// One section product, a row of dims.csv. The dimensions bear the numbers of their columns; for Z,
// C and E sections:
struct SectionDim {
  std::string SectionType;  // section letter as the file has it
  std::string Product;
  double Dim3 = 0;   // depth of the web, mm
  double Dim4 = 0;   // top flange, mm
  double Dim5 = 0;   // bottom flange, mm
  double Dim6 = 0;   // read and kept; no meaning
  double Dim7 = 0;   // top lip, mm
  double Dim8 = 0;   // bottom lip, mm
  double Dim9 = 0;   // gauge of the first hole row from the top, mm
  double Dim10 = 0;  // gauge from the first to the second row, mm
  double Dim11 = 0;  // gauge from the second row to the bottom, mm
  double Dim12 = 0;  // read and kept; no meaning
  double Dim13 = 0;  // spacing of the pair of holes at an end, mm
  double Dim14 = 0;  // read and kept; no meaning
};

// One punching pattern, a row of punch.csv.
struct PunchPattern {
  std::string SectionType;  // section letter
  std::string Name;
  std::string Codes;           // two-character hole codes, one separator between them
  Boolean HasSagBars = False;  // the sag-bar choice is offered
  Boolean Starred = False;     // all holes of the pattern are countersunk
};

// A headed group of a type 2 accessory's parameters.
struct AccGroup {
  std::int16_t FirstParam = 0;  // parameter that the group starts at
  std::int16_t GroupValue = 0;  // number of parameters under the heading
  std::string Title;
};

// The choice list of one parameter.
struct AccParamOptions {
  Table<std::string> OptionTexts;

  // Rows of OptionTexts; 0 for a parameter typed freely.
  std::int16_t OptionCount() const { return Int16(OptionTexts.UBound()); }
};

// One accessory, an "A" row of accs1.csv or accs2.csv with the rows behind it.
struct AccDef {
  std::string Name;                // name in the accessory list and title of its dialog
  std::string DrawingFile;         // base name of its picture; "None" for no picture
  std::int16_t Value1 = 0;         // width of the picture on its sheet, mm
  std::int16_t Value2 = 0;         // fourth catalogue value
  std::int16_t Value3 = 0;         // top of the picture on its sheet, mm
  Table<std::string> ParamTexts;   // type 1: long text of each parameter
  Table<std::string> ParamNames;   // type 1: short codes; type 2: headings, "Mark", "No.Off" first
  Boolean HasParamColumn = False;  // shows a type 1 value column; no catalogue column sets it
  std::string ParamHeading;        // heading of that column; no catalogue column sets it
  Boolean Flag = False;            // type 1: the long texts are shown
  Boolean IsType1 = False;         // true for rows of accs1.csv
  std::string Option;              // type 2: first column of its lines in the accessory list
  Table<AccGroup> Groups;          // type 2: headed groups of parameters
  Table<AccParamOptions> Options;  // type 2: choices, one row for each row of ParamNames

  // Rows of ParamNames.
  std::int16_t ParamCount() const { return Int16(ParamNames.UBound()); }
};

// Rows of texts, as a table on a screen shows them.
using TextRows = Table<Table<std::string>>;

// What the user enters.

extern Table<Item> Items;          // the project's sections
extern Table<AccLine1> AccLines1;  // the project's accessory lines, type 1
extern Table<AccLine2> AccLines2;  // and type 2
// One flag for each AccDefs row: the project has lines of it. Behind them those that its file has
// beyond the catalogues.
extern Table<Boolean> AccUsed;
// Project details: Orvane number, job number, customer, project, designer.
extern std::array<std::string, 5> txtProject;
extern Date DTPicker1;                           // project date
extern std::string CompanyName, CompanyDetails;  // printed on sheets and reports
extern std::int16_t LeftMargin, RightMargin, TopMargin, BottomMargin;  // of the sheets, mm
extern double MinHoleSep;      // least separation of holes on paper, mm
extern Table<double> MaxDims;  // greatest length of each of SectionFamilies, mm

// What is worked out or kept while the system runs.

extern std::int16_t CurrentItem;     // row of Items that a dialog works on; 0 for none
extern std::int16_t CurrentAcc;      // row of AccDefs that an accessory dialog or sheet works on
extern Boolean ProjectDirty;         // unsaved changes exist
extern std::string ProjectFileName;  // path of the open project; empty for a new one
// Room for the elevation on a sheet, mm; 0 until a section was drawn.
extern std::int16_t DrawingWidth;
extern std::int16_t HoleDialogMode;  // EditHole, AddAbsolute or AddRelative
extern std::string AccDialogResult;  // "OK" or "Cancelled"

constexpr double Pi = 3.14159265358979;
constexpr double HalfPi = Pi / 2;
constexpr double ThreeHalfPi = 3 * Pi / 2;

// The catalogues: filled at start-up, never changed.

extern Table<SectionDim> SectionDims;
extern Table<PunchPattern> PunchPatterns;
extern Table<AccDef> AccDefs;                      // rows of accs1.csv, then those of accs2.csv
extern std::int16_t AccType1Count, AccType2Count;  // rows of AccDefs from each file

// Sets every table and value above to what it is before the start-up has read anything.
void ResetModel();

}  // namespace orvane
