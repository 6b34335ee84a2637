// Names that Windows takes for devices, whatever folder they stand in.
#include <gtest/gtest.h>

#include "core/disk.h"

namespace {

using orvane::NamesDevice;

TEST(DeviceNames, A_device_is_one_in_every_folder_and_with_every_ending) {
  for (const char* path : {"CON", "nul", "C:\\jobs\\PRN", "C:\\jobs\\aux.ovd",
                           "\\\\server\\jobs\\Com1.x.ovd", "C:lpt9", "nul .ovd", "/jobs/CON.ovd"}) {
    EXPECT_TRUE(NamesDevice(path)) << path;
  }
}

TEST(DeviceNames, Other_names_may_begin_or_end_like_one) {
  for (const char* path : {"", "console.ovd", "C:\\con\\job.ovd", "com.ovd", "COM0", "COM10.ovd",
                           "lpt.1", "xnul", "nul-line.ovd", "C:\\jobs\\"}) {
    EXPECT_FALSE(NamesDevice(path)) << path;
  }
}

}  // namespace
