// The pace of work that nobody waits for: it rests longer than it works, in small turns, so that
// whoever types has the machine, its memory above all, nearly to himself.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <utility>

namespace orvane {

class Pace {
 public:
  using Seconds = std::chrono::duration<double>;
  using Clock = std::function<Seconds()>;
  using Sleep = std::function<void(Seconds)>;

  // Worked for so long it rests, that many times as long; in one piece of work no longer than that.
  static constexpr Seconds Turn{0.0002};
  static constexpr double RestPerWork = 4;
  static constexpr Seconds MostRest{1};

  Pace(Clock now, Sleep sleep) : now_(std::move(now)), sleep_(std::move(sleep)) {}

  // A piece of work begins.
  void Begin() {
    rested_ = Seconds(0);
    since_ = now_();
  }

  // To be called often while it is done.
  void Rest() {
    const Seconds worked = now_() - since_;
    if (hurries_ || worked < Turn || rested_ >= MostRest) return;
    const Seconds rest = std::min(worked * RestPerWork, MostRest - rested_);
    sleep_(rest);
    rested_ += rest;
    since_ = now_();
  }

  // Somebody waits for it now, or not any more; from any thread.
  void Hurry(bool hurries) { hurries_ = hurries; }

 private:
  const Clock now_;
  const Sleep sleep_;
  Seconds since_{};
  Seconds rested_{};
  std::atomic<bool> hurries_ = false;
};

}  // namespace orvane
