#include "ui/check_keeper.h"

#include <utility>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

// A pause of the hands, after which the whole job is looked at, this many sections between two
// keys: a few milliseconds' work.
constexpr int PauseMs = 300;
constexpr int SectionsAtATime = 200;

}  // namespace

CheckKeeper::CheckKeeper(std::function<void()> told, QObject* parent)
    : QObject(parent), told_(std::move(told)) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Guard([this] { WorkOn(); }); });
}

std::vector<Finding> CheckKeeper::Of(int row) {
  std::vector<Finding> findings = findings_.Of(row);
  if (!findings_.IsDone() && !timer_.isActive()) timer_.start(PauseMs);
  return findings;
}

std::vector<Finding> CheckKeeper::All() {
  if (!findings_.IsDone()) {
    timer_.stop();
    findings_.Finish();
    Tell();
  }
  return findings_.All();
}

void CheckKeeper::LookAgain(int row) {
  findings_.LookAgain(row);
  findings_.Finish();
  Tell();
}

void CheckKeeper::Follow(const ChangeNotice& change) {
  if (!findings_.Follow(change)) return;
  timer_.start(PauseMs);
  // While all are looked at again the former counts are nearer to the truth than none.
  const bool isOne = RuleOf(change.Kind).Subject == ChangeSubject::Section;
  if (isOne && findings_.AreAllLookedAt()) counts_ = findings_.Counts();
  ++revision_;
  told_();
}

void CheckKeeper::WorkOn() {
  if (findings_.Step(SectionsAtATime)) return Tell();
  timer_.start(0);
}

void CheckKeeper::Tell() {
  counts_ = findings_.Counts();
  ++revision_;
  told_();
}

}  // namespace orvane
