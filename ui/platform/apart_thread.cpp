#include "ui/platform/apart_thread.h"

#include <exception>
#include <utility>

namespace orvane {

ApartThread::~ApartThread() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void ApartThread::Run(std::function<void()> action) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(action));
    if (!thread_.joinable()) thread_ = std::thread([this] { Work(); });
  }
  changed_.notify_all();
}

void ApartThread::Finish() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty() && !running_; });
}

void ApartThread::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    if (waiting_.empty()) return;
    std::function<void()> action = std::move(waiting_.front());
    waiting_.pop_front();
    running_ = true;
    lock.unlock();
    try {
      action();
    } catch (const std::exception&) {
      // Nobody waits for it here: who has something to tell keeps it where it is asked for.
      action = nullptr;
    }
    action = nullptr;  // with all that it holds, before somebody takes it for done
    lock.lock();
    running_ = false;
    changed_.notify_all();
  }
}

}  // namespace orvane
