// Looks through the catalogue files as the program reads them, and tells what whoever edited them
// would want to know: rows that aren't read, or not as they look, and rows that can't work.
#pragma once

#include <string>
#include <vector>

#include "output/catalogue_finding.h"
#include "output/catalogue_source.h"

namespace orvane {

// All that is found, by file in the order in which the help tells them, then by row and column. The
// application-wide catalogues and rules are as they were before.
std::vector<CatalogueFinding> CheckCatalogue(const CatalogueSource& source);

// The same of the catalogue that would be used if that were the office's folder: a file that it
// hasn't got is the program's.
std::vector<CatalogueFinding> CheckCatalogueIn(const std::string& officeFolder);

}  // namespace orvane
