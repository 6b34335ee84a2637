// How much a job is: what to buy and cut by product and length, what to punch, and the accessories.
// Its sums are those of the CAM file and of the accessory list, for the same holes of patterns.
#pragma once

#include <string>
#include <vector>

#include "project/job.h"

namespace orvane {

// All of one product and length.
struct CutRow {
  std::string Section;  // family, as its toolbar button calls it
  std::string Product;
  int Length = 0;          // mm
  std::string Marks;       // each with its quantity, "P1 (4), P2 (8)", in the order of the job
  double Quantity = 0;     // number off
  double Millimetres = 0;  // quantity times length
};

// All holes of one size.
struct PunchRow {
  float Diameter = 0;    // mm
  float SlotLength = 0;  // whole length of a slot, mm; 0 for a round hole
  bool CounterSunk = false;
  double Holes = 0;
};

// All of one accessory; of a type 1 accessory of one size.
struct AccessoryRow {
  std::string Type;         // the accessory's name
  std::string Description;  // of the size; empty for type 2
  std::string Marks;        // code of the size, or the marks of the lines with their numbers
  double NumberOff = 0;
};

struct CuttingList {
  std::vector<CutRow> Cuts;  // by family and product, the longest first
  double Quantity = 0;
  double Millimetres = 0;
  std::vector<PunchRow> Punches;  // by diameter and slot
  double Holes = 0;
  std::vector<AccessoryRow> Accessories;  // in the order of the catalogue
  // What has no length or no number off, by mark or name.
  std::vector<std::string> NotCounted;

  bool IsEmpty() const { return Cuts.empty() && Accessories.empty() && NotCounted.empty(); }
};

// Adds up a job. Sections are counted with the holes of their patterns made afresh on copies, as
// the export makes them; a hole is punched once on each line that it stands on. Rails and channels
// that the CAM file has for accessories are cut and punched too. A countersunk hole is no slot, as
// in the CAM file. Only accessory lines with a number off count, as in the accessory list. An error
// of a section or a line is raised under its name.
CuttingList CuttingListOf(const JobView& job);

// Millimetres as metres with three decimal places.
std::string MetresText(double millimetres);

// The list as the bytes of a CSV file, UTF-8 with a mark in front: its three tables under each
// other, a blank row between them, each but the last with its total. A spreadsheet takes none of
// the texts for a formula.
std::string CuttingListFile(const CuttingList& list);

}  // namespace orvane
