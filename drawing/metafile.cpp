#include "drawing/metafile.h"

#include <cmath>
#include <optional>

#include "core/runtime_error.h"
#include "drawing/metafile_player.h"
#include "drawing/metafile_records.h"

namespace orvane {

namespace {

constexpr double MmToTheInch = 25.4;

// A plain metafile says nothing of its units: they are taken for the sheets' own, twips.
constexpr double PlainUnitsToTheInch = 1440;

constexpr std::string_view PlaceableKey = "\xD7\xCD\xC6\x9A";
constexpr std::size_t PlaceableWords = 11;

// Key, handle, box from left to bottom, units an inch, reserved, a sum that is not looked at, since
// programs are known to write it wrong.
MetafileWindow TakePlaceableHeader(MetafileBytes& bytes, Picture& picture) {
  const MetafileRecord header = bytes.TakeWords(PlaceableWords);
  const Point topLeft = header.XY(3);
  const Point bottomRight = header.XY(5);
  const double unitsToTheInch = header.Word(7);
  const MetafileWindow window{topLeft.X, topLeft.Y, bottomRight.X - topLeft.X,
                              bottomRight.Y - topLeft.Y};
  if (window.Width == 0 || window.Height == 0 || unitsToTheInch == 0) RefusePicture();
  picture.Width = std::abs(window.Width) * MmToTheInch / unitsToTheInch;
  picture.Height = std::abs(window.Height) * MmToTheInch / unitsToTheInch;
  return window;
}

// In memory or on a disk, then the header's size in words, the version; the sizes that follow are
// not needed.
void TakeHeader(MetafileBytes& bytes) {
  constexpr std::size_t HeaderWords = 9;
  const MetafileRecord start = bytes.TakeWords(3);
  const int version = start.Word(2);
  if ((start.Word(0) != 1 && start.Word(0) != 2) || start.Word(1) != HeaderWords ||
      (version != 0x0100 && version != 0x0300)) {
    RefusePicture();
  }
  bytes.TakeWords(HeaderWords - 3);
}

// The first extents that a picture can be drawn in.
MetafileWindow PlainWindow(MetafileBytes bytes, Picture& picture) {
  constexpr int SetWindowExtents = 0x020C;
  for (auto entry = bytes.TakeRecord(); entry.Function != 0; entry = bytes.TakeRecord()) {
    if (entry.Function != SetWindowExtents) continue;
    const Point extents = entry.Record.YX(0);
    if (extents.X == 0 || extents.Y == 0) continue;
    picture.Width = std::abs(extents.X) * MmToTheInch / PlainUnitsToTheInch;
    picture.Height = std::abs(extents.Y) * MmToTheInch / PlainUnitsToTheInch;
    return {0, 0, extents.X, extents.Y};
  }
  RefusePicture();
}

}  // namespace

Picture ReadMetafile(std::string_view bytes) {
  Picture picture;
  MetafileBytes left(bytes);
  std::optional<MetafileWindow> window;
  if (left.BeginsWith(PlaceableKey)) window = TakePlaceableHeader(left, picture);
  TakeHeader(left);
  if (!window) window = PlainWindow(left, picture);
  MetafilePlayer player(picture, *window);
  player.Play(left);
  // An empty place on the sheet would say that there is nothing to see.
  if (picture.Shapes.empty() && player.HasPassedOver()) {
    throw RuntimeError(Failure::TypeMismatch, "Nothing of the picture can be drawn");
  }
  return picture;
}

}  // namespace orvane
