#include "drawing/pictures.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/catalogue_folder.h"
#include "core/files.h"
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
  const std::string path = CataloguePath(suffix);
  try {
    return std::make_shared<const Picture>(ReadMetafile(ReadWholeFile(path)));
  } catch (const RuntimeError& error) {
    if (IsMissing(error)) {
      throw RuntimeError(Failure::FileNotFound, DescriptionOf(Failure::FileNotFound) + ": " + path);
    }
    throw RuntimeError(error.Number(), error.Description() + ": " + path);
  }
}

std::shared_ptr<const Picture> CrossedBox(std::string_view suffix) {
  constexpr double width = 120;  // mm
  constexpr double height =
      60;  // as flat as the pictures of the catalogue, so that tables keep their room
  constexpr double mostPoints = 12;
  constexpr double mmToThePoint = 25.4 / 72;
  constexpr double widestLetter = 1.02;  // of Arial, as a part of its size
  constexpr double ascent = 0.905;
  const Pen pen{0.3, Black, true};
  auto picture = std::make_shared<Picture>(Picture{width, height, {}});
  picture->Shapes.emplace_back(RectangleShape{{0, 0, width, height}, pen, {}});
  picture->Shapes.emplace_back(LineShape{{0, 0}, {width, height}, pen});
  picture->Shapes.emplace_back(LineShape{{0, height}, {width, 0}, pen});
  TextShape name;
  name.Text = suffix.substr(suffix.find_last_of('\\') + 1);
  const double letters = std::max<double>(1, static_cast<double>(name.Text.size()));
  const double size = std::min(mostPoints * mmToThePoint, width / (letters * widestLetter));
  name.Type.Size = size / mmToThePoint;
  name.TopLeft = {width / 2, (height - size) / 2};
  name.Ascent = ascent * size;
  name.Side = TextSide::Middle;
  name.Behind = {true, White};
  picture->Shapes.emplace_back(name);
  return picture;
}

}  // namespace orvane
