// What the program's desktop does apart from the windows, and what it makes smaller.
#include <atomic>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "core/runtime_error.h"
#include "tests/screens/screen_fixture.h"

namespace orvane {

namespace {

class DesktopApart : public test::SystemTest {
 protected:
  test::TestDesktop desktop;
};

TEST_F(DesktopApart, What_is_handed_over_runs_in_its_order_on_one_thread_of_its_own) {
  std::vector<int> ran;
  std::vector<std::thread::id> threads;
  for (int at = 0; at < 100; ++at) {
    desktop.RunApart([&ran, &threads, at] {
      ran.push_back(at);
      threads.push_back(std::this_thread::get_id());
    });
  }
  desktop.FinishApart();
  std::vector<int> all;
  for (int at = 0; at < 100; ++at) all.push_back(at);
  EXPECT_EQ(ran, all);
  EXPECT_NE(threads.front(), std::this_thread::get_id());
  EXPECT_EQ(threads.front(), threads.back());
}

TEST_F(DesktopApart, Nobody_waits_for_it_until_its_end_is_asked_for) {
  std::promise<void> go;
  std::atomic<bool> done = false;
  desktop.RunApart([&] {
    go.get_future().wait();
    done = true;
  });
  EXPECT_FALSE(done);
  go.set_value();
  desktop.FinishApart();
  EXPECT_TRUE(done);
}

TEST_F(DesktopApart, An_error_ends_only_what_raised_it) {
  bool ran = false;
  desktop.RunApart([] { throw std::runtime_error("full"); });
  desktop.RunApart([&] { ran = true; });
  desktop.FinishApart();
  EXPECT_TRUE(ran);
}

TEST_F(DesktopApart, A_desktop_that_goes_runs_first_what_it_was_given) {
  int ran = 0;
  {
    test::TestDesktop short_lived;
    for (int at = 0; at < 10; ++at) short_lived.RunApart([&ran] { ++ran; });
  }
  EXPECT_EQ(ran, 10);
}

TEST_F(DesktopApart, What_it_made_smaller_comes_back_byte_by_byte) {
  const std::string odd("\0\r\n\x1A\xFF", 5);
  for (const std::string& bytes : {std::string(), odd, std::string(100000, 'x') + odd}) {
    EXPECT_EQ(desktop.Decompress(desktop.Compress(bytes)), bytes);
  }
  EXPECT_LT(desktop.Compress(std::string(100000, 'x')).size(), 1000U);
}

TEST_F(DesktopApart, Damaged_bytes_are_an_error) {
  const std::string packed = desktop.Compress("12 sections of a job");
  std::string changed = packed;
  changed.at(packed.size() / 2) = static_cast<char>(changed.at(packed.size() / 2) ^ 0x55);
  // Four bytes of length that promise 4 GiB.
  const std::string boastful = "\xFF\xFF\xFF\xFF" + packed.substr(4);
  for (const std::string& bytes : {std::string(), std::string("abc"),
                                   packed.substr(0, packed.size() - 3), changed, boastful}) {
    EXPECT_EQ(test::ErrorOf([&] { desktop.Decompress(bytes); }), "The file is damaged");
  }
}

}  // namespace

}  // namespace orvane
