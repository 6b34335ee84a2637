#include "ui/controls/plain_combo_access.h"

#include <QAccessibleWidget>

#include "ui/controls/plain_combo.h"
#include "ui/controls/refused_look.h"

namespace orvane {

namespace {

class ListAccess : public QAccessibleWidget {
 public:
  explicit ListAccess(PlainCombo* list)
      : QAccessibleWidget(list, QAccessible::ComboBox), list_(*list) {}

  QString text(QAccessible::Text what) const override {
    if (what == QAccessible::Value) return list_.ShownText();
    if (what == QAccessible::Description && IsFieldRefused(list_)) return RefusalOf(list_);
    return QAccessibleWidget::text(what);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.expanded = list_.IsOpen();
    state.collapsed = !list_.IsOpen();
    return state;
  }

  QStringList actionNames() const override {
    return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action != showMenuAction()) {
      QAccessibleWidget::doAction(action);
    } else if (list_.IsOpen()) {
      list_.hidePopup();
    } else {
      list_.showPopup();
    }
  }

 private:
  PlainCombo& list_;
};

// The toolkit asks for the class of an object and for each class under it; the object itself tells.
QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* list = dynamic_cast<PlainCombo*>(object);
  return list == nullptr ? nullptr : new ListAccess(list);  // the toolkit keeps it
}

}  // namespace

void TellListsToReaders() {
  static const bool told = [] {
    QAccessible::installFactory(MakeAccess);
    return true;
  }();
  static_cast<void>(told);
}

}  // namespace orvane
