// A clock of the test's own for the runs that show their progress.
#pragma once

#include <functional>
#include <utility>

#include "ui/platform/progress.h"

namespace orvane::test {

// Stands until the test moves it on, as long as this is there. With a pace it goes on by that much
// each time a run reads it, and `look` is called each time: a run reads it before it shows
// something new and again behind the events that it let run.
class RunClock {
 public:
  RunClock() {
    ProgressRun::Clock = [this] {
      now_ += pace_;
      if (look_) look_();
      return now_;
    };
  }
  ~RunClock() { ProgressRun::Clock = ProgressRun::SteadyClock; }
  RunClock(const RunClock&) = delete;
  RunClock& operator=(const RunClock&) = delete;

  void MoveOn(qint64 milliseconds) { now_ += milliseconds; }
  // Every step of a run lasts longer than a moment from now on: its dialog is up at the first one
  // and shows each of them.
  void MakeRunsLong() { pace_ = ProgressRun::Moment + 1; }
  void LookAtEachStep(std::function<void()> look) { look_ = std::move(look); }

 private:
  qint64 now_ = 0;
  qint64 pace_ = 0;
  std::function<void()> look_;
};

}  // namespace orvane::test
