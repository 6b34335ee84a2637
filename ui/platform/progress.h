// A long run: its progress, and the user's way out of it.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

namespace orvane {

class ProgressDialog;

// A run that lasts longer than a moment shows how far it is, with "Cancel" to call it off. As long
// as the dialog is up, it alone takes keys and clicks; before, nothing does. The run begins when
// this is made.
class ProgressRun {
 public:
  static constexpr int Moment = 500;    // what a moment is, ms
  static constexpr int ShowEvery = 40;  // ms; the run is slower than its count otherwise

  // Milliseconds since any start, never fewer than before: the computer's own from its start. Tests
  // step one of their own, so that what a run shows doesn't hang on how fast it is.
  static qint64 SteadyClock();
  static inline std::function<qint64()> Clock = SteadyClock;

  // `parent` is the window that runs; `what` is what is counted, such as "Sheets drawn".
  ProgressRun(QWidget* parent, QString what);
  ~ProgressRun();
  ProgressRun(const ProgressRun&) = delete;
  ProgressRun& operator=(const ProgressRun&) = delete;

  // To be called between one step and the next; false once the user has called the run off.
  bool GoesOn(int done, int count);

 private:
  bool IsLong(int done, int count) const;

  QPointer<QWidget> parent_;
  QString what_;
  qint64 began_;
  qint64 shownAt_ = 0;  // when the dialog showed something new last
  std::unique_ptr<ProgressDialog> dialog_;
};

}  // namespace orvane
