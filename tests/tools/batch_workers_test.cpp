#include "tools/batch_workers.h"
#include "tests/support/patience.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvane {

namespace {

using Told = std::vector<std::string>;

// Everything that is told, in order: number, code, words, death.
Told TellAll(int count, int workers, const std::function<Worked(int)>& work) {
  Told told;
  DoInWorkers(count, workers, work, [&](int number, const Worked& worked) {
    told.push_back(std::to_string(number) + " " + std::to_string(worked.Code) + " " + worked.Said +
                   " " + worked.Died);
  });
  return told;
}

Worked Saying(int number) {
  return {number % 4, "piece " + std::to_string(number), "", ""};
}

Told Expected(int count) {
  Told all;
  for (int number = 0; number < count; ++number) {
    const Worked worked = Saying(number);
    all.push_back(std::to_string(number) + " " + std::to_string(worked.Code) + " " + worked.Said +
                  " ");
  }
  return all;
}

TEST(BatchWorkers, Every_piece_is_told_once_and_in_order_by_any_number_of_workers) {
  for (const int workers : {1, 2, 3, 16, 64}) {
    for (const int count : {0, 1, 2, 50})
      EXPECT_EQ(TellAll(count, workers, Saying), Expected(count));
  }
}

TEST(BatchWorkers, Words_longer_than_any_pipe_come_whole) {
  const auto work = [](int number) {
    return Worked{0, std::string(3000000, static_cast<char>('a' + number)), "", ""};
  };
  std::vector<std::string> said;
  DoInWorkers(4, 2, work, [&](int, const Worked& worked) { said.push_back(worked.Said); });
  ASSERT_EQ(said.size(), 4U);
  for (int number = 0; number < 4; ++number)
    EXPECT_EQ(said.at(static_cast<std::size_t>(number)), work(number).Said);
}

TEST(BatchWorkers, Each_worker_is_a_process_of_its_own) {
  const pid_t own = getpid();
  const auto work = [](int) { return Worked{0, std::to_string(getpid()), "", ""}; };
  DoInWorkers(5, 2, work,
              [own](int, const Worked& worked) { EXPECT_NE(worked.Said, std::to_string(own)); });
  DoInWorkers(2, 1, work,
              [own](int, const Worked& worked) { EXPECT_EQ(worked.Said, std::to_string(own)); });
}

TEST(BatchWorkers, A_worker_that_dies_takes_its_own_piece_with_it_and_no_other) {
  const auto work = [](int number) {
    if (number == 3) (void)std::raise(SIGKILL);
    if (number == 5) _exit(7);
    if (number == 9) (void)std::raise(SIGKILL);
    return Saying(number);
  };
  Told expected = Expected(10);
  expected.at(3) = "3 0  signal 9, Killed";
  expected.at(5) = "5 0  exit code 7";
  expected.at(9) = "9 0  signal 9, Killed";
  for (const int workers : {2, 3, 20}) EXPECT_EQ(TellAll(10, workers, work), expected) << workers;
}

TEST(BatchWorkers, All_may_die) {
  const auto work = [](int) -> Worked { _exit(1); };
  const Told told = TellAll(6, 3, work);
  ASSERT_EQ(told.size(), 6U);
  for (int number = 0; number < 6; ++number) {
    EXPECT_EQ(told.at(static_cast<std::size_t>(number)),
              std::to_string(number) + " 0  exit code 1");
  }
}

TEST(BatchWorkers, A_piece_that_raises_an_error_is_told_as_its_process_death) {
  const Told told = TellAll(3, 2, [](int number) {
    if (number == 1) throw std::runtime_error("lost");
    return Saying(number);
  });
  EXPECT_EQ(told, (Told{Expected(1).front(), "1 0  exit code 1", Expected(3).back()}));
}

// Each worker holds the writing end of a pipe, says by a letter that it has begun a piece without
// end, and waits. The pipe ends when the last of them has.
TEST(BatchWorkers, They_end_with_the_process_that_asked_for_them) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const pid_t asking = fork();
  if (asking == 0) {
    close(pipe[0]);
    DoInWorkers(
        2, 2,
        [&pipe](int) -> Worked {
          (void)!write(pipe[1], "w", 1);
          while (true) pause();
        },
        [](int, const Worked&) {});
    _exit(0);
  }
  close(pipe[1]);
  char letter = 0;
  for (int worker = 0; worker < 2; ++worker) ASSERT_EQ(read(pipe[0], &letter, 1), 1);
  ASSERT_EQ(kill(asking, SIGKILL), 0);
  ASSERT_EQ(waitpid(asking, nullptr, 0), asking);
  pollfd end{pipe[0], POLLIN, 0};
  EXPECT_EQ(poll(&end, 1, test::Patience), 1) << "the workers live on";
  EXPECT_EQ(read(pipe[0], &letter, 1), 0);
  close(pipe[0]);
}

}  // namespace

}  // namespace orvane
