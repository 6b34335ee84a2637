#include "output/reports.h"

namespace orvane {

void PreparePreview(PageSurface&) {}

void PrintCurrentDrawing(std::int16_t) {}

void PrintAllDrawings() {}

void PrintAllAccessorySheets() {}

void PrintContractSummary() {}

void PrintAccessoryReport() {}

}  // namespace orvane
