// A plain list combo box that changes its choice only when the user means it. What is typed over it
// is kept and shown until it names an entry, and nothing is chosen before; a turn of the wheel over
// the closed box is passed on.
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <functional>
#include <string>

#include "core/table.h"
#include "ui/controls/plain_combo_access.h"
#include "ui/controls/typed_letters.h"

namespace orvane {

// What leaving a list did: nothing without typed letters, a choice, or none as they leave it open.
enum class ListLeft { Untouched, Chosen, Undecided };

// The user's choice, by whatever way, is told by the toolkit's signal `activated`.
class PlainCombo : public QComboBox, public ListForReaders {
 public:
  explicit PlainCombo(QWidget* parent = nullptr);

  // Quiet doors: no notification, as filling and showing must not count as the user's choice. They
  // end what is typed, and the refused look.
  void Fill(const Table<std::string>& entries);  // ends at index -1
  void SelectQuietly(int index);

  // All entries, rows counted from 1.
  Table<std::string> Entries() const;
  std::string Text() const;  // of the selection; empty without one

  // Typed letters stay, at any pace, until Enter, Tab or leaving chooses by them, an arrow takes
  // the entry shown behind them, or Esc drops them.
  const TypedLetters& Typed() const { return typed_; }
  // What the closed box shows: the letters and the rest of the first entry that fits, else the
  // selection.
  QString ShownText() const override;
  // Ends what is typed and the refused look; nothing is chosen or told.
  void DropLetters();

  // What leaving the list does to the letters; for commands, which don't move the focus, and for
  // whoever lays the list over a cell and moves it. The letters end in any case; undecided, the old
  // entry shows again with the refused look, until the list is next entered.
  ListLeft Leave();
  // Told when the list was left undecided, with the reason.
  std::function<void(const QString& reason)> LeftUndecided;
  // The look of a list that was left undecided, for whoever shows the same field again.
  void ShowRefusal(const QString& reason);
  // Told when such a refusal ends: the list was entered again, or an entry was chosen.
  std::function<void()> RefusalEnded;

  // For a list that lies over a cell, whose keys go to the cell first: true when the key is Enter
  // or Tab and the letters leave the choice open, so that the cursor stays with them. Where they
  // name an entry it is chosen, and the key goes on.
  bool HoldsCursor(const QKeyEvent& key);

  // The keys by which the toolkit would choose another entry of the closed list. Alt and Down opens
  // it, and letters search.
  static bool ChoosesByKey(const QKeyEvent& key);

  bool IsOpen() const override { return view()->isVisible(); }
  // With a scroll bar, and no higher than half the screen.
  void showPopup() override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;  // the keys of the open list
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool TypingKey(const QKeyEvent& key);
  bool ListKey(QKeyEvent& key);
  bool TypeLetter(const QKeyEvent& key);
  void FollowLetters();
  void MarkFirst();
  void Choose(int index);
  void TellPosted();
  bool IsCut() const;
  void EndRefusal();
  void TellValue();

  TypedLetters typed_;
  bool left_ = false;    // undecided, and not entered since
  bool posted_ = false;  // a choice made by a change of focus is still to be told
};

}  // namespace orvane
