// A document to be read on the screen: its pages, and a bar below them.
#pragma once

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

#include "ui/controls/document_pages.h"

namespace orvane {

// The bar shows and takes the number of the page, and has buttons for the pages and the zoom. The
// keys of the pages work from it too, as far as its field and buttons have no use for them.
class DocumentView : public QWidget {
 public:
  explicit DocumentView(QWidget* parent = nullptr);

  // As DocumentPages::ShowDocument.
  void ShowDocument(const Document* document);
  DocumentPages& Pages() { return *pages_; }

  // A button for the action at the beginning of the bar, and its shortcut in the whole window.
  void AddCommand(QAction* action);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* AddButton(const QString& name, const QString& text, const QString& tip);
  void BuildPageKeys();
  void BuildZoomKeys();
  void ShowState();
  void ShowPageNumber();
  void GoToTyped();

  DocumentPages* pages_ = nullptr;
  QHBoxLayout* bar_ = nullptr;
  int commands_ = 0;  // places of the bar that commands and the gaps behind them take
  QToolButton* cmdPrevious_ = nullptr;
  QToolButton* cmdNext_ = nullptr;
  QLineEdit* txtPage_ = nullptr;
  QLabel* lblPages_ = nullptr;
  QToolButton* cmdZoom_ = nullptr;
  QToolButton* cmdFitWidth_ = nullptr;
  QToolButton* cmdFitPage_ = nullptr;
};

}  // namespace orvane
