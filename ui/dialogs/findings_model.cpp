#include "ui/dialogs/findings_model.h"

#include <QFont>
#include <QFontMetrics>
#include <QSize>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// One that can't be made is told by its words too, not by its letters alone.
std::string WhatText(const Finding& finding) {
  return std::string(GradeWords(finding)) + finding.What;
}

std::string TextOf(const Finding& finding, int column) {
  switch (column) {
    case FindingsModel::Mark:
      return finding.Mark;
    case FindingsModel::Place:
      return PlaceText(finding);
    case FindingsModel::What:
      return WhatText(finding);
    case FindingsModel::Limit:
      return finding.Limit;
    case FindingsModel::Source:
      return finding.Source;
    default:
      return finding.Accepted;
  }
}

}  // namespace

void FindingsModel::Show(std::vector<Finding> findings) {
  beginResetModel();
  findings_ = std::move(findings);
  endResetModel();
}

int FindingsModel::FindAgain(const Finding& finding, int row) const {
  const auto same = [&](const Finding& other) {
    return other.Rule == finding.Rule && other.Row == finding.Row && other.Hole == finding.Hole &&
           other.Notch == finding.Notch && other.Mark == finding.Mark && other.What == finding.What;
  };
  const auto found = std::find_if(findings_.begin(), findings_.end(), same);
  if (found != findings_.end()) return static_cast<int>(found - findings_.begin());
  return std::min(row, rowCount() - 1);
}

int FindingsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(findings_.size());
}

int FindingsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : Columns;
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const {
  const Finding& finding = At(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(TextOf(finding, index.column()));
    case Qt::ToolTipRole:
      return ToQt(FindingLine(finding));
    case Qt::FontRole: {
      QFont font;
      font.setBold(index.column() == What && IsOpenFault(finding));
      return font;
    }
    case Qt::SizeHintRole:
      // Of the height alone, which all rows share.
      return QSize(0, QFontMetrics(QFont()).height() * 3 / 2);
    default:
      return {};
  }
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  constexpr std::array<const char*, Columns> headings = {"Mark",      "Place",  "What is found",
                                                         "Should be", "Source", "Accepted"};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return headings.at(static_cast<std::size_t>(section));
}

}  // namespace orvane
