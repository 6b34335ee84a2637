// The accessory list of the main window: the whole catalogue, with a mark in front of what the
// project uses, and the way to the accessories' dialogs.
#pragma once

#include <QElapsedTimer>
#include <QListWidget>
#include <QMenu>
#include <cstdint>

#include "project/changes.h"
#include "ui/commands.h"

namespace orvane {

// Bears the name lstAccessories. Entry i, from 0, stands for row i + 1 of AccDefs.
class AccessoryChooser : public QListWidget {
 public:
  explicit AccessoryChooser(QWidget* parent = nullptr);

  void FillAccessoryList();
  void SetAccUsage();
  void ClearAccUsage();

  // The dialog of the selected accessory; nothing opens without one. Unless the dialog was left
  // without a change, the mark of that one entry follows.
  void EditAccessories();
  // The project loses all lines of the selected accessory, without a question.
  void ClearAccessory();

  // Typed letters lead to the next name that begins with them, the mark left aside; the same letter
  // again leads on from there.
  void keyboardSearch(const QString& typed) override;

 protected:
  // The user's arrival counts as a change of the project, deliberately; the way back from a menu, a
  // dialog or another program doesn't.
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildMenu();
  void Follow(const ChangeNotice& change);
  // Row of AccDefs; 0 when nothing is selected.
  std::int16_t Selected() const;
  void SelectAt(QPoint place);
  void ShowMenu(QPoint globalPos);
  void ShowMenuAtEntry();
  bool ListKey(const QKeyEvent& key);
  void Run(Command command);

  QMenu* mnuAccPU = nullptr;
  QString sought_;  // the letters typed one behind the other
  QElapsedTimer lastLetter_;
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
