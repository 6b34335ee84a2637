#include "drawing/pictures.h"

#include <array>
#include <string>

#include "core/files.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "drawing/metafile.h"

namespace orvane {

namespace {

// The bytes of the logo, compiled in: no sheet may fail for want of it.
constexpr auto LogoBytes = std::to_array<unsigned char>({
#include "drawing/logo.inc"
});

Drawings NewDrawings() {
  const std::string bytes(LogoBytes.begin(), LogoBytes.end());
  return {std::make_shared<const Picture>(ReadMetafile(bytes)), nullptr};
}

// A catalogue may name any text as its picture.
bool LeavesTheFolder(std::string_view suffix) {
  if (suffix.find_first_of("/:") != std::string_view::npos) return true;
  while (!suffix.empty()) {
    if (suffix.front() == '\\') suffix.remove_prefix(1);
    const std::string_view part = suffix.substr(0, suffix.find('\\'));
    if (part == "..") return true;
    suffix.remove_prefix(part.size());
  }
  return false;
}

bool IsMissing(const RuntimeError& error) {
  return error.Number() == static_cast<int>(Failure::FileNotFound) ||
         error.Number() == static_cast<int>(Failure::PathNotFound);
}

}  // namespace

Drawings& frmDrawings() {
  static Drawings drawings = NewDrawings();
  return drawings;
}

std::shared_ptr<const Picture> LoadDrawing(std::string_view suffix) {
  std::shared_ptr<const Picture> picture = ReadDrawing(suffix);
  frmDrawings().imgAcc = picture;
  return picture;
}

std::shared_ptr<const Picture> ReadDrawing(std::string_view suffix) {
  if (LeavesTheFolder(suffix)) {
    throw RuntimeError(Failure::PathNotFound,
                       "Picture outside the program's folder: " + std::string(suffix));
  }
  const std::string path = ProgramPath(suffix);
  try {
    return std::make_shared<const Picture>(ReadMetafile(ReadWholeFile(path)));
  } catch (const RuntimeError& error) {
    if (IsMissing(error)) {
      throw RuntimeError(Failure::FileNotFound, DescriptionOf(Failure::FileNotFound) + ": " + path);
    }
    throw RuntimeError(error.Number(), error.Description() + ": " + path);
  }
}

}  // namespace orvane
