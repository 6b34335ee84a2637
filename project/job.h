// A job as a value, apart from the application-wide tables, and the two ways to hand one over: its
// records to be read into, and a view to be written from.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/model.h"

namespace orvane {

// What the details are called, in their order.
constexpr std::array<std::string_view, 5> DetailNames = {"Orvane No.", "Job No.", "Customer",
                                                         "Project", "Designer"};

// What a project file holds.
struct Job {
  std::array<std::string, 5> Details;  // as txtProject
  Date ProjectDate;                    // as DTPicker1
  Table<Item> Items;
  Table<AccLine1> AccLines1;
  Table<AccLine2> AccLines2;
  Table<Boolean> AccUsed;  // one flag for each accessory of the catalogues
};

// The records of a job, wherever they stand; good as long as they do.
struct JobRecords {
  std::array<std::string, 5>& Details;
  Date& ProjectDate;
  Table<Item>& Items;
  Table<AccLine1>& AccLines1;
  Table<AccLine2>& AccLines2;
  Table<Boolean>& AccUsed;
};

JobRecords RecordsOf(Job& job);
// The open job's: the application-wide tables.
JobRecords OpenJobRecords();

// The sections of a job that is only looked at, one by one, so that they needn't stand in one
// table. Rows count from 1.
class SectionRows {
 public:
  using Section = std::function<const Item&(int row)>;

  explicit SectionRows(const Table<Item>& sections)
      : SectionRows(sections.UBound(),
                    [&sections](int row) -> const Item& { return sections.At(row); }) {}
  SectionRows(int count, Section at) : count_(count), at_(std::move(at)) {}

  int UBound() const { return count_; }
  const Item& At(int row) const { return at_(row); }

 private:
  int count_;
  Section at_;
};

// A job that is only looked at; good as long as what it was made of.
struct JobView {
  const std::array<std::string, 5>& Details;
  const Date& ProjectDate;
  SectionRows Items;
  const Table<AccLine1>& AccLines1;
  const Table<AccLine2>& AccLines2;
  const Table<Boolean>& AccUsed;
};

JobView ViewOf(const Job& job);
// The open job.
JobView OpenJob();

}  // namespace orvane
