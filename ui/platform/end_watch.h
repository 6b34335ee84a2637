// The ends of a program that nobody asks for in it: by a signal of the system, and with the
// desktop's session.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace orvane {

// Before such an end `last` is run in the window's thread, whatever dialog is open. Behind it, and
// behind `end`, a signal ends the program as if nobody had watched, without a question; the
// desktop's session goes on to end as the person there decides. One at a time.
class EndWatch : public QObject {
 public:
  explicit EndWatch(std::function<void()> last, std::function<void()> end = nullptr);
  ~EndWatch() override;

 private:
  void Take();

  const std::function<void()> last_;
  const std::function<void()> end_;
  QSocketNotifier* told_ = nullptr;
};

}  // namespace orvane
