#include "output/accessory_list.h"

#include <string_view>

#include "core/desktop.h"
#include "core/numbers.h"
#include "output/accessory_rows.h"
#include "project/accessory_lines.h"
#include "project/changes.h"
#include "project/error_names.h"

namespace orvane {

namespace {

constexpr std::string_view Dashes = "----------------------------------------------------------";
constexpr std::size_t FirstWidth = 35;  // columns of the name or description
constexpr std::size_t OtherWidth = 12;  // and of everything behind it

void WriteHeader(FactoryWriter& out, const Moment& created) {
  out.Line("ACCLIST 5.3");
  out.Line(Dashes);
  out.Line();
  WriteJobLines(out, "");
  out.Line();
  WriteCreatedLine(out, "", created);
  out.Line();
  out.Line(Dashes);
  out.Line();
}

// An empty line, and the columns that all headings begin with; the line is left open.
void BeginHeading(FactoryWriter& out, const AccDef& accessory) {
  out.Line();
  out.Column(accessory.Name, FirstWidth);
  out.Column("Mark", OtherWidth);
  out.Column("Quantity", OtherWidth);
}

std::string QuantityText(std::int16_t quantity) {
  return FormatNumber(static_cast<double>(quantity), 0);
}

// Under the heading "Mark" stands the short code of the size: these lines have no mark, and the
// code is what is written on the part.
void WriteLines1(FactoryWriter& out) {
  std::string_view lastName;
  for (const AccLine1& line : AccLines1) {
    if (line.Qty <= 0) continue;
    InNameOfAccessory(line.AccIndex, {}, [&] {
      const AccDef& accessory = AccDefs.At(line.AccIndex);
      if (accessory.Name != lastName) {
        BeginHeading(out, accessory);
        out.EndLine();
      }
      out.Column(accessory.ParamTexts.At(line.ParamIndex), FirstWidth);
      out.Column(accessory.ParamNames.At(line.ParamIndex), OtherWidth);
      out.Column(QuantityText(line.Qty), OtherWidth);
      out.EndLine();
      lastName = accessory.Name;
    });
  }
}

std::string ValueText(const std::string& value) {
  return IsNumber(value) ? ShortestText(ParseDouble(value)) : value;
}

// The first value that has a column of its own.
int FirstColumnValue(const AccLine2& line) {
  return line.AccIndex == JoinedColumnRow ? 2 : 1;
}

void WriteHeading2(FactoryWriter& out, const AccLine2& line, const AccDef& accessory) {
  BeginHeading(out, accessory);
  for (int j = FirstColumnValue(line) + 2; j <= accessory.ParamNames.UBound(); ++j) {
    out.Column(accessory.ParamNames.At(j), OtherWidth);
  }
  out.EndLine();
}

void WriteLine2(FactoryWriter& out, const AccLine2& line, const AccDef& accessory) {
  std::string first = accessory.Option;
  if (line.AccIndex == JoinedColumnRow) first.append(" ").append(line.Values.At(1));
  out.Column(first, FirstWidth);
  out.Column(line.Mark, OtherWidth);
  out.Column(QuantityText(line.NoOff), OtherWidth);
  // Values(j) stands under ParamNames(j + 2).
  for (int j = FirstColumnValue(line); j <= accessory.ParamNames.UBound() - 2; ++j) {
    out.Column(ValueText(line.Values.At(j)), OtherWidth);
  }
  out.EndLine();
}

// Values that were never set count as 0 from now on.
void FillJoinedColumnValues(AccLine2& line) {
  for (const int j : {2, 3}) {
    if (line.Values.At(j).empty()) line.Values.At(j).assign(1, '0');
  }
}

void WriteLines2(FactoryWriter& out) {
  std::string_view lastName;
  for (AccLine2& line : AccLines2) {
    if (line.NoOff <= 0) continue;
    InNameOfAccessory(line.AccIndex, line.Mark, [&] {
      const AccDef& accessory = AccDefs.At(line.AccIndex);
      if (accessory.Name != lastName) WriteHeading2(out, line, accessory);
      if (line.AccIndex == JoinedColumnRow) FillJoinedColumnValues(line);
      WriteLine2(out, line, accessory);
      lastName = accessory.Name;
    });
  }
}

}  // namespace

ListOutcome ExportAccList(const std::string& camPath) {
  if (AccessoriesInUse().empty()) return ListOutcome::NotNeeded;
  const auto write = [&] {
    WriteFactoryFile(AccListPath(camPath), AccListFile(TheDesktop().Now()));
  };
  return Tell(write) ? ListOutcome::Written : ListOutcome::Failed;
}

std::string AccListPath(const std::string& camPath) {
  const std::size_t point = camPath.find('.');
  return point == std::string::npos ? camPath + ".xac" : camPath.substr(0, point) + ".xac";
}

FactoryFile AccListFile(const Moment& created) {
  return BuildFactoryFile([&created](FactoryWriter& out) {
    WriteHeader(out, created);
    WriteLines1(out);
    // One change for all of its lines: whoever follows looks at the whole job.
    Change(ChangeKind::Export, 0, [&] { WriteLines2(out); });
  });
}

}  // namespace orvane
