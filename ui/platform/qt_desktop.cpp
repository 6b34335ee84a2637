#include "ui/platform/qt_desktop.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QtEndian>
#include <algorithm>
#include <vector>

#include "core/runtime_error.h"
#include "core/settings_file.h"
#include "core/system_dates.h"
#include "ui/platform/file_dialog.h"
#include "ui/platform/help_viewer.h"
#include "ui/platform/qt_lock.h"
#include "ui/platform/qt_text.h"

#ifdef Q_OS_WIN
#include "core/settings_registry.h"
#endif

namespace orvane {

namespace {

// A menu, an open list and a tip go by themselves, and what they own goes with them. So no dialog
// belongs to one, but to the window that it came from; none if there is no such window.
QWidget* WithoutPopups(QWidget* window) {
  const auto goesByItself = [](const QWidget& each) {
    return each.windowType() == Qt::Popup || each.windowType() == Qt::ToolTip;
  };
  while (window != nullptr && goesByItself(*window)) {
    QWidget* parent = window->parentWidget();
    window = parent == nullptr ? nullptr : parent->window();
  }
  return window;
}

// The window that a dialog belongs to.
QWidget* OwnerWindow() {
  if (QWidget* modal = WithoutPopups(QApplication::activeModalWidget())) return modal;
  if (QWidget* active = WithoutPopups(QApplication::activeWindow())) return active;
  // Another program is in front.
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

// Puts off what is to be deleted later until it has gone itself. A pop-up of a field that has just
// chosen an entry is such an object, and still at work on it.
class DeletionStay : public QObject {
 public:
  DeletionStay() { QCoreApplication::instance()->installEventFilter(this); }
  ~DeletionStay() override {
    for (const QPointer<QObject>& object : putOff_) {
      if (object) object->deleteLater();
    }
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::DeferredDelete) return false;
    putOff_.emplace_back(watched);
    return true;
  }

 private:
  std::vector<QPointer<QObject>> putOff_;
};

// Opens the way for a dialog and puts the focus back where it was when the dialog has gone.
class DialogStay {
 public:
  DialogStay() : owner_(OwnerWindow()), focus_(QApplication::focusWidget()) {
    ClosePopups();
    if (focus_ == nullptr && owner_ != nullptr) focus_ = owner_->focusWidget();
  }
  ~DialogStay() {
    if (owner_ == nullptr || !owner_->isVisible()) return;
    owner_->activateWindow();
    if (focus_ != nullptr && focus_->isVisible() && focus_->window() == owner_) {
      focus_->setFocus(Qt::ActiveWindowFocusReason);
    }
  }
  DialogStay(const DialogStay&) = delete;
  DialogStay& operator=(const DialogStay&) = delete;

  QWidget* Owner() const { return owner_; }

 private:
  // A menu over a menu too; one that won't go stays.
  static void ClosePopups() {
    while (QWidget* popup = QApplication::activePopupWidget()) {
      popup->close();
      if (QApplication::activePopupWidget() == popup) return;
    }
  }

  QPointer<QWidget> owner_;
  QPointer<QWidget> focus_;
};

// The toolkit's side of a set of buttons: which one Enter presses at once, which one Escape and the
// window's frame stand for.
struct ButtonSet {
  Buttons Choice;
  QMessageBox::StandardButtons Shown;
  QMessageBox::StandardButton Default;
  QMessageBox::StandardButton Escape;
};
constexpr ButtonSet ButtonSets[] = {
    {Buttons::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    {Buttons::YesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No},
    {Buttons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
     QMessageBox::Yes, QMessageBox::Cancel},
};

Answer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      return Answer::Ok;
  }
}

// Lines of text that a window's frame needs beside the title, for its icon and buttons.
constexpr int FrameLines = 7;

// The text with places to break each word that the screen has no room for: a path or a mark can be
// one of any length, and the toolkit breaks a text between words only. A box makes itself as wide
// as any other word, which then can be copied as it stands.
QString Breakable(const QString& text, const QMessageBox& box) {
  constexpr QChar mayBreak(0x200B);  // has no width
  const int most =
      box.screen()->availableSize().width() - 2 * FrameLines * box.fontMetrics().height();
  QString broken;
  qsizetype at = 0;
  while (at < text.size()) {
    qsizetype end = at;
    while (end < text.size() && !text.at(end).isSpace()) ++end;
    const QString word = text.mid(at, end - at);
    if (box.fontMetrics().horizontalAdvance(word) > most) {
      for (const QChar letter : word) {
        broken += letter;
        if (!letter.isHighSurrogate()) broken += mayBreak;
      }
    } else {
      broken += word;
    }
    if (end < text.size()) broken += text.at(end);
    at = end + 1;
  }
  return broken;
}

// Makes the box as wide as its title in the frame, as far as the screen has room. Frames write it
// in a bold font.
void WidenForTitle(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  QFont font = box.font();
  font.setBold(true);
  const int line = box.fontMetrics().height();
  const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + FrameLines * line;
  const int most = box.screen()->availableSize().width() - FrameLines * line;
  // A row of its own: a least width of the label would be taken for the width of its text.
  auto* room = new QSpacerItem(std::min(width, most), 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
  grid->addItem(room, grid->rowCount(), 0, 1, grid->columnCount());
}

QString WithLineEnds(const std::string& text) {
  return ToQt(text).replace("\r\n", "\n").replace('\r', '\n');
}

}  // namespace

namespace {

// The key that brought up a question doesn't answer it too while it is held down.
class MessageBox : public QMessageBox {
 public:
  MessageBox(const std::string& text, const std::string& title, QWidget* owner)
      : QMessageBox(owner) {
    setObjectName("MessageBox");
    setWindowTitle(title.empty() ? QGuiApplication::applicationDisplayName() : ToQt(title));
    setTextFormat(Qt::PlainText);
    setText(Breakable(WithLineEnds(text), *this));
  }

  // Shows it with the buttons that it has.
  int Run() {
    const int line = fontMetrics().height();
    layout()->setContentsMargins(line, line, line, line);
    WidenForTitle(*this);
    return exec();
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!event->isAutoRepeat()) QMessageBox::keyPressEvent(event);
  }
};

}  // namespace

Answer QtDesktop::ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                                 Icon icon) {
  const DialogStay stay;
  MessageBox box(text, title, stay.Owner());
  box.setIcon(icon == Icon::Stop ? QMessageBox::Critical : QMessageBox::NoIcon);
  for (const ButtonSet& set : ButtonSets) {
    if (set.Choice != buttons) continue;
    box.setStandardButtons(set.Shown);
    box.setDefaultButton(set.Default);
    box.setEscapeButton(set.Escape);
  }
  return AnswerOf(box.Run());
}

int QtDesktop::Choose(const std::string& text, const std::string& title,
                      const std::vector<std::string>& answers) {
  const DialogStay stay;
  MessageBox box(text, title, stay.Owner());
  std::vector<QAbstractButton*> buttons;
  for (const std::string& answer : answers) {
    // The same part for each but the last, so that they stay in their order.
    const bool last = buttons.size() + 1 == answers.size();
    buttons.push_back(
        box.addButton(ToQt(answer), last ? QMessageBox::RejectRole : QMessageBox::AcceptRole));
  }
  box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));
  box.setEscapeButton(buttons.back());
  box.Run();
  const auto pressed = std::find(buttons.begin(), buttons.end(), box.clickedButton());
  return static_cast<int>(std::min(pressed, buttons.end() - 1) - buttons.begin());
}

std::optional<std::string> QtDesktop::ShowOpenDialog(const FileDialog& dialog) {
  const DialogStay stay;
  return AskForFile(dialog, DialogForm::Open, stay.Owner());
}

std::optional<std::string> QtDesktop::ShowSaveDialog(const FileDialog& dialog) {
  const DialogStay stay;
  return AskForFile(dialog, DialogForm::Save, stay.Owner());
}

std::optional<std::string> QtDesktop::ShowFolderDialog(const std::string& title,
                                                       const std::string& initialFolder) {
  const DialogStay stay;
  const QString chosen =
      QFileDialog::getExistingDirectory(stay.Owner(), ToQt(title), ToQt(initialFolder));
  if (chosen.isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(chosen));
}

void QtDesktop::ProcessEvents() {
  const DeletionStay stay;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::string QtDesktop::ShortDateForm() const {
  return SystemShortDateForm();
}

void QtDesktop::ShowHelp(const std::string& file) {
  const QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr) window = QApplication::activeWindow();
  StartHelp(file, window == nullptr ? std::string() : FromQt(window->objectName()));
}

std::string QtDesktop::UserDataFolder() {
  const QString folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Lintaro";
  QDir().mkpath(folder);
  return FromQt(QDir::toNativeSeparators(folder));
}

std::string QtDesktop::Compress(std::string_view bytes) {
  const QByteArray packed =
      qCompress(reinterpret_cast<const uchar*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  return packed.toStdString();
}

std::string QtDesktop::Decompress(std::string_view bytes) {
  // The length that it will have stands in front; a damaged one must not ask for all memory.
  constexpr quint32 most = quint32{1} << 30;
  constexpr std::size_t lengthBytes = sizeof(quint32);
  const bool hasLength = bytes.size() >= lengthBytes;
  const quint32 length = hasLength ? qFromBigEndian<quint32>(bytes.data()) : most + 1;
  QByteArray whole;
  if (length <= most) {
    whole = qUncompress(reinterpret_cast<const uchar*>(bytes.data()),
                        static_cast<qsizetype>(bytes.size()));
  }
  if (length > most || static_cast<quint32>(whole.size()) != length) {
    throw RuntimeError(Failure::TypeMismatch, "The file is damaged");
  }
  return whole.toStdString();
}

LaidLock QtDesktop::LayLock(const std::string& path, LockOfOthers others) {
  return LayLockFile(path, others);
}

Moment QtDesktop::Now() const {
  return LocalMoment();
}

std::unique_ptr<SettingsStore> UserSettings() {
#ifdef Q_OS_WIN
  return std::make_unique<RegistrySettings>();
#else
  return std::make_unique<FileSettings>(UserSettingsPath());
#endif
}

}  // namespace orvane
