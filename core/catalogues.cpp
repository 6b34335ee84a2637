#include "core/catalogues.h"

#include <array>
#include <cstddef>
#include <exception>
#include <string>

#include "core/catalogue_folder.h"
#include "core/desktop.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"

namespace orvane {

namespace {

// The dimension columns of dims.csv in their order, columns 3 to 14.
constexpr std::array<double SectionDim::*, 12> DimColumns = {
    &SectionDim::Dim3,  &SectionDim::Dim4,  &SectionDim::Dim5,  &SectionDim::Dim6,
    &SectionDim::Dim7,  &SectionDim::Dim8,  &SectionDim::Dim9,  &SectionDim::Dim10,
    &SectionDim::Dim11, &SectionDim::Dim12, &SectionDim::Dim13, &SectionDim::Dim14};

// Of a mezzanine row of dims.csv, which is a channel row as soon as it is read.
constexpr std::string_view MezzanineTag = "M";

// An error with the place of the cell that raised it. The end of the file is no cell and needs
// none.
RuntimeError AtPlace(const RuntimeError& error, const TextFile& file) {
  if (error.Number() == static_cast<int>(Failure::InputPastEndOfFile)) return error;
  return {error.Number(), error.Description() + " (row " + DecimalText(file.Row()) + ", column " +
                              DecimalText(file.Column()) + ")"};
}

// The five cells that an accessory row of either file begins with.
AccDef ReadAccessory(TextFile& file) {
  AccDef row;
  row.Name = file.ReadField();
  row.DrawingFile = file.ReadField();
  row.Value1 = file.ReadInt16();
  row.Value2 = file.ReadInt16();
  row.Value3 = file.ReadInt16();
  return row;
}

// The accessory that a row behind an "A" row adds to; an error when the file has had none yet.
AccDef& LastAccessory(std::int16_t count) {
  if (count == 0) throw RuntimeError(Failure::SubscriptOutOfRange);
  return AccDefs.At(AccDefs.UBound());
}

void AppendParam(AccDef& accessory, std::string_view name) {
  Int16(accessory.ParamNames.UBound() + 1);  // one more than 16 bits count is refused
  accessory.ParamNames.Append(std::string(name));
}

}  // namespace

void ReadCatalogueRows(TextFile& file, const CatalogueRow& readRow) {
  while (!file.AtEnd()) {
    const std::string_view cell = file.ReadField();
    if (file.AtEnd()) return;
    if (!readRow(file, UpperCase(Trim(cell)), cell) && !cell.empty()) file.ReadRestOfLine();
  }
}

bool ReadSectionDim(TextFile& file, const std::string& tag, std::string_view cell) {
  if (FamilyOf(tag) == nullptr && tag != MezzanineTag) return false;
  SectionDim row;
  row.SectionType = cell == MezzanineTag ? "C" : cell;
  row.Product = file.ReadField();
  // Without a product this is no row, and its next cells are looked at as tags.
  if (Trim(row.Product).empty()) return true;
  for (const auto column : DimColumns) row.*column = Val(file.ReadField());
  SectionDims.Append(std::move(row));
  return true;
}

bool ReadPunchPattern(TextFile& file, const std::string& tag, std::string_view cell) {
  if (FamilyOf(tag) == nullptr) return false;
  PunchPattern row;
  row.SectionType = Trim(cell);
  row.Name = Trim(file.ReadField());
  if (!row.Name.empty()) {
    row.Codes = Trim(file.ReadField());
    row.HasSagBars = ToBoolean(Trim(file.ReadField()) == "S");
  }
  row.Starred = ToBoolean(Trim(file.ReadRestOfLine()) == "*");
  if (!row.Name.empty() && !row.Codes.empty()) PunchPatterns.Append(std::move(row));
  return true;
}

bool ReadAccessory1(TextFile& file, const std::string& tag, std::string_view /*cell*/) {
  if (tag == "A") {
    AccDef row = ReadAccessory(file);
    row.Flag = ToBoolean(UpperCase(file.ReadField()) == "Y");
    row.IsType1 = True;
    AccType1Count = Int16(AccType1Count + 1);
    AccDefs.Append(std::move(row));
  } else if (tag == "I") {
    AccDef& accessory = LastAccessory(AccType1Count);
    const std::string text(file.ReadField());
    const std::string code(file.ReadField());
    AppendParam(accessory, code);
    accessory.ParamTexts.Append(text);
  } else {
    return false;
  }
  file.ReadRestOfLine();
  return true;
}

bool ReadAccessory2(TextFile& file, const std::string& tag, std::string_view /*cell*/) {
  if (tag == "A") {
    AccDef row = ReadAccessory(file);
    row.Option = file.ReadField();
    AppendParam(row, "Mark");
    AppendParam(row, "No.Off");
    AccType2Count = Int16(AccType2Count + 1);
    AccDefs.Append(std::move(row));
  } else if (tag == "P") {
    AccDef& accessory = LastAccessory(AccType2Count);
    AppendParam(accessory, file.ReadField());
    accessory.Options.Resize(accessory.ParamCount());
  } else if (tag == "O") {
    AccDef& accessory = LastAccessory(AccType2Count);
    // Choices belong to a parameter of the accessory itself, not to "Mark" or "No.Off".
    if (accessory.Options.Empty()) throw RuntimeError(Failure::SubscriptOutOfRange);
    AccParamOptions& options = accessory.Options.At(accessory.ParamCount());
    Int16(options.OptionTexts.UBound() + 1);
    options.OptionTexts.Append(std::string(file.ReadField()));
  } else if (tag == "G") {
    AccDef& accessory = LastAccessory(AccType2Count);
    AccGroup group;
    group.Title = file.ReadField();
    group.GroupValue = file.ReadInt16();
    group.FirstParam = Int16(accessory.ParamNames.UBound() + 1);
    accessory.Groups.Append(std::move(group));
  } else {
    return false;
  }
  file.ReadRestOfLine();
  return true;
}

bool LoadCatalogue(const std::string& path, const CatalogueRow& readRow) {
  std::string description;
  try {
    TextFile file = TextFile::Open(path);
    try {
      ReadCatalogueRows(file, readRow);
      return true;
    } catch (const RuntimeError& error) {
      description = AtPlace(error, file).Description();
    }
  } catch (const std::exception& error) {
    description = error.what();
  }
  TheDesktop().ShowMessageBox("Error loading data from " + path + "\r" + description,
                              "Orvane Detailing System", Buttons::Ok, Icon::Stop);
  return false;
}

bool LoadSectionDims(const std::string& path) {
  SectionDims.Clear();
  return LoadCatalogue(path, ReadSectionDim);
}

bool LoadPunchPatterns(const std::string& path) {
  PunchPatterns.Clear();
  return LoadCatalogue(path, ReadPunchPattern);
}

bool LoadAccessories1(const std::string& path) {
  AccDefs.Clear();
  AccType1Count = 0;
  return LoadCatalogue(path, ReadAccessory1);
}

bool LoadAccessories2(const std::string& path) {
  AccType2Count = 0;
  AccDefs.Resize(AccType1Count);  // without the rows of an earlier reading
  return LoadCatalogue(path, ReadAccessory2);
}

bool LoadAccessoryCatalogues() {
  AccType2Count = 0;
  const bool loaded =
      LoadAccessories1(CataloguePath(Accs1File)) && LoadAccessories2(CataloguePath(Accs2File));
  ClearUsedFlags();
  return loaded;
}

bool LoadSectionCatalogues() {
  const bool dims = LoadSectionDims(CataloguePath(DimsFile));
  const bool patterns = LoadPunchPatterns(CataloguePath(PunchFile));
  return dims && patterns;
}

void ClearUsedFlags() {
  AccUsed.Clear();
  AccUsed.Resize(AccType1Count + AccType2Count);
}

CatalogueTables LoadedCatalogues() {
  return {SectionDims, PunchPatterns, AccDefs, AccType1Count, AccType2Count};
}

void InstallCatalogues(const CatalogueTables& catalogues) {
  SectionDims = catalogues.Dims;
  PunchPatterns = catalogues.Patterns;
  AccDefs = catalogues.Accessories;
  AccType1Count = catalogues.Type1Count;
  AccType2Count = catalogues.Type2Count;
  ClearUsedFlags();
}

int FindSectionDim(std::string_view product) {
  for (int row = 1; row <= SectionDims.UBound(); ++row) {
    if (SectionDims.At(row).Product == product) return row;
  }
  return 0;
}

SectionDim GetSectionDim(std::string_view product) {
  const int row = FindSectionDim(product);
  return row == 0 ? SectionDim{} : SectionDims.At(row);
}

std::int16_t FindPunchPattern(std::string_view name) {
  for (int row = 1; row <= PunchPatterns.UBound(); ++row) {
    if (PunchPatterns.At(row).Name == name) return Int16(row);
  }
  return 0;
}

int FindComboIndex(const Table<std::string>& entries, std::string_view text) {
  const std::string_view wanted = Trim(text);
  if (wanted.empty()) return -1;
  for (int row = 1; row <= entries.UBound(); ++row) {
    if (Trim(entries.At(row)) == wanted) return row - 1;
  }
  return -1;
}

}  // namespace orvane
