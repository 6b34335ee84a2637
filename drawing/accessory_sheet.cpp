#include "drawing/accessory_sheet.h"

namespace orvane {

void DrawAccessorySheet(PrintSurface&, AccessoryType, const TextRows&, bool, bool) {}

void DrawAccessoryDetail(PrintSurface&, AccessoryType, const TextRows&) {}

}  // namespace orvane
