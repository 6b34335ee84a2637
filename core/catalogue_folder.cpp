#include "core/catalogue_folder.h"

#include <array>
#include <filesystem>
#include <map>
#include <system_error>

#include "core/desktop.h"
#include "core/files.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "core/text.h"

namespace orvane {

namespace {

bool StandsInOffice(std::string_view name) {
  std::error_code unknown;
  return std::filesystem::exists(NativePath(PathInFolder(OfficeFolder, name)), unknown);
}

// The names of the pictures in a folder's Drawings, by their capitals.
void CollectPictures(const std::string& folder, std::map<std::string, std::string>& names) {
  if (folder.empty()) return;
  std::error_code error;
  const std::filesystem::path drawings = NativePath(PathInFolder(folder, "\\Drawings"));
  for (std::filesystem::directory_iterator entry(drawings, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = PathText(entry->path().filename());
    if (UpperCase(name).ends_with(".WMF")) names.emplace(UpperCase(name), name);
  }
}

CatalogueFileInUse InUse(const std::string& name, const std::string& shown) {
  CatalogueFileInUse file;
  file.Name = shown;
  const std::string path = CataloguePath(name);
  std::error_code unknown;
  if (!std::filesystem::exists(NativePath(path), unknown)) return file;
  file.Path = path;
  file.From = IsOfficesOwn(name) ? CatalogueOrigin::Office : CatalogueOrigin::Program;
  return file;
}

bool IsName(std::string_view name, std::string_view file) {
  return UpperCase(name) == UpperCase(file);
}

}  // namespace

std::string OfficeFolder;

bool IsOfficesOwn(std::string_view name) {
  if (OfficeFolder.empty()) return false;
  if (IsName(name, Accs1File) || IsName(name, Accs2File)) {
    return StandsInOffice(Accs1File) && StandsInOffice(Accs2File);
  }
  return StandsInOffice(name);
}

bool IsFolder(const std::string& path) {
  std::error_code error;
  const bool is = std::filesystem::is_directory(NativePath(path), error);
  if (error || !is) return false;
  const std::filesystem::directory_iterator looked(NativePath(path), error);
  return !error;
}

bool UseOfficeFolder() {
  const std::string folder = AbsolutePath(CatalogueFolder());
  OfficeFolder.clear();
  if (folder.empty()) return true;
  if (IsFolder(folder)) {
    OfficeFolder = folder;
    return true;
  }
  TheDesktop().ShowMessageBox("The catalogue folder can't be found: " + folder +
                                  "\rThe catalogue that ships with the program is used until the "
                                  "next start. The setting stays.",
                              "Orvane Detailing System", Buttons::Ok, Icon::Stop);
  return false;
}

std::vector<CatalogueFileInUse> CatalogueFilesOf(const std::string& officeFolder) {
  const OfficeFolderApart apart(officeFolder);
  constexpr std::array<std::string_view, 5> files = {DimsFile, PunchFile, Accs1File, Accs2File,
                                                     "\\check.csv"};
  std::vector<CatalogueFileInUse> all;
  for (const std::string_view name : files) {
    all.push_back(InUse(std::string(name), std::string(name.substr(1))));
    all.back().Unpaired = !officeFolder.empty() && !IsOfficesOwn(name) && StandsInOffice(name);
  }
  std::map<std::string, std::string> pictures;
  CollectPictures(officeFolder, pictures);
  CollectPictures(ProgramFolder, pictures);
  for (const auto& [capitals, name] : pictures) {
    all.push_back(InUse("\\Drawings\\" + name, "Drawings/" + name));
  }
  return all;
}

std::string CataloguePath(std::string_view name) {
  return PathInFolder(IsOfficesOwn(name) ? OfficeFolder : ProgramFolder, name);
}

}  // namespace orvane
