// Keeps what the design check finds up with the changes of the job: of the section that is worked
// on at once, of all others between the keys.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

#include "output/job_findings.h"
#include "project/changes.h"

namespace orvane {

class CheckKeeper : public QObject {
 public:
  // `told` is called whenever something may be found otherwise.
  explicit CheckKeeper(std::function<void()> told, QObject* parent = nullptr);

  // Of that row of Items, as JobFindings gives them.
  std::vector<Finding> Of(int row);
  // Of the whole job, which is looked at to its end for it.
  std::vector<Finding> All();
  // Nothing is left to be looked at, and how often that, or one section, has been told: whoever
  // lists all findings needs them then alone.
  bool IsDone() const { return findings_.IsDone(); }
  int Revision() const { return revision_; }
  // As they were when the whole job had been looked at last; one section is counted at once.
  const FindingCounts& Counts() const { return counts_; }

  // Something of that row was accepted, or is open again.
  void LookAgain(int row);

 private:
  void Follow(const ChangeNotice& change);
  void WorkOn();
  void Tell();

  const std::function<void()> told_;
  JobFindings findings_;
  FindingCounts counts_;
  int revision_ = 0;
  QTimer timer_{this};
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
