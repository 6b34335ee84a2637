#include "tests/samples/sample_contents.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "project/project_file.h"
#include "tests/samples/sample_jobs.h"

namespace orvane::test {

bool Contains(const std::string& text, const std::string& word) {
  return text.find(word) != std::string::npos;
}

void SampleContents::SetUp() {
  LoadShippedCatalogues();
  for (const SampleJob& sample : SampleJobs) {
    ReadProjectFile(SamplePath(sample.Name, ".ovd"));
    jobs.push_back({sample.Name,
                    txtProject,
                    DTPicker1,
                    {Items.begin(), Items.end()},
                    {AccLines1.begin(), AccLines1.end()},
                    {AccLines2.begin(), AccLines2.end()},
                    {AccUsed.begin(), AccUsed.end()}});
  }
}

const Job& SampleContents::JobOf(const std::string& name) const {
  for (const Job& job : jobs) {
    if (job.Name == name) return job;
  }
  throw std::logic_error("no job " + name);
}

const Item& SampleContents::SectionOf(const std::string& mark) const {
  for (const Job& job : jobs) {
    for (const Item& item : job.Sections) {
      if (item.Mark == mark) return item;
    }
  }
  throw std::logic_error("no section " + mark);
}

std::vector<Item> SampleContents::Sections() const {
  std::vector<Item> all;
  for (const Job& job : jobs) all.insert(all.end(), job.Sections.begin(), job.Sections.end());
  return all;
}

std::vector<Item> SampleContents::Sections(const std::string& letter) const {
  std::vector<Item> family;
  for (const Item& item : Sections()) {
    if (item.SectionType == letter) family.push_back(item);
  }
  return family;
}

bool SampleContents::AnySection(const std::function<bool(const Item&)>& test) const {
  const std::vector<Item> all = Sections();
  return std::any_of(all.begin(), all.end(), test);
}

bool SampleContents::AnyHole(const std::function<bool(const Hole&)>& test) const {
  return AnySection([&test](const Item& item) {
    return std::any_of(item.Holes.begin(), item.Holes.end(), test);
  });
}

std::vector<AccLine2> SampleContents::LinesOf(Acc accessory) const {
  std::vector<AccLine2> lines;
  for (const Job& job : jobs) {
    std::copy_if(job.Lines2.begin(), job.Lines2.end(), std::back_inserter(lines),
                 [accessory](const AccLine2& line) {
                   return line.AccIndex == static_cast<std::int16_t>(accessory);
                 });
  }
  return lines;
}

}  // namespace orvane::test
