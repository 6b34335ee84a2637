#include "ui/controls/plain_combo_access.h"

#include <QAccessibleWidget>
#include <QComboBox>

#include "ui/controls/refused_look.h"

namespace orvane {

namespace {

class ListAccess : public QAccessibleWidget {
 public:
  ListAccess(QComboBox& list, const ListForReaders& told)
      : QAccessibleWidget(&list, QAccessible::ComboBox), list_(list), told_(told) {}

  QString text(QAccessible::Text what) const override {
    if (what == QAccessible::Value) return told_.ShownText();
    if (what == QAccessible::Description && IsFieldRefused(list_)) return RefusalOf(list_);
    return QAccessibleWidget::text(what);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.expanded = told_.IsOpen();
    state.collapsed = !told_.IsOpen();
    return state;
  }

  QStringList actionNames() const override {
    return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action != showMenuAction()) {
      QAccessibleWidget::doAction(action);
    } else if (told_.IsOpen()) {
      list_.hidePopup();
    } else {
      list_.showPopup();
    }
  }

 private:
  QComboBox& list_;
  const ListForReaders& told_;
};

// The toolkit asks for the class of an object and for each class under it; the object itself tells.
QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
  auto* list = qobject_cast<QComboBox*>(object);
  const auto* told = dynamic_cast<const ListForReaders*>(object);
  if (list == nullptr || told == nullptr) return nullptr;
  return new ListAccess(*list, *told);  // the toolkit keeps it
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
