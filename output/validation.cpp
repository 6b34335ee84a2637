#include "output/validation.h"

namespace orvane {

Table<std::string> ExportErrors;

}  // namespace orvane
