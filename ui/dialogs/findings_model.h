// The findings of the design check as rows of a list.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "output/design_finding.h"

namespace orvane {

class FindingsModel : public QAbstractTableModel {
 public:
  enum Column { Mark, Place, What, Limit, Source, Accepted, Columns };

  using QAbstractTableModel::QAbstractTableModel;

  void Show(std::vector<Finding> findings);
  const Finding& At(int row) const { return findings_.at(static_cast<std::size_t>(row)); }
  // The row that shows the same finding; of one that has gone the row that has come into its place,
  // which is `row` or the last; -1 for none.
  int FindAgain(const Finding& finding, int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<Finding> findings_;
};

}  // namespace orvane
