// "Recovered Jobs": what programs that ended without their user's consent have left.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "project/recovery.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// Who accepted it opens Chosen; what was discarded has gone by then. What is neither is offered
// again at the next start.
class FrmRecovery : public PlainDialog {
 public:
  // `discard` does so; an error that it raises is told, and the job stays in the list.
  FrmRecovery(std::vector<LeftJob> jobs, std::function<void(const LeftJob&)> discard,
              QWidget* parent = nullptr);

  const LeftJob& Chosen() const { return jobs_.at(static_cast<std::size_t>(Row())); }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void AddRows();
  void CompareNext();
  int Row() const;
  void Discard();

  std::vector<LeftJob> jobs_;  // row by row
  const std::function<void(const LeftJob&)> discard_;
  int compared_ = 0;             // rows whose difference stands there
  QTreeWidget* list_ = nullptr;  // lvwRecovered
};

}  // namespace orvane
