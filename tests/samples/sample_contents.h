// What the files in samples/ hold, gathered over the three jobs.
#pragma once

#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/model.h"
#include "tests/samples/job_sheet.h"
#include "tests/support/fixture.h"

namespace orvane::test {

using Texts = std::set<std::string>;

// What one project file holds.
struct Job {
  std::string Name;
  std::array<std::string, 5> Details;
  Date ProjectDate;
  std::vector<Item> Sections;
  std::vector<AccLine1> Lines1;
  std::vector<AccLine2> Lines2;
  std::vector<Boolean> Used;
};

bool Contains(const std::string& text, const std::string& word);

// Reads the three project files into `jobs`, with the catalogues that ship.
class SampleContents : public SystemTest {
 protected:
  void SetUp() override;

  const Job& JobOf(const std::string& name) const;
  const Item& SectionOf(const std::string& mark) const;

  // The sections of all jobs, or those of one family.
  std::vector<Item> Sections() const;
  std::vector<Item> Sections(const std::string& letter) const;

  bool AnySection(const std::function<bool(const Item&)>& test) const;
  bool AnyHole(const std::function<bool(const Hole&)>& test) const;

  // The lines of a type 2 accessory in all jobs.
  std::vector<AccLine2> LinesOf(Acc accessory) const;

  std::vector<Job> jobs;
};

}  // namespace orvane::test
