#include "ui/controls/document_view.h"

#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "core/numbers.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr double MmOfAnInch = 25.4;

// A typed page number; what is no number is none.
int PageNumber(const QString& text) {
  return Whole(std::clamp(Val(FromQt(text)), 0.0, 32767.0));
}

}  // namespace

DocumentView::DocumentView(QWidget* parent) : QWidget(parent) {
  pages_ = new DocumentPages(this);
  pages_->setObjectName("pages");
  pages_->setAccessibleName("Pages");
  auto* bar = new QWidget(this);
  bar->setObjectName("bar");
  const int gap = fontMetrics().height() / 3;
  bar_ = new QHBoxLayout(bar);
  bar_->setContentsMargins(gap * 2, gap, gap * 2, gap);
  bar_->setSpacing(gap);
  BuildPageKeys();
  bar_->addStretch();
  BuildZoomKeys();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(pages_, 1);
  layout->addWidget(bar);
  setFocusProxy(pages_);
  pages_->Changed = [this] { Guard([this] { ShowState(); }); };
  ShowState();
}

QToolButton* DocumentView::AddButton(const QString& name, const QString& text, const QString& tip) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  bar_->addWidget(button);
  return button;
}

void DocumentView::BuildPageKeys() {
  cmdPrevious_ = AddButton("cmdPrevious", "", "Previous page");
  cmdPrevious_->setArrowType(Qt::UpArrow);
  connect(cmdPrevious_, &QToolButton::clicked, this,
          [this] { Guard([this] { pages_->GoTo(pages_->CurrentPage() - 1); }); });
  cmdNext_ = AddButton("cmdNext", "", "Next page");
  cmdNext_->setArrowType(Qt::DownArrow);
  connect(cmdNext_, &QToolButton::clicked, this,
          [this] { Guard([this] { pages_->GoTo(pages_->CurrentPage() + 1); }); });
  auto* caption = new QLabel("Pa&ge", this);
  auto* page = new PlainField(this);
  page->TakePastedNumber(NumberForm::Whole);
  txtPage_ = page;
  txtPage_->setObjectName("txtPage");
  txtPage_->setAlignment(Qt::AlignRight);
  txtPage_->setMaxLength(5);
  txtPage_->setFixedWidth(fontMetrics().horizontalAdvance("000000") + fontMetrics().height());
  caption->setBuddy(txtPage_);
  lblPages_ = new QLabel(this);
  lblPages_->setObjectName("lblPages");
  for (QWidget* widget : std::initializer_list<QWidget*>{caption, txtPage_, lblPages_}) {
    bar_->addWidget(widget);
  }
  connect(txtPage_, &QLineEdit::returnPressed, this, [this] { Guard([this] { GoToTyped(); }); });
  connect(txtPage_, &QLineEdit::editingFinished, this,
          [this] { Guard([this] { ShowPageNumber(); }); });
}

void DocumentView::BuildZoomKeys() {
  QToolButton* smaller = AddButton("cmdZoomOut", "\u2212", "Smaller (-)");
  connect(smaller, &QToolButton::clicked, this, [this] { Guard([this] { pages_->ZoomOut(); }); });
  cmdZoom_ = AddButton("cmdZoom", "", "True size (1)");
  cmdZoom_->setMinimumWidth(fontMetrics().horizontalAdvance("0000 %") + fontMetrics().height());
  connect(cmdZoom_, &QToolButton::clicked, this,
          [this] { Guard([this] { pages_->ShowTrueSize(); }); });
  QToolButton* larger = AddButton("cmdZoomIn", "+", "Larger (+)");
  connect(larger, &QToolButton::clicked, this, [this] { Guard([this] { pages_->ZoomIn(); }); });
  cmdFitWidth_ = AddButton("cmdFitWidth", "Fit &Width", "The page as wide as the window (2)");
  cmdFitPage_ = AddButton("cmdFitPage", "Fit &Page", "The whole page in the window (0)");
  for (QToolButton* fit : {cmdFitWidth_, cmdFitPage_}) fit->setCheckable(true);
  connect(cmdFitWidth_, &QToolButton::clicked, this,
          [this] { Guard([this] { pages_->FitWidth(); }); });
  connect(cmdFitPage_, &QToolButton::clicked, this, [this] { Guard([this] { pages_->Fit(); }); });
}

void DocumentView::ShowDocument(const Document* document) {
  pages_->ShowDocument(document);
  ShowState();
}

void DocumentView::AddCommand(QAction* action) {
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  bar_->insertWidget(commands_++, button);
  bar_->insertSpacing(commands_++, fontMetrics().height());
}

// A key that the bar has left over.
void DocumentView::keyPressEvent(QKeyEvent* event) {
  bool taken = false;
  Guard([&] { taken = pages_->TakeKey(*event); });
  if (taken) return event->accept();
  QWidget::keyPressEvent(event);
}

// What the bar shows of the pages.
void DocumentView::ShowState() {
  const int page = pages_->CurrentPage();
  const int count = pages_->PageCount();
  cmdPrevious_->setEnabled(page > 1);
  cmdNext_->setEnabled(page < count);
  txtPage_->setEnabled(count > 0);
  // A number that is being typed stays.
  if (!txtPage_->isModified() || !txtPage_->hasFocus()) ShowPageNumber();
  lblPages_->setText(ToQt("of " + DecimalText(count)));
  const double percent = pages_->PixelsPerMm() * MmOfAnInch / logicalDpiX() * 100;
  cmdZoom_->setText(count == 0 ? "" : ToQt(DecimalText(Whole(percent)) + " %"));
  cmdFitWidth_->setChecked(pages_->Zoom() == PageZoom::FitWidth);
  cmdFitPage_->setChecked(pages_->Zoom() == PageZoom::FitPage);
}

void DocumentView::ShowPageNumber() {
  const int page = pages_->CurrentPage();
  txtPage_->setText(page == 0 ? "" : ToQt(DecimalText(page)));
}

void DocumentView::GoToTyped() {
  const int page = PageNumber(txtPage_->text());
  txtPage_->setModified(false);
  if (page > 0) pages_->GoTo(page);
  ShowPageNumber();
  pages_->setFocus();
}

}  // namespace orvane
