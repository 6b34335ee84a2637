#include "project/changes.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

#include "core/model.h"

namespace orvane {

namespace {

constexpr bool EachKindHasItsRule() {
  for (std::size_t at = 0; at < ChangeRules.size(); ++at) {
    if (ChangeRules.at(at).Kind != static_cast<ChangeKind>(at)) return false;
  }
  return ChangeRules.back().Kind == ChangeKind::Export;
}
static_assert(EachKindHasItsRule(), "the rules stand in the order of the kinds, one for each");

int depth = 0;  // of changes whose actions run

// In the order of their making, not owned; one that goes while the others are told leaves an empty
// place.
std::vector<const ChangeFollower*> followers;
int telling = 0;

class Running {
 public:
  Running() { ++depth; }
  ~Running() { --depth; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
};

// Gives each follower its turn; the first error of them, none if there was none.
std::exception_ptr TellFollowers(const ChangeNotice& notice,
                                 const ChangeFollower::Follow ChangeFollower::*turn) {
  std::exception_ptr first;
  ++telling;
  for (std::size_t at = 0; at < followers.size(); ++at) {
    if (followers[at] == nullptr || !(followers[at]->*turn)) continue;
    try {
      (followers[at]->*turn)(notice);
    } catch (...) {
      if (!first) first = std::current_exception();
    }
  }
  if (--telling == 0)
    followers.erase(std::remove(followers.begin(), followers.end(), nullptr), followers.end());
  return first;
}

void RunAction(const ChangeRule& rule, const std::function<void()>& action) {
  const Running running;
  try {
    action();
  } catch (...) {
    if (rule.Dirty == Dirties::Anyway) ProjectDirty = True;
    throw;
  }
  if (rule.Dirty != Dirties::No) ProjectDirty = True;
}

}  // namespace

void Change(ChangeKind kind, std::int16_t row, const std::function<void()>& action) {
  const ChangeRule& rule = RuleOf(kind);
  if (IsChanging()) return RunAction(rule, action);

  ChangeNotice notice{kind, row};
  if (const auto refusal = TellFollowers(notice, &ChangeFollower::Before)) {
    std::rethrow_exception(refusal);
  }
  std::exception_ptr error;
  try {
    RunAction(rule, action);
  } catch (...) {
    error = std::current_exception();
    notice.Failed = true;
  }
  const std::exception_ptr followed = TellFollowers(notice, &ChangeFollower::After);
  if (!error) error = followed;
  if (error) std::rethrow_exception(error);
}

void Change(ChangeKind kind, std::int16_t row) {
  Change(kind, row, [] {});
}

bool IsChanging() {
  return depth > 0;
}

ChangeFollower::ChangeFollower(Follow after, Follow before)
    : Before(std::move(before)), After(std::move(after)) {
  followers.push_back(this);
}

ChangeFollower::~ChangeFollower() {
  const auto place = std::find(followers.begin(), followers.end(), this);
  if (telling > 0) {
    *place = nullptr;
  } else {
    followers.erase(place);
  }
}

}  // namespace orvane
