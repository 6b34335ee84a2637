// A long run: its progress, and the user's way out of it.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>

namespace orvane {

class ProgressDialog;

// A run that lasts longer than a moment shows how far it is, with "Cancel" to call it off. As long
// as the dialog is up, it alone takes keys and clicks; before, nothing does. The run begins when
// this is made.
class ProgressRun {
 public:
  // What a moment is, ms. Tests make it none: every run is a long one then.
  static inline int Moment = 500;

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
  QElapsedTimer clock_;
  qint64 shownAt_ = 0;  // when the dialog showed something new last, ms
  std::unique_ptr<ProgressDialog> dialog_;
};

}  // namespace orvane
