#include "ui/platform/help_window.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

#include "core/files.h"
#include "ui/platform/dialog_place.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr const char* FirstPage = "index.html";
constexpr int PageRole = Qt::UserRole;
constexpr QSize FirstSize(960, 640);
constexpr int ListLetters = 34;  // width of contents and index

QString NameOf(const QString& page) {
  return page.section('#', 0, 0);
}

// What the pages' own sheet of styles says that this browser understands, in the colours of the
// moment.
QString StyleSheet(const QPalette& palette) {
  return QString(
             "body { font-family: sans-serif; }"
             "h1 { font-size: 160%; } h2 { font-size: 125%; } h3 { font-size: 105%; }"
             "a { color: %1; }"
             "th, td { text-align: left; padding: 4px 12px 4px 0px; }"
             "pre, .note, .warning { background-color: %2; margin: 6px 0px; }"
             "pre, code, kbd { font-family: monospace; }")
      .arg(palette.color(QPalette::Link).name(), palette.color(QPalette::AlternateBase).name());
}

QString ReadText(const QString& path) {
  const std::string bytes = ReadWholeFile(FromQt(path));
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {}

// The browser takes only a link's own name for a place to go to, not that of a heading, and heads
// its tables' columns in the middle whatever the styles say. Nothing but the program's own files is
// loaded, whatever a page names.
QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::StyleSheetResource) return StyleSheet(palette());
  if (!name.isLocalFile()) return {};
  if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
  static const QRegularExpression named(
      R"re((<(?:h[1-6]|p|li|td|dt)\b[^>]*\sid="([^"]+)"[^>]*>))re");
  QVariant page;
  Guard([&] {
    QString html = ReadText(name.toLocalFile());
    html.replace(named, R"(\1<a name="\2"></a>)");
    html.replace("<table>", R"(<table cellpadding="3">)").replace("<th>", R"(<th align="left">)");
    page = html;
  });
  return page;
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  // Its style sheet holds colours.
  if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
}

HelpWindow::HelpWindow(const QString& folder) : folder_(folder), txtPage_(new HelpBrowser(this)) {
  setObjectName("frmHelp");
  setWindowTitle("Help");
  setWindowIcon(ProgramIcon());
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  setModal(false);
  auto* areas = new QSplitter(Qt::Horizontal);
  areas->addWidget(Lists());
  areas->addWidget(Pages());
  areas->setStretchFactor(1, 1);
  areas->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(areas);
  areas->setSizes({fontMetrics().averageCharWidth() * ListLetters, FirstSize.width()});
  resize(FirstSize);
  connect(txtPage_, &QTextBrowser::sourceChanged, this,
          [this](const QUrl& page) { Follow(page.fileName()); });
  txtPage_->setFocus();
}

QWidget* HelpWindow::Lists() {
  tabs_ = new QTabWidget;
  tabs_->setObjectName("tabHelp");
  tabs_->addTab(ContentsList(), "&Contents");
  tabs_->addTab(IndexList(), "I&ndex");
  tabs_->addTab(SearchList(), "&Search");
  // What is typed goes where the tab says.
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
    const std::vector<QWidget*> stops = {tvwContents_, txtIndex_, txtSearch_};
    if (tab >= 0) stops.at(static_cast<std::size_t>(tab))->setFocus();
  });
  return tabs_;
}

std::vector<HelpEntry> HelpWindow::ListOf(const char* name) const {
  std::vector<HelpEntry> entries;
  // The pages can be read without it.
  const std::string path = FromQt(folder_ + "/" + name);
  if (IsRegularFile(path)) Guard([&] { entries = ReadHelpList(ReadWholeFile(path)); });
  return entries;
}

QWidget* HelpWindow::ContentsList() {
  tvwContents_ = new QTreeWidget;
  tvwContents_->setObjectName("tvwContents");
  tvwContents_->setAccessibleName("Contents");
  tvwContents_->setHeaderHidden(true);
  std::vector<QTreeWidgetItem*> above = {tvwContents_->invisibleRootItem()};
  for (const HelpEntry& entry : ListOf("Lintaro.hhc")) {
    above.resize(std::min(above.size(), static_cast<std::size_t>(entry.Depth) + 1));
    auto* item = new QTreeWidgetItem(above.back(), {entry.Name});
    item->setData(0, PageRole, entry.Page);
    above.push_back(item);
  }
  tvwContents_->expandAll();
  const auto show = [this](const QTreeWidgetItem* item) {
    const QString page = item == nullptr ? QString() : item->data(0, PageRole).toString();
    if (!page.isEmpty()) ShowPage(page);
  };
  connect(tvwContents_, &QTreeWidget::itemClicked, this, show);
  connect(tvwContents_, &QTreeWidget::itemActivated, this, show);
  return tvwContents_;
}

QWidget* HelpWindow::IndexList() {
  auto* list = new QWidget;
  auto* column = new QVBoxLayout(list);
  txtIndex_ = new QLineEdit;
  txtIndex_->setObjectName("txtIndex");
  txtIndex_->setAccessibleName("Words of the index");
  txtIndex_->setPlaceholderText("Words of the index");
  lstIndex_ = new QListWidget;
  lstIndex_->setObjectName("lstIndex");
  lstIndex_->setAccessibleName("Index");
  column->addWidget(txtIndex_);
  column->addWidget(lstIndex_);
  index_ = ListOf("Lintaro.hhk");
  FillIndex();
  connect(txtIndex_, &QLineEdit::textChanged, this, [this] { FillIndex(); });
  const auto show = [this](const QListWidgetItem* item) {
    ShowPage(item->data(PageRole).toString());
  };
  connect(lstIndex_, &QListWidget::itemClicked, this, show);
  connect(lstIndex_, &QListWidget::itemActivated, this, show);
  connect(txtIndex_, &QLineEdit::returnPressed, this, [this, show] {
    if (lstIndex_->count() > 0) show(lstIndex_->item(0));
  });
  return list;
}

// Those that hold all words typed; all of them for none.
void HelpWindow::FillIndex() {
  const QString wanted = txtIndex_->text().trimmed();
  lstIndex_->clear();
  for (const HelpEntry& entry : index_) {
    if (!wanted.isEmpty() && !HasWords(entry.Name, wanted)) continue;
    auto* item = new QListWidgetItem(entry.Name, lstIndex_);
    item->setData(PageRole, entry.Page);
  }
}

QWidget* HelpWindow::SearchList() {
  auto* list = new QWidget;
  auto* column = new QVBoxLayout(list);
  txtSearch_ = new QLineEdit;
  txtSearch_->setObjectName("txtSearch");
  txtSearch_->setAccessibleName("Words to search for");
  txtSearch_->setPlaceholderText("Words to search for, then Enter");
  auto* lblFound = new QLabel;
  lblFound->setObjectName("lblFound");
  lstSearch_ = new QListWidget;
  lstSearch_->setObjectName("lstSearch");
  lstSearch_->setAccessibleName("Pages found");
  column->addWidget(txtSearch_);
  column->addWidget(lblFound);
  column->addWidget(lstSearch_);
  connect(txtSearch_, &QLineEdit::returnPressed, this, [this, lblFound] {
    Search();
    const int count = lstSearch_->count();
    lblFound->setText(count == 1 ? QString("1 page") : QString("%1 pages").arg(count));
    if (count == 0) return;
    lstSearch_->setCurrentRow(0);
    lstSearch_->setFocus();
  });
  const auto show = [this](const QListWidgetItem* item) { Found(*item); };
  connect(lstSearch_, &QListWidget::itemClicked, this, show);
  connect(lstSearch_, &QListWidget::itemActivated, this, show);
  return list;
}

QWidget* HelpWindow::Pages() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  auto* line = new QHBoxLayout;
  const auto add = [&](const char* name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    line->addWidget(button);
    return button;
  };
  cmdBack_ = add("cmdBack", "&Back");
  cmdForward_ = add("cmdForward", "&Forward");
  QPushButton* first = add("cmdFirst", "First &page");
  line->addStretch();
  txtPage_->setObjectName("txtPage");
  txtPage_->setAccessibleName("Page");
  column->addLayout(line);
  column->addWidget(txtPage_);
  cmdBack_->setEnabled(false);
  cmdForward_->setEnabled(false);
  connect(cmdBack_, &QPushButton::clicked, txtPage_, &QTextBrowser::backward);
  connect(cmdForward_, &QPushButton::clicked, txtPage_, &QTextBrowser::forward);
  connect(first, &QPushButton::clicked, this, [this] { ShowPage(FirstPage); });
  connect(txtPage_, &QTextBrowser::backwardAvailable, cmdBack_, &QPushButton::setEnabled);
  connect(txtPage_, &QTextBrowser::forwardAvailable, cmdForward_, &QPushButton::setEnabled);
  const auto key = [this](const QKeySequence& keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
  };
  key(QKeySequence(Qt::ALT | Qt::Key_Left), cmdBack_);
  key(QKeySequence(Qt::ALT | Qt::Key_Right), cmdForward_);
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] {
    tabs_->setCurrentIndex(tabs_->count() - 1);
    txtSearch_->setFocus();
    txtSearch_->selectAll();
  });
  return side;
}

void HelpWindow::ShowPage(const QString& page) {
  QUrl address = QUrl::fromLocalFile(folder_ + "/" + NameOf(page));
  if (page.contains('#')) address.setFragment(page.section('#', 1));
  txtPage_->setSource(address);
}

// The contents show where the page stands, the title what it is called.
void HelpWindow::Follow(const QString& page) {
  const QString title = txtPage_->documentTitle();
  setWindowTitle(title.isEmpty() ? QString("Help") : title + " - Help");
  for (QTreeWidgetItemIterator at(tvwContents_); *at != nullptr; ++at) {
    if (NameOf((*at)->data(0, PageRole).toString()) != page) continue;
    tvwContents_->setCurrentItem(*at);
    return;
  }
}

QString HelpWindow::TextOf(const QString& page) {
  const auto known = texts_.find(page);
  if (known != texts_.end()) return known->second;
  QString text;
  const QString path = folder_ + "/" + page;
  if (IsRegularFile(FromQt(path))) Guard([&] { text = PlainPage(ReadText(path)); });
  return texts_[page] = text;
}

// Pages of the contents, in their order.
void HelpWindow::Search() {
  lstSearch_->clear();
  const QString wanted = txtSearch_->text();
  for (QTreeWidgetItemIterator at(tvwContents_); *at != nullptr; ++at) {
    const QString page = NameOf((*at)->data(0, PageRole).toString());
    if (page.isEmpty() || !HasWords(TextOf(page), wanted)) continue;
    auto* item = new QListWidgetItem((*at)->text(0), lstSearch_);
    item->setData(PageRole, page);
  }
}

void HelpWindow::Found(const QListWidgetItem& item) {
  ShowPage(item.data(PageRole).toString());
  txtPage_->moveCursor(QTextCursor::Start);
  txtPage_->find(txtSearch_->text().trimmed().section(' ', 0, 0));
}

void HelpWindow::BelongTo(QWidget* modal) {
  if (modal == this || parentWidget() == modal) return;
  if (modal_) modal_->removeEventFilter(this);
  modal_ = modal;
  if (modal != nullptr) modal->installEventFilter(this);
  const QByteArray place = saveGeometry();
  const bool wasShown = isVisible();
  setParent(modal, windowFlags());
  restoreGeometry(place);
  setAttribute(Qt::WA_ShowWithoutActivating);
  if (wasShown) show();
  setAttribute(Qt::WA_ShowWithoutActivating, false);
}

// A modal window that closes takes its own with it, so that this leaves it in time.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == modal_ && event->type() == QEvent::Hide) BelongTo(nullptr);
  return QDialog::eventFilter(watched, event);
}

void ShowHelpWindow(const QString& folder, const QString& page) {
  static QPointer<HelpWindow> window;
  if (window == nullptr) {
    window = new HelpWindow(folder);
    // The application's last act, as no other window keeps it.
    QObject::connect(qApp, &QApplication::aboutToQuit, window, [] { delete window; });
  }
  window->BelongTo(QApplication::activeModalWidget());
  window->ShowPage(page);
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace orvane
