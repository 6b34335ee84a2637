// The three sample jobs, each a detailer's list that fills the tables of the project. The shipped
// catalogues must be loaded.
#pragma once

#include <array>
#include <ostream>
#include <string>

namespace orvane::test {

// A portal-frame shed: purlins, rails, eaves beams, sleeves.
void BuildPortalShed();
// A mezzanine floor: joists, edge beams, trimmers, channels.
void BuildMezzanine();
// A clad front: vertical cladding rails with their assemblies, cleader rails, top hats.
void BuildCladding();

struct SampleJob {
  std::string Name;  // of its files in samples/
  void (*Build)();
};

// How a test that runs on each job names it.
inline void PrintTo(const SampleJob& job, std::ostream* out) {
  *out << job.Name;
}

extern const std::array<SampleJob, 3> SampleJobs;

// The path of a file in samples/, such as ("mezzanine", ".xov").
std::string SamplePath(const std::string& name, const std::string& extension);

}  // namespace orvane::test
