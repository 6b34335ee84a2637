// Any bytes as a metafile: refused with a description, or a picture whose shapes are all finite.
#include <string_view>

#include "core/runtime_error.h"
#include "drawing/metafile.h"
#include "fuzz/fuzz_support.h"
#include "fuzz/shape_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  try {
    fuzz::CheckPicture(ReadMetafile({reinterpret_cast<const char*>(data), size}));
  } catch (const RuntimeError& error) {
    if (error.Description().empty()) fuzz::Fail("an error that doesn't say why");
  }
  return 0;
}
