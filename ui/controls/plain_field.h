// A field of one line, as a person expects it: a click into it selects its text, as the Tab key
// does, so that what is typed takes the place of what stood there; and whatever is pasted, by key,
// pop-up, drop or middle button, comes in as the field takes it or not at all.
#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <optional>

#include "core/pasted_text.h"

namespace orvane {

class PlainField : public QLineEdit {
 public:
  explicit PlainField(QWidget* parent = nullptr);

  // What is pasted: a text, made one line and put in at the cursor, or a number of that form. A
  // number takes the place of all that stands in the field, since figures beside it would make it
  // another. One that the field can't take changes nothing; the field bears the refused look and
  // its tip the reason, until its text changes or it is left.
  void TakePastedText() { number_.reset(); }
  void TakePastedNumber(NumberForm form) { number_ = form; }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void PasteFrom(QClipboard::Mode mode);
  bool TakePasted(const QString& pasted);
  void Refuse(const QString& reason);

  std::optional<NumberForm> number_;
  bool clickedInto_ = false;  // by a press that isn't over yet
  QPoint pressedAt_;
};

}  // namespace orvane
