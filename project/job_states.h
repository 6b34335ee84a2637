// The states that the history keeps of the job, and what leads from one of them to the next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "project/packed_records.h"

namespace orvane {

// A section of a state.
struct StateRow {
  std::int32_t Serial = 0;
  Packed Section;
};

// The job at some moment. Rows[i] is row i + 1 of Items.
struct JobState {
  std::vector<StateRow> Rows;
  Packed Accessories;
  Packed Details;

  std::size_t Bytes() const;  // that it takes in memory
};

// The job as it stands in the tables.
JobState StateOfTables();

// One thing before and after; neither of them where it isn't another.
struct PackedChange {
  Packed Before;
  Packed After;
};

// What leads from one state to a later one, and back.
struct StateChange {
  // Sections have come, gone or moved: row i + 1 of the later state was row FormerRows[i], 0 for
  // one that came.
  bool RowsMoved = false;
  std::vector<std::int16_t> FormerRows;
  std::map<int, StateRow> Gone;  // by their row before
  std::map<int, StateRow> Came;  // by their row afterwards
  // What a section that stayed holds now, by its row afterwards.
  std::map<int, PackedChange> Sections;
  PackedChange Accessories;
  PackedChange Details;

  bool Empty() const;
  // What it takes in memory. The former contents are counted and not the later ones, which are as a
  // rule the former ones of the next change, or the job's of now.
  std::size_t Bytes() const;
};

// Adds to a change what the tables hold otherwise than the state: which sections came, went and
// moved; the content of one that stayed in its row; those of all that stayed anywhere, behind
// CompareRows; and the rest of the job.
void CompareRows(const JobState& state, StateChange& change);
void CompareSection(const JobState& state, int row, StateChange& change);
void CompareAllSections(const JobState& state, StateChange& change);
void CompareAccessories(const JobState& state, StateChange& change);
void CompareDetails(const JobState& state, StateChange& change);

enum class Direction { Forward, Back };

// Leads a state along a change; and the tables with it.
void Lead(JobState& state, const StateChange& change, Direction direction);
void LeadTables(const StateChange& change, Direction direction);

}  // namespace orvane
