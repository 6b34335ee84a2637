// What the fuzz targets share: an input as a file, and what may become of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/runtime_error.h"

namespace orvane::fuzz {

// The path of a file in memory that holds the input; it is the same file at each call.
std::string InputFile(const std::uint8_t* data, std::size_t size);

// Ends the run with a text, which the fuzzer takes for a finding.
[[noreturn]] void Fail(const char* finding);

// Runs an action that may raise the system's own error and no other; false when it did.
template <class Action>
bool Succeeds(Action action) {
  try {
    action();
    return true;
  } catch (const RuntimeError& error) {
    if (error.Description().empty()) Fail("an error that doesn't say why");
    return false;
  }
}

// Runs one of the catalogue readers on the input and holds it to what every reader promises: true
// without a word, or false with one message that names the file and says why.
void CheckCatalogueReader(bool (*load)(const std::string& path), const std::uint8_t* data,
                          std::size_t size);

}  // namespace orvane::fuzz
