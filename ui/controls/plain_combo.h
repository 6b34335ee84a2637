// A plain list combo box that changes its choice only when the user means it: a turn of the wheel
// over the closed box is passed on.
#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <string>

#include "core/table.h"

namespace orvane {

class PlainCombo : public QComboBox {
 public:
  explicit PlainCombo(QWidget* parent = nullptr) : QComboBox(parent) {
    setEditable(false);
    setFocusPolicy(Qt::StrongFocus);
  }

  // Quiet doors: no notification, as filling and showing must not count as the user's choice.
  void Fill(const Table<std::string>& entries);  // ends at index -1
  void SelectQuietly(int index);

  // All entries, rows counted from 1.
  Table<std::string> Entries() const;
  std::string Text() const;  // of the selection; empty without one

  // What was typed before is no part of the search for an entry any more; so it is whenever the
  // focus comes.
  void SearchAfresh();

  // The keys by which the toolkit would choose another entry of the closed list. Alt and Down opens
  // it, and letters search.
  static bool ChoosesByKey(const QKeyEvent& key);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  // A blank typed behind letters goes on with the search for an entry, "Butt 1".
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QElapsedTimer lastLetter_;
  bool searchesAfresh_ = false;
};

}  // namespace orvane
