#include "project/job_states.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "project/section_serial.h"

namespace orvane {

namespace {

// What a packed text takes beside its characters: the text's and the pointer's own records.
constexpr std::size_t BytesOfPacked = 64;
// An entry of a map, with what the map itself adds.
constexpr std::size_t BytesOfEntry = 96;

std::size_t BytesOf(const Packed& packed) {
  return packed ? packed->capacity() + BytesOfPacked : 0;
}

// Keeps the difference, or forgets one that is none any more.
void Compare(const Packed& before, Packed after, PackedChange& change) {
  change = {};
  if (!IsSame(before, after)) change = {before, std::move(after)};
}

// The side of a change that it leads to.
const Packed& Goal(const PackedChange& change, Direction direction) {
  return direction == Direction::Forward ? change.After : change.Before;
}

// The rows in their order before or after the change. Those that stay are moved, the others made by
// `make`.
template <class Row, class Make>
std::vector<Row> Moved(std::vector<Row> rows, const StateChange& change, Direction direction,
                       const Make& make) {
  std::vector<Row> moved;
  if (direction == Direction::Forward) {
    moved.reserve(change.FormerRows.size());
    int row = 0;
    for (const std::int16_t former : change.FormerRows) {
      ++row;
      if (former > 0) {
        moved.push_back(std::move(rows[static_cast<std::size_t>(former) - 1]));
      } else {
        moved.push_back(make(change.Came.at(row)));
      }
    }
    return moved;
  }
  moved.resize(change.FormerRows.size() - change.Came.size() + change.Gone.size());
  for (std::size_t at = 0; at < change.FormerRows.size(); ++at) {
    const std::int16_t former = change.FormerRows[at];
    if (former > 0) moved[static_cast<std::size_t>(former) - 1] = std::move(rows[at]);
  }
  for (const auto& [row, gone] : change.Gone) moved[static_cast<std::size_t>(row) - 1] = make(gone);
  return moved;
}

void MoveRows(JobState& state, const StateChange& change, Direction direction) {
  state.Rows =
      Moved(std::move(state.Rows), change, direction, [](const StateRow& row) { return row; });
}

void MoveTableRows(const StateChange& change, Direction direction) {
  std::vector<Item> rows(std::make_move_iterator(Items.begin()),
                         std::make_move_iterator(Items.end()));
  rows = Moved(std::move(rows), change, direction,
               [](const StateRow& row) { return UnpackSection(row.Section); });
  Items.Resize(0);
  Items.Reserve(static_cast<int>(rows.size()));
  for (Item& row : rows) Items.Append(std::move(row));
}

}  // namespace

JobState StateOfTables() {
  JobState state;
  const std::int16_t count = Int16(Items.UBound());
  state.Rows.reserve(static_cast<std::size_t>(count));
  for (int row = 1; row <= count; ++row) {
    const std::int32_t serial = SerialOf(Int16(row));
    state.Rows.push_back({serial, PackSection(Items.At(row))});
  }
  state.Accessories = PackAccessories();
  state.Details = PackDetails();
  return state;
}

std::size_t JobState::Bytes() const {
  std::size_t bytes = sizeof *this + Rows.capacity() * sizeof(StateRow);
  for (const StateRow& row : Rows) bytes += BytesOf(row.Section);
  return bytes + BytesOf(Accessories) + BytesOf(Details);
}

bool StateChange::Empty() const {
  return !RowsMoved && Sections.empty() && !Accessories.Before && !Details.Before;
}

std::size_t StateChange::Bytes() const {
  std::size_t bytes = sizeof *this + FormerRows.capacity() * sizeof(std::int16_t);
  for (const auto& [row, gone] : Gone) bytes += BytesOfEntry + BytesOf(gone.Section);
  for (const auto& [row, came] : Came) bytes += BytesOfEntry + BytesOf(came.Section);
  for (const auto& [row, section] : Sections) bytes += BytesOfEntry + BytesOf(section.Before);
  return bytes + BytesOf(Accessories.Before) + BytesOf(Details.Before);
}

void CompareRows(const JobState& state, StateChange& change) {
  const int count = Items.UBound();
  std::unordered_map<std::int32_t, std::int16_t> formerRows;
  formerRows.reserve(state.Rows.size());
  for (std::size_t at = 0; at < state.Rows.size(); ++at) {
    formerRows[state.Rows[at].Serial] = static_cast<std::int16_t>(at + 1);
  }
  std::vector<bool> stayed(state.Rows.size() + 1, false);
  change.FormerRows.reserve(static_cast<std::size_t>(count));
  bool moved = static_cast<std::size_t>(count) != state.Rows.size();
  for (int row = 1; row <= count; ++row) {
    const std::int32_t serial = SerialOf(Int16(row));
    const auto found = formerRows.find(serial);
    const std::int16_t former = found == formerRows.end() ? std::int16_t{0} : found->second;
    change.FormerRows.push_back(former);
    stayed[static_cast<std::size_t>(former)] = true;
    moved = moved || former != row;
    if (former == 0) change.Came[row] = {serial, PackSection(Items.At(row))};
  }
  for (std::size_t at = 0; at < state.Rows.size(); ++at) {
    if (!stayed[at + 1]) change.Gone[static_cast<int>(at) + 1] = state.Rows[at];
  }
  change.RowsMoved = moved;
  if (!moved) change.FormerRows = {};
}

void CompareSection(const JobState& state, int row, StateChange& change) {
  PackedChange section;
  Compare(state.Rows.at(static_cast<std::size_t>(row) - 1).Section, PackSection(Items.At(row)),
          section);
  if (section.Before) {
    change.Sections[row] = std::move(section);
  } else {
    change.Sections.erase(row);
  }
}

void CompareAllSections(const JobState& state, StateChange& change) {
  for (int row = 1; row <= Items.UBound(); ++row) {
    const int former =
        change.RowsMoved ? change.FormerRows.at(static_cast<std::size_t>(row) - 1) : row;
    if (former == 0) continue;
    PackedChange section;
    Compare(state.Rows.at(static_cast<std::size_t>(former) - 1).Section, PackSection(Items.At(row)),
            section);
    if (section.Before) change.Sections[row] = std::move(section);
  }
}

void CompareAccessories(const JobState& state, StateChange& change) {
  Compare(state.Accessories, PackAccessories(), change.Accessories);
}

void CompareDetails(const JobState& state, StateChange& change) {
  Compare(state.Details, PackDetails(), change.Details);
}

void Lead(JobState& state, const StateChange& change, Direction direction) {
  if (change.RowsMoved && direction == Direction::Forward) MoveRows(state, change, direction);
  for (const auto& [row, section] : change.Sections) {
    state.Rows.at(static_cast<std::size_t>(row) - 1).Section = Goal(section, direction);
  }
  if (change.RowsMoved && direction == Direction::Back) MoveRows(state, change, direction);
  if (change.Accessories.Before) state.Accessories = Goal(change.Accessories, direction);
  if (change.Details.Before) state.Details = Goal(change.Details, direction);
}

void LeadTables(const StateChange& change, Direction direction) {
  if (change.RowsMoved && direction == Direction::Forward) MoveTableRows(change, direction);
  for (const auto& [row, section] : change.Sections) {
    Items.At(row) = UnpackSection(Goal(section, direction));
  }
  if (change.RowsMoved && direction == Direction::Back) MoveTableRows(change, direction);
  if (change.Accessories.Before) {
    UnpackAccessories(Goal(change.Accessories, direction), OpenJobRecords());
  }
  if (change.Details.Before) UnpackDetails(Goal(change.Details, direction), OpenJobRecords());
}

}  // namespace orvane
