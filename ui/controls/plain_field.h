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

  // What is entered: a text, typed or pasted, as its form takes it; what is pasted is made one line
  // and put in at the cursor. Or a number of that form, of what is pasted alone, which takes the
  // place of all that stands in the field, since figures beside it would make it
  // another. One that the field can't take changes nothing; the field bears the refused look and
  // its tip the reason, until its text changes or it is left.
  void TakeText(TextForm form) {
    number_.reset();
    form_ = form;
  }
  void TakePastedNumber(NumberForm form) {
    number_ = form;
    form_ = TextForm::Any;
  }

  // What the clipboard holds comes in at the cursor, as by the key.
  void PasteClipboard() { PasteFrom(QClipboard::Clipboard); }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void PasteFrom(QClipboard::Mode mode);
  bool TakePasted(const QString& pasted);
  void Refuse(const QString& reason);

  // The text as the field takes it; none, with the refused look, if it doesn't.
  std::optional<QString> Entered(const QString& text);

  TextForm form_ = TextForm::Any;
  std::optional<NumberForm> number_;
  bool clickedInto_ = false;  // by a press that isn't over yet
  QPoint pressedAt_;
};

}  // namespace orvane
