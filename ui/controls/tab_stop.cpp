#include "ui/controls/tab_stop.h"

#include <QAbstractButton>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

void MoveTabStop(const QButtonGroup& group) {
  const QAbstractButton* checked = group.checkedButton();
  // Without one any may be come to.
  if (checked == nullptr) return;
  for (QAbstractButton* button : group.buttons()) {
    button->setFocusPolicy(button == checked ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace

void KeepTabAtChecked(QButtonGroup& group) {
  MoveTabStop(group);
  QObject::connect(&group, &QButtonGroup::idToggled, &group,
                   [&group] { Guard([&] { MoveTabStop(group); }); });
}

}  // namespace orvane
