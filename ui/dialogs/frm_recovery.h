// "Recovered Jobs": what programs that ended without their user's consent have left.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "ui/platform/plain_dialog.h"
#include "ui/recovery_keeper.h"

namespace orvane {

// Who accepted it opens Chosen; what was discarded has gone by then. What is neither is offered
// again at the next start.
class FrmRecovery : public PlainDialog {
 public:
  // `discard` does so; an error that it raises is told, and the job stays in the list.
  FrmRecovery(std::vector<OfferedJob> jobs, std::function<void(OfferedJob&)> discard,
              QWidget* parent = nullptr);

  OfferedJob& Chosen() { return jobs_.at(static_cast<std::size_t>(Row())); }

 private:
  void AddRows();
  int Row() const;
  void Discard();

  std::vector<OfferedJob> jobs_;  // row by row
  const std::function<void(OfferedJob&)> discard_;
  QTreeWidget* list_ = nullptr;  // lvwRecovered
};

}  // namespace orvane
