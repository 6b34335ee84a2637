// Areas one below the other with a bar between each two. Until a bar is moved, what the areas leave
// free above their least heights is shared out in a fixed ratio; from then on they keep the shares
// that they were given by hand, in a window of another height too.
#pragma once

#include <QList>
#include <QSplitter>
#include <vector>

namespace orvane {

class AreaSplitter : public QSplitter {
 public:
  // The shares by hand add up to that.
  static constexpr int WholeShare = 1000;

  explicit AreaSplitter(QWidget* parent);

  // Adds an area at the lower end, with its part of the free height.
  void AddArea(QWidget* area, int part);

  // What each area takes of the height, from top to bottom; none until a bar was moved.
  const QList<int>& Shares() const { return shares_; }
  // As if the bars had been moved there; shares of another number or sum, or none at all for an
  // area, change nothing.
  void SetShares(const QList<int>& shares);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BarMoved();
  void LayAreas();

  std::vector<int> parts_;  // of the free height, from top to bottom
  QList<int> shares_;
};

}  // namespace orvane
