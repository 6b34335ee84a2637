// A thread that does one thing after the other while the windows go on.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace orvane {

class ApartThread {
 public:
  ApartThread() = default;
  // Runs what is left first.
  ~ApartThread();
  ApartThread(const ApartThread&) = delete;
  ApartThread& operator=(const ApartThread&) = delete;

  // Hands an action over, which is run behind those before it. What it raises is lost.
  void Run(std::function<void()> action);

  // Waits until all of them have run.
  void Finish();

 private:
  void Work();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> waiting_;
  bool running_ = false;  // an action is at work
  bool ending_ = false;
  std::thread thread_;  // begun with the first action
};

}  // namespace orvane
