// The readers of the four catalogue files, and the look-ups in their tables.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/catalogue_folder.h"
#include "core/model.h"
#include "core/text_file.h"

namespace orvane {

// Each reader takes a file's full path, fills its tables and gives true. On any error it shows
// "Error loading data from ", the path, a carriage return and the description, under the title
// "Orvane Detailing System" with a stop icon, and gives false; rows read before the error stay. The
// description of a faulty field names its row and column.

// SectionDims, emptied first. A row of letter M is stored as C.
bool LoadSectionDims(const std::string& path);
// PunchPatterns, emptied first.
bool LoadPunchPatterns(const std::string& path);
// AccDefs, emptied first, and AccType1Count.
bool LoadAccessories1(const std::string& path);
// Rows of AccDefs behind those of the type 1 accessories, where all that stood there is emptied
// first, and AccType2Count.
bool LoadAccessories2(const std::string& path);

// The two catalogue steps of the start-up, from where CataloguePath finds the files. The first
// reads accs1.csv, then accs2.csv if that succeeded, and sizes AccUsed with every flag false; the
// second reads dims.csv and punch.csv and goes on with whatever they held. Both give true when
// every file was read whole.
bool LoadAccessoryCatalogues();
bool LoadSectionCatalogues();

// Reads one row behind its first cell. False when the tag, which is trimmed and in upper case, is
// none that the file knows; nothing has been read then.
using CatalogueRow =
    std::function<bool(TextFile& file, const std::string& tag, std::string_view cell)>;
// The rows of the four files, each appended to its table.
bool ReadSectionDim(TextFile& file, const std::string& tag, std::string_view cell);
bool ReadPunchPattern(TextFile& file, const std::string& tag, std::string_view cell);
bool ReadAccessory1(TextFile& file, const std::string& tag, std::string_view cell);
bool ReadAccessory2(TextFile& file, const std::string& tag, std::string_view cell);

// The loop that all readers share. A row's first cell decides what the row is; a row that
// isn't known is thrown away, but an empty cell throws nothing away, so that the next cell of the
// line is looked at in its place. A last line of a single cell is ignored.
void ReadCatalogueRows(TextFile& file, const CatalogueRow& readRow);
// How all of them read: a file of such rows, whose errors are told as above.
bool LoadCatalogue(const std::string& path, const CatalogueRow& readRow);

// A flag in AccUsed for each accessory of the catalogues and no more, none of them set.
void ClearUsedFlags();

// All that the four files gave, kept while the tables are reset between two jobs.
struct CatalogueTables {
  Table<SectionDim> Dims;
  Table<PunchPattern> Patterns;
  Table<AccDef> Accessories;
  std::int16_t Type1Count = 0;
  std::int16_t Type2Count = 0;
};

// The tables as they stand, and the same put back over whatever stands there; AccUsed is sized for
// them then, every flag false.
CatalogueTables LoadedCatalogues();
void InstallCatalogues(const CatalogueTables& catalogues);

// The row of SectionDims that is the first of that product, compared exactly; 0 without one.
int FindSectionDim(std::string_view product);

// A copy of that row; a blank record without one.
SectionDim GetSectionDim(std::string_view product);

// The row of the first pattern of that name, else 0. The section letter doesn't count: offices
// write a pattern that two families share as one name, and mark its sag bars in its first row.
std::int16_t FindPunchPattern(std::string_view name);

// The place, from 0, of the first of a combo box's entries that equals the text, blanks trimmed on
// both sides; -1 without one, and for an empty text.
int FindComboIndex(const Table<std::string>& entries, std::string_view text);

}  // namespace orvane
