// Where the catalogue's files are taken from: the office's own folder, else the program's.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvane {

// The catalogue files, as they are named below a folder.
constexpr std::string_view DimsFile = "\\dims.csv";
constexpr std::string_view PunchFile = "\\punch.csv";
constexpr std::string_view Accs1File = "\\accs1.csv";
constexpr std::string_view Accs2File = "\\accs2.csv";

// The office's own catalogue folder, as it is used since the start; empty for the one that ships.
extern std::string OfficeFolder;

// The path of a catalogue file or a picture by its backslash-led name, such as "\dims.csv" or
// "\Drawings\clip.wmf": in the office's folder what stands there under that name, case of letters
// apart; all else in the program's folder. accs1.csv and accs2.csv count as one: accessories are
// numbered through both, so a file of the office beside one that ships would shift every number.
std::string CataloguePath(std::string_view name);

// Takes the folder that the setting names, before the first catalogue is read. Where it isn't there
// that is told, the catalogue that ships is used, and the setting stays: a drive that is away today
// is back tomorrow. False then.
bool UseOfficeFolder();

// What is used of each file if that were the office's folder: the catalogue files, then every
// picture of either folder by its name.
enum class CatalogueOrigin { Office, Program, Nowhere };
struct CatalogueFileInUse {
  std::string Name;  // "dims.csv", "Drawings/acc01.wmf"
  CatalogueOrigin From = CatalogueOrigin::Nowhere;
  std::string Path;  // empty for one that is nowhere
  // Stands in the office's folder all the same: one accessory file without the other.
  bool Unpaired = false;
};
std::vector<CatalogueFileInUse> CatalogueFilesOf(const std::string& officeFolder);

// Whether a folder is there, and can be looked into.
bool IsFolder(const std::string& path);

// The office's folder for the time of a look at another.
class OfficeFolderApart {
 public:
  // A text of its own, as the folder may be the one that it replaces.
  explicit OfficeFolderApart(std::string folder)
      : kept_(std::exchange(OfficeFolder, std::move(folder))) {}
  ~OfficeFolderApart() { std::swap(OfficeFolder, kept_); }
  OfficeFolderApart(const OfficeFolderApart&) = delete;
  OfficeFolderApart& operator=(const OfficeFolderApart&) = delete;

 private:
  std::string kept_;
};

// Whether that path lies in the office's folder.
bool IsOfficesOwn(std::string_view name);

}  // namespace orvane
