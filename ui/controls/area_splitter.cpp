#include "ui/controls/area_splitter.h"

#include <algorithm>
#include <numeric>

#include "ui/platform/guard.h"

namespace orvane {

AreaSplitter::AreaSplitter(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
  setChildrenCollapsible(false);
  connect(this, &QSplitter::splitterMoved, this, [this] { Guard([&] { BarMoved(); }); });
}

void AreaSplitter::AddArea(QWidget* area, int part) {
  addWidget(area);
  parts_.push_back(part);
}

void AreaSplitter::SetShares(const QList<int>& shares) {
  const bool each = std::all_of(shares.begin(), shares.end(), [](int share) { return share > 0; });
  if (!each || shares.size() != count()) return;
  if (std::accumulate(shares.begin(), shares.end(), 0) != WholeShare) return;
  shares_ = shares;
  LayAreas();
}

void AreaSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  Guard([&] { LayAreas(); });
}

void AreaSplitter::BarMoved() {
  const QList<int> heights = sizes();
  const int whole = std::max(1, std::accumulate(heights.begin(), heights.end(), 0));
  shares_.clear();
  int left = WholeShare;
  for (int area = 0; area < heights.size() - 1; ++area) {
    shares_.append(heights.at(area) * WholeShare / whole);
    left -= shares_.last();
  }
  shares_.append(left);
}

void AreaSplitter::LayAreas() {
  if (!shares_.empty()) {
    setSizes(shares_);
    return;
  }
  QList<int> heights;
  for (int area = 0; area < count(); ++area) {
    heights.append(
        std::max(widget(area)->minimumHeight(), widget(area)->minimumSizeHint().height()));
  }
  const int bars = (count() - 1) * handleWidth();
  const int needed = std::accumulate(heights.begin(), heights.end(), 0);
  const int free = std::max(0, height() - bars - needed);
  const int parts = std::accumulate(parts_.begin(), parts_.end(), 0);
  for (int area = 0; area < count(); ++area) {
    heights[area] += free * parts_.at(static_cast<std::size_t>(area)) / parts;
  }
  setSizes(heights);
}

}  // namespace orvane
