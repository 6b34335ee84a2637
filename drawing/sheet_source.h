// What a sheet takes from outside of what it shows: margins, project details, pictures, and where
// an error goes that doesn't end it. Taken once before the first line is drawn, so that a drawing
// reads no value that somebody else may change meanwhile.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/desktop.h"
#include "drawing/document.h"

namespace orvane {

// The margins of the page, mm, under the names of their settings.
struct PageMargins {
  std::int16_t LeftMargin = 0;
  std::int16_t RightMargin = 0;
  std::int16_t TopMargin = 0;
  std::int16_t BottomMargin = 0;
};

// The margins of the settings.
PageMargins PresentMargins();

struct SheetSource {
  PageMargins Margins;

  // The project details and the user's company, under the names of their values.
  std::array<std::string, 5> txtProject;
  Date DTPicker1;
  std::string CompanyName, CompanyDetails;

  std::shared_ptr<const Picture> imgLogo;
  // Gives a picture by its path, as LoadDrawing does.
  std::function<std::shared_ptr<const Picture>(std::string_view suffix)> LoadPicture;
  // Takes the description of an error that leaves the sheet going on.
  Teller Tell;
};

// The present values of the system: pictures come through their hidden holder, errors are told in
// message boxes. For the thread of the windows. A sheet on another thread needs one taken before,
// with a loader that keeps nothing (ReadDrawing) and a Tell of its own.
SheetSource PresentSource();

}  // namespace orvane
