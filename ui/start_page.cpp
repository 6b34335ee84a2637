#include "ui/start_page.h"

#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollArea>
#include <QShortcutEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

#include "core/files.h"
#include "core/program_folder.h"
#include "project/recent_files.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int PageWidthLetters = 70;
constexpr int HeadingPercent = 130;  // of the text's size

// The samples lie beside the program.
constexpr std::string_view Samples = "\\samples";

// Recent jobs bear the first digits, samples the next ones, up to 9.
constexpr int LastDigit = 9;

// Enter presses it too, as people expect of a list of things to do. Its key acts at once: the
// toolkit's own button shows itself pressed for a while first.
class StartEntry : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  bool event(QEvent* event) override {
    const bool isKey = event->type() == QEvent::Shortcut;
    if (!isKey || static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
      return QToolButton::event(event);
    }
    click();
    return true;
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers() == Qt::NoModifier) {
      if (!event->isAutoRepeat()) click();
      return;
    }
    QToolButton::keyPressEvent(event);
  }
};

QLabel* Heading(const QString& text) {
  auto* label = new QLabel(text);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

// An "&" of a file's name isn't the mark of a key.
QString Literal(const QString& text) {
  return QString(text).replace("&", "&&");
}

// The entry of the menus that does it.
CommandEntry MenuEntry(Command command) {
  const std::vector<CommandEntry>& table = CommandTable();
  const auto found = std::find_if(table.begin(), table.end(), [&](const CommandEntry& entry) {
    return entry.What == command && !entry.Shortcut.empty();
  });
  return found == table.end() ? CommandEntry() : *found;
}

QString FirstKey(const CommandEntry& entry) {
  return ToQt(entry.Shortcut).section(';', 0, 0);
}

}  // namespace

StartPage::StartPage(std::function<void(Command, int)> run,
                     std::function<void(const std::string&)> openSample, QWidget* parent)
    : QWidget(parent), run_(std::move(run)), openSample_(std::move(openSample)) {
  setObjectName("StartPage");
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  const int line = fontMetrics().height();
  column->setContentsMargins(line * 2, line * 2, line * 2, line);
  column->setSpacing(line / 2);

  QLabel* title = Heading("Begin here");
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * HeadingPercent / 100);
  title->setFont(large);
  column->addWidget(title);
  auto* commands = new QGridLayout;
  commands->setColumnStretch(0, 1);
  struct First {
    Command What;
    const char* Name;
    const char* Caption;
  };
  for (const First& first : {First{Command::New, "cmdStartNew", "Start a new project"},
                             First{Command::Open, "cmdStartOpen", "Open a project..."}}) {
    const CommandEntry entry = MenuEntry(first.What);
    QToolButton* button =
        AddEntry(*commands, first.Name, first.Caption, FirstKey(entry), entry.Icon);
    connect(button, &QToolButton::clicked, this, [this, what = first.What] { run_(what, 0); });
    if (first_ == nullptr) first_ = button;
  }
  column->addLayout(commands);

  recent_ = new QWidget;
  auto* recent = new QVBoxLayout(recent_);
  recent->setContentsMargins(0, line, 0, 0);
  recent->addWidget(Heading("Recent jobs"));
  recentLines_ = new QGridLayout;
  recentLines_->setColumnStretch(0, 1);
  recent->addLayout(recentLines_);
  column->addWidget(recent_);

  auto samples = std::make_unique<QGridLayout>();
  samples->setColumnStretch(0, 1);
  AddSamples(*samples);
  if (samples->count() > 0) {
    column->addSpacing(line);
    column->addWidget(Heading("Samples, to try things out on a copy"));
    column->addLayout(samples.release());
  }

  column->addSpacing(line);
  auto* more =
      new QLabel(QString("A section can be added at once: %1. A job dropped on this window is "
                         "opened. %2 shows the help, with a first job step by step.")
                     .arg(ToQt(FamilyKeys()), FirstKey(MenuEntry(Command::HelpIndex))));
  more->setObjectName("lblStartMore");
  more->setWordWrap(true);
  column->addWidget(more);
  column->addStretch();
  page->setMaximumWidth(fontMetrics().averageCharWidth() * PageWidthLetters);

  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(page);
  scroll->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(scroll);
  // No paper: it has the colour of the window.
  setBackgroundRole(QPalette::Window);
  setAutoFillBackground(true);
  ShowRecent();
}

QToolButton* StartPage::AddEntry(QGridLayout& lines, const QString& name, const QString& caption,
                                 const QString& key, std::string_view icon) {
  auto* button = new StartEntry;
  button->setObjectName(name);
  button->setText(caption);
  button->setIcon(LineIcon(icon));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  button->setAccessibleDescription(key);
  const int row = lines.rowCount();
  lines.addWidget(button, row, 0);
  lines.addWidget(new QLabel(key), row, 1);
  return button;
}

void StartPage::AddSamples(QGridLayout& lines) {
  const QDir folder(ToQt(ProgramPath(Samples)));
  int digit = static_cast<int>(RecentFiles.size());
  for (const QFileInfo& sample : folder.entryInfoList({"*.ovd"}, QDir::Files, QDir::Name)) {
    if (++digit > LastDigit) return;
    QToolButton* button = AddEntry(lines, IndexedName("cmdStartSample", digit),
                                   QString("&%1  %2").arg(digit).arg(Literal(sample.fileName())),
                                   QString("Alt+%1").arg(digit), "open");
    const std::string path = FromQt(QDir::toNativeSeparators(sample.absoluteFilePath()));
    connect(button, &QToolButton::clicked, this, [this, path] { openSample_(path); });
  }
}

void StartPage::ShowRecent() {
  while (QLayoutItem* old = recentLines_->takeAt(0)) {
    // It may be the very button whose press led here.
    old->widget()->hide();
    old->widget()->setObjectName({});
    old->widget()->deleteLater();
    delete old;
  }
  for (int n = 1; n <= static_cast<int>(RecentFiles.size()); ++n) {
    const auto begin = RecentFiles.begin();
    const auto at = begin + (n - 1);
    // One that stands lower in the list too is named once.
    if (at->empty() || std::find(begin, at, *at) != at) continue;
    QToolButton* button = AddEntry(*recentLines_, IndexedName("cmdStartRecent", n),
                                   QString("&%1  %2").arg(n).arg(Literal(ToQt(RecentCaption(*at)))),
                                   QString("Alt+%1").arg(n), "open");
    button->setToolTip(ToQt(*at));
    connect(button, &QToolButton::clicked, this, [this, n] { run_(Command::Recent, n); });
  }
  recent_->setVisible(recentLines_->count() > 0);
}

}  // namespace orvane
