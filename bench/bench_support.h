// What the benchmarks share: a large job to work on, and a desktop that nobody sits at.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::bench {

// Puts a job of `sections` purlins in the tables, each with a pattern of `holes` holes (a multiple
// of 4) expanded, sorted and spaced as after drawing, and a catalogue of 100 products and 60
// patterns around them.
void FillTables(int sections, int holes);

// A file in the benchmark's own temporary folder, which is on the disk that the system's temporary
// folder is on.
std::string TempPath(const std::string& name);

// The fields of a text, split at commas and line ends into views of it: the floor of every reader.
std::vector<std::string_view> SplitFields(std::string_view text);

// The time of export that every file of a run bears.
void InstallStillDesktop();

}  // namespace orvane::bench
