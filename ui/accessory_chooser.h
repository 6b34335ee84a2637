// The accessory list of the main window: the whole catalogue, with a mark in front of what the
// project uses, and the way to the accessories' dialogs.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <cstdint>

#include "project/changes.h"
#include "ui/commands.h"
#include "ui/controls/typed_letters.h"

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
  // The dialog of a line's accessory, the cursor in that cell of it. `line` is a row of AccLines2;
  // nothing opens for one of an accessory that the catalogue hasn't got.
  void EditLine(int line, int column);
  // The project loses all lines of the selected accessory, without a question.
  void ClearAccessory();

  // The label beside the list's caption that shows what is typed. Called once.
  QLabel* NewLettersLabel(QWidget* parent);

  // Typed letters lead to the first name that begins with them, the mark left aside. They stay, at
  // any pace, until Enter, Tab or leaving takes the one name that they tell, an arrow takes the
  // name shown, or Esc drops them; as long as they tell no one name, nothing is done to any.
  const TypedLetters& Typed() const { return typed_; }
  void keyboardSearch(const QString& typed) override;
  // What leaving the list does to them. False when they leave open which name was meant: the former
  // selection is back, and the list has the refused look until it is next entered.
  bool SettleSearch();
  // True from then until the list is next entered; and the focus put into it, with which it counts
  // as entered.
  bool IsUndecided() const { return undecided_; }
  void EnterUndecided();
  // The letters go and nothing is said of them, as another job takes the place of this one.
  void DropSearch();

 protected:
  bool event(QEvent* event) override;
  // The user's arrival counts as a change of the project, since whoever comes here means to change
  // it; the way back from a menu, a dialog or another program doesn't.
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
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
  bool SearchKey(const QKeyEvent& key);
  bool HoldsCursor();
  void FollowLetters();
  void EndSearch();
  void Accept();

  QMenu* mnuAccPU_ = nullptr;
  QLabel* lblTyped_ = nullptr;
  TypedLetters typed_;
  bool undecided_ = false;
  int formerRow_ = -1;  // the selection before the first letter, counted from 0; -1 for none
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
