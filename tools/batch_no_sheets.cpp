#include "tools/batch_sheets.h"

namespace orvane {

struct SheetWriter::Toolkit {};

bool SheetsInThisBuild() {
  return false;
}

SheetWriter::SheetWriter() = default;
SheetWriter::~SheetWriter() = default;
void SheetWriter::Write(const SheetFiles&) {}

}  // namespace orvane
