// What the two factory files share: their text and the error that cut it short, their header lines,
// and how they reach the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/runtime_error.h"

namespace orvane {

// A factory file built in memory, in the factory's single-byte code page with CR LF behind each
// line. When a value stopped the writer, Text holds what came before it and Error says why: what
// was written of a faulty file stays on the disk.
struct FactoryFile {
  std::string Text;
  std::optional<RuntimeError> Error;
};

// Writes the text over whatever the file held, then raises the error that cut it short, if any. An
// error of the file system comes first.
void WriteFactoryFile(const std::string& path, const FactoryFile& file);

}  // namespace orvane
