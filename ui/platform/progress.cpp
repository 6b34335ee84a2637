#include "ui/platform/progress.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <chrono>

#include "core/numbers.h"
#include "ui/platform/guard.h"
#include "ui/platform/plain_dialog.h"
#include "ui/platform/qt_text.h"

namespace orvane {

// Escape and the button of the frame call the run off too.
class ProgressDialog : public PlainDialog {
 public:
  explicit ProgressDialog(QWidget* parent) : PlainDialog(parent) {
    setObjectName("ProgressDialog");
    setWindowTitle(QCoreApplication::applicationName());
    setWindowModality(Qt::ApplicationModal);
    count_ = new QLabel(this);
    count_->setObjectName("lblProgress");
    bar_ = new QProgressBar(this);
    bar_->setObjectName("barProgress");
    bar_->setTextVisible(false);
    auto* cancel = AddButton("cmdCancel", "&Cancel");
    connect(cancel, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    QVBoxLayout* layout = AddLayout();
    layout->addWidget(count_);
    layout->addWidget(bar_);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    cancel->setFocus();
  }

  void ShowCount(const QString& text, int done, int count) {
    count_->setText(text);
    bar_->setRange(0, count);
    bar_->setValue(done);
  }

  void reject() override {
    cancelled_ = true;
    PlainDialog::reject();
  }

  bool IsCancelled() const { return cancelled_; }

 private:
  QLabel* count_;
  QProgressBar* bar_;
  bool cancelled_ = false;
};

qint64 ProgressRun::SteadyClock() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

ProgressRun::ProgressRun(QWidget* parent, QString what)
    : parent_(parent), what_(std::move(what)), began_(Clock()) {}

ProgressRun::~ProgressRun() = default;

// Beyond a moment, with at least another one to come at the present pace: a dialog that goes as
// soon as it comes is a nuisance.
bool ProgressRun::IsLong(int done, int count) const {
  const auto past = static_cast<double>(Clock() - began_);
  if (past < Moment) return false;
  return done <= 0 || past / done * (count - done) >= Moment;
}

bool ProgressRun::GoesOn(int done, int count) {
  if (dialog_ && dialog_->IsCancelled()) return false;
  const bool first = !dialog_;
  if (first) {
    if (!IsLong(done, count)) return true;
    dialog_ = std::make_unique<ProgressDialog>(parent_);
  }
  if (!first && Clock() - shownAt_ < ShowEvery) return true;
  dialog_->ShowCount(ToQt(FromQt(what_) + ": " + DecimalText(done) + " of " + DecimalText(count)),
                     done, count);
  if (first) dialog_->show();
  // Keys and clicks too: the modal dialog keeps them from every other window.
  QCoreApplication::processEvents();
  shownAt_ = Clock();
  return !dialog_->IsCancelled();
}

}  // namespace orvane
