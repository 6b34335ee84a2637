// What the check of the catalogue asks for the files.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvane {

// Both by their backslash-led names.
struct CatalogueSource {
  // The bytes of one; raises the system's error for one that can't be read.
  std::function<std::string(std::string_view name)> Read;
  // Why a picture can't be shown; empty if it can.
  std::function<std::string(std::string_view name)> PictureFault;
};

}  // namespace orvane
