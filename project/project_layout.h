// The one description of the project file's layout, from the top of the file to its end. The
// writer, the reader and the check before a backup each walk it as a visitor, so that they can't
// drift apart. A visitor has these operations, each for what stands next in the file:
//
//   OrvaneNumber(text)        the plain first line: six characters of version stamp, then the text
//   Detail(text)              a quoted project detail, trimmed when it is saved
//   ProjectDate(date)         the plain date line
//   Plain(text)               a line that holds the text as it stands
//   Quoted(text)              a line that holds the text between double quotes
//   Number(field)             a number line for a 16-bit, 32-bit float or 64-bit float field
//   Sign(text)                a plain line for a sign or none; blanks are none
//   Flag(flag)                a number line for a flag of AccUsed
//   FlagsBehind(flags, count) such lines for all that stand behind the first `count`: those of the
//                             table when it is written, all that the file has left when it is read
//   Count(table)              a number line for the number of a table's rows, which it returns:
//                             that of the table when it is written, that of the file when it is
//                             read
//   Size(table, count)        no line: gives a table that is about to be read fresh blank rows; a
//                             negative count is "Subscript out of range"
//   Rows(table, first, last)  one block for each of these rows, by Describe of the row's record
//
// A job is described by its records (project/job), which need not be the open one's. A visitor that
// only looks at them gets them as constants.
#pragma once

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/model.h"

namespace orvane {

// The version stamp is written and never compared with anything: reading drops as many characters
// as it has, whatever they are.
constexpr std::string_view VersionStamp = "v1.07:";

// A line end inside a plain text would add a line and make the file unreadable; it becomes a blank.
// A quoted text keeps its own, since a quoted field may span lines.
std::string PlainLine(const std::string& text);

// The file's first line.
std::string OrvaneNumberLine(const std::string& number);

// A record of the model, to be read into or only to be looked at.
template <class Row, class Record>
concept Is = std::same_as<std::remove_const_t<Row>, Record>;

// A hole block, 11 lines. The countersink stands before the two gaps, unlike in the record.
template <class Visitor, Is<Hole> Row>
void Describe(Visitor& visit, Row& hole) {
  visit.Number(hole.XPos);
  visit.Plain(hole.Kind);
  visit.Plain(hole.BF);
  visit.Plain(hole.W1);
  visit.Plain(hole.W2);
  visit.Plain(hole.TF);
  visit.Number(hole.Diameter);
  visit.Number(hole.SlotLength);
  visit.Sign(hole.CounterSunk);
  visit.Number(hole.RelX);
  visit.Number(hole.DrawGap);
}

// A notch block, 4 lines.
template <class Visitor, Is<Notch> Row>
void Describe(Visitor& visit, Row& notch) {
  visit.Plain(notch.Code);
  visit.Number(notch.Size1);
  visit.Number(notch.Size2);
  visit.Number(notch.Size3);
}

// An item block. Its order isn't that of the record's fields.
template <class Visitor, Is<Item> Row>
void Describe(Visitor& visit, Row& item) {
  visit.Quoted(item.Mark);
  visit.Plain(item.SectionType);
  visit.Plain(item.Product);
  visit.Number(item.Length);
  visit.Number(item.Quantity);
  visit.Number(item.MitreLeft);
  visit.Number(item.MitreRight);
  visit.Quoted(item.Notes);
  visit.Plain(item.DateText);

  const int holes = visit.Count(item.Holes);
  visit.Size(item.Holes, holes);
  // Element 0, the end sentinel of the gaps, goes with the holes, but never alone.
  if (holes > 0) visit.Rows(item.Holes, 0, holes);

  const int notches = visit.Count(item.Notches);
  if (notches > 0) {
    visit.Size(item.Notches, notches);
    visit.Rows(item.Notches, 1, notches);
  }

  visit.Quoted(item.PatternName);
  visit.Number(item.CustomHoleCount);
  visit.Plain(item.Pitch);
  visit.Number(item.JointingPieces);
  visit.Number(item.SagBarDia);
}

// A type 1 line block, 4 lines.
template <class Visitor, Is<AccLine1> Row>
void Describe(Visitor& visit, Row& line) {
  visit.Number(line.AccIndex);
  visit.Number(line.ParamIndex);
  visit.Number(line.Qty);
  visit.Number(line.Param);
}

// One value of a type 2 line.
template <class Visitor, Is<std::string> Row>
void Describe(Visitor& visit, Row& value) {
  visit.Quoted(value);
}

// A type 2 line block.
template <class Visitor, Is<AccLine2> Row>
void Describe(Visitor& visit, Row& line) {
  visit.Number(line.AccIndex);
  visit.Plain(line.Mark);
  visit.Number(line.NoOff);
  const int values = visit.Count(line.Values);
  visit.Size(line.Values, values);
  visit.Rows(line.Values, 1, values);
}

// The part that every project file has, from its head to the last type 1 line.
template <class Visitor, class Records>
void DescribeSections(Visitor& visit, Records& job) {
  visit.OrvaneNumber(job.Details.at(0));
  visit.Detail(job.Details.at(1));
  visit.Detail(job.Details.at(2));
  visit.Detail(job.Details.at(3));
  visit.Detail(job.Details.at(4));
  visit.ProjectDate(job.ProjectDate);

  const int items = visit.Count(job.Items);
  visit.Size(job.Items, items);
  visit.Rows(job.Items, 1, items);

  const int lines = visit.Count(job.AccLines1);
  visit.Size(job.AccLines1, std::max(lines, 0));
  visit.Rows(job.AccLines1, 1, lines);
}

// The first part of the tail, which files from before type 2 accessories lack.
template <class Visitor, class Records>
void DescribeType2Lines(Visitor& visit, Records& job) {
  const int lines = visit.Count(job.AccLines2);
  visit.Size(job.AccLines2, std::max(lines, 0));
  visit.Rows(job.AccLines2, 1, lines);
}

// The end of the file: as many flags as the present catalogues have accessories, and behind them
// those of a job that was saved by longer catalogues. No line tells their number.
template <class Visitor, class Records>
void DescribeFlags(Visitor& visit, Records& job) {
  const int flags = AccType1Count + AccType2Count;
  for (int row = 1; row <= flags; ++row) visit.Flag(job.AccUsed.At(row));
  visit.FlagsBehind(job.AccUsed, flags);
}

}  // namespace orvane
