#include "ui/platform/end_watch.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <utility>

#include "ui/platform/guard.h"

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>
#endif

namespace orvane {

#ifndef Q_OS_WIN

namespace {

constexpr std::array<int, 3> EndSignals = {SIGTERM, SIGHUP, SIGINT};

// A handler may do next to nothing: it puts the signal's number into a pipe, at whose other end the
// window's thread looks.
std::array<int, 2> signalPipe = {-1, -1};

void PutSignal(int number) {
  const auto byte = static_cast<unsigned char>(number);
  // A full pipe has told enough; there is nobody to tell an error.
  [[maybe_unused]] const auto put = write(signalPipe[1], &byte, 1);
}

// One that whoever started the program has it ignore stays so.
void Handle(int number, void (*handler)(int)) {
  struct sigaction action = {};
  if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(number, &action, nullptr);
}

}  // namespace

#endif

EndWatch::EndWatch(std::function<void()> last, std::function<void()> end)
    : last_(std::move(last)), end_(std::move(end)) {
  connect(
      qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Guard(last_); },
      Qt::DirectConnection);
#ifndef Q_OS_WIN
  if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  told_ = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
  connect(told_, &QSocketNotifier::activated, this, [this] { Take(); });
  for (const int number : EndSignals) Handle(number, PutSignal);
#endif
}

EndWatch::~EndWatch() {
#ifndef Q_OS_WIN
  if (told_ == nullptr) return;
  for (const int number : EndSignals) Handle(number, SIG_DFL);
  delete told_;
  for (int& end : signalPipe) close(std::exchange(end, -1));
#endif
}

void EndWatch::Take() {
#ifndef Q_OS_WIN
  unsigned char number = 0;
  if (read(signalPipe[0], &number, 1) != 1) return;
  Guard(last_);
  if (end_) Guard(end_);
  Handle(number, SIG_DFL);
  raise(number);
#endif
}

}  // namespace orvane
