// What changes are called, and what sets some kinds of them apart, when they become steps
// (project/history).
#pragma once

#include <string>

#include "project/changes.h"

namespace orvane {

// "Length of P4", by the row as it stands.
std::string NameOfChange(const ChangeNotice& change);

// Kinds of which one key is one change.
constexpr bool IsTyped(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::Mark:
    case ChangeKind::Product:
    case ChangeKind::Length:
    case ChangeKind::Quantity:
    case ChangeKind::Notes:
    case ChangeKind::JointingPieces:
    case ChangeKind::ProjectDetails:
      return true;
    default:
      return false;
  }
}

// Kinds that a person calls by the section that they were done to, not by the one that came of it.
constexpr bool NamesSource(ChangeKind kind) {
  return kind == ChangeKind::Duplicate || kind == ChangeKind::OppositeHand ||
         kind == ChangeKind::NextSection;
}

// Kinds that take sections away. What stood behind them comes under the cursor.
constexpr bool TakesAway(ChangeKind kind) {
  return kind == ChangeKind::Delete || kind == ChangeKind::DeleteSections ||
         kind == ChangeKind::CutSections;
}

}  // namespace orvane
