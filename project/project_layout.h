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
//   Flag(row)                 a number line for a flag of AccUsed
//   Count(table)              a number line for the number of a table's rows, which it returns:
//   that of
//                             the table when it is written, that of the file when it is read
//   Size(table, count)        no line: gives a table that is about to be read fresh blank rows; a
//                             negative count is "Subscript out of range"
//   Rows(table, first, last)  one block for each of these rows, by Describe of the row's record
//
// A visitor that checks a file describes records of its own and leaves the tables alone.
#pragma once

#include <algorithm>
#include <string>

#include "core/model.h"

namespace orvane {

// A hole block, 11 lines. The countersink stands before the two gaps, unlike in the record.
template <class Visitor>
void Describe(Visitor& visit, Hole& hole) {
  visit.Number(hole.XPos);
  visit.Plain(hole.Kind);
  visit.Plain(hole.BF);
  visit.Plain(hole.W1);
  visit.Plain(hole.W2);
  visit.Plain(hole.TF);
  visit.Number(hole.Diameter);
  visit.Number(hole.SlotLength);
  visit.Plain(hole.CounterSunk);
  visit.Number(hole.RelX);
  visit.Number(hole.DrawGap);
}

// A notch block, 4 lines.
template <class Visitor>
void Describe(Visitor& visit, Notch& notch) {
  visit.Plain(notch.Code);
  visit.Number(notch.Size1);
  visit.Number(notch.Size2);
  visit.Number(notch.Size3);
}

// An item block. Its order isn't that of the record's fields.
template <class Visitor>
void Describe(Visitor& visit, Item& item) {
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
template <class Visitor>
void Describe(Visitor& visit, AccLine1& line) {
  visit.Number(line.AccIndex);
  visit.Number(line.ParamIndex);
  visit.Number(line.Qty);
  visit.Number(line.Param);
}

// One value of a type 2 line.
template <class Visitor>
void Describe(Visitor& visit, std::string& value) {
  visit.Quoted(value);
}

// A type 2 line block.
template <class Visitor>
void Describe(Visitor& visit, AccLine2& line) {
  visit.Number(line.AccIndex);
  visit.Plain(line.Mark);
  visit.Number(line.NoOff);
  const int values = visit.Count(line.Values);
  visit.Size(line.Values, values);
  visit.Rows(line.Values, 1, values);
}

// The part that every project file has, from its head to the last type 1 line.
template <class Visitor>
void DescribeSections(Visitor& visit) {
  visit.OrvaneNumber(txtProject.at(0));
  visit.Detail(txtProject.at(1));
  visit.Detail(txtProject.at(2));
  visit.Detail(txtProject.at(3));
  visit.Detail(txtProject.at(4));
  visit.ProjectDate(DTPicker1);

  const int items = visit.Count(Items);
  visit.Size(Items, items);
  visit.Rows(Items, 1, items);

  const int lines = visit.Count(AccLines1);
  visit.Size(AccLines1, std::max(lines, 0));
  visit.Rows(AccLines1, 1, lines);
}

// The first part of the tail, which files from before type 2 accessories lack.
template <class Visitor>
void DescribeType2Lines(Visitor& visit) {
  const int lines = visit.Count(AccLines2);
  visit.Size(AccLines2, std::max(lines, 0));
  visit.Rows(AccLines2, 1, lines);
}

// The end of the file: as many flags as the present catalogues have accessories. No line tells
// their number.
template <class Visitor>
void DescribeFlags(Visitor& visit) {
  const int flags = AccType1Count + AccType2Count;
  for (int row = 1; row <= flags; ++row) visit.Flag(row);
}

}  // namespace orvane
