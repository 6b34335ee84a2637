#include "ui/platform/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QTreeView>
#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>

#include "core/text.h"
#include "ui/platform/content_area.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The folder of the file last chosen under each title, for the life of the process.
std::map<std::string, QString>& LastFolders() {
  static std::map<std::string, QString> folders;
  return folders;
}

QString StartFolder(const FileDialog& dialog) {
  QString asked = ToQt(dialog.InitialFolder);
  if (!asked.isEmpty() && QFileInfo(asked).isDir()) return asked;
  QString last = LastFolders()[dialog.Title];
  if (!last.isEmpty() && QFileInfo(last).isDir()) return last;
  QString first = ToQt(dialog.FirstFolder);
  if (!first.isEmpty() && QFileInfo(first).isDir()) return first;
  return QDir::currentPath();
}

// The toolkit would keep the look of the dialog in a settings file of its own; all that the system
// remembers stands in its one store, so that file is led to a place where none can be made.
void ForgetLook() {
#ifndef Q_OS_WIN
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
#endif
}

// The name that a choice stands for.
QString FinalName(const FileDialog& dialog, const QString& typed) {
  QString path = ToQt(WithExtension(FromQt(typed), dialog.DefaultExtension));
  if (dialog.FileMustExist && !QFileInfo::exists(path) && QFileInfo::exists(typed)) return typed;
  return path;
}

// Whether the file may be chosen; says or asks why not.
bool IsAcceptable(const FileDialog& dialog, DialogForm form, const QString& path) {
  const auto tell = [&](const std::string& text) {
    TheDesktop().ShowMessageBox(text, dialog.Title, Buttons::Ok, Icon::None);
  };
  const QFileInfo file(path);
  const std::string name = FromQt(file.fileName());
  if (!file.dir().exists()) {
    tell("The folder " + FromQt(QDir::toNativeSeparators(file.path())) + " doesn't exist.");
    return false;
  }
  if (file.isDir()) {
    tell(name + " is a folder.");
    return false;
  }
  if (dialog.FileMustExist && !file.exists()) {
    tell(name + " doesn't exist.");
    return false;
  }
  if (form == DialogForm::Open || !dialog.OverwritePrompt || !file.exists()) return true;
  return TheDesktop().ShowMessageBox(name + " already exists.\rDo you want to replace it?",
                                     dialog.Title, Buttons::YesNo, Icon::None) == Answer::Yes;
}

class Chooser : public QFileDialog {
 public:
  Chooser(const FileDialog& dialog, DialogForm form, QWidget* parent)
      : QFileDialog(parent), dialog_(dialog), form_(form) {}

  const QString& Chosen() const { return chosen_; }

 protected:
  void accept() override {
    Guard([this] { Accept(); });
  }

 private:
  void Accept();

  FileDialog dialog_;
  DialogForm form_;
  QString chosen_;
};

void Chooser::Accept() {
  QStringList files = selectedFiles();
  // The toolkit takes quotes for the marks of several names.
  const auto* field = findChild<QLineEdit*>("fileNameEdit");
  if (field != nullptr && field->text().contains('"')) {
    files = {directory().absoluteFilePath(field->text())};
  }
  if (files.isEmpty()) return;
  if (QFileInfo(files.first()).isDir()) {
    QFileDialog::accept();  // which goes into the folder
    if (auto* name = findChild<QLineEdit*>("fileNameEdit")) name->clear();
    return;
  }
  const QString path = QDir::cleanPath(FinalName(dialog_, files.first()));
  if (!IsAcceptable(dialog_, form_, path)) return;
  chosen_ = path;
  // The file dialog's own would choose by its own rules once more.
  QDialog::accept();  // NOLINT(bugprone-parent-virtual-call)
}

// Names in full, and no column of types where all are of one.
void LayOutList(const Chooser& chooser) {
  auto* list = chooser.findChild<QTreeView*>("treeView");
  if (list == nullptr) return;
  constexpr int Name = 0;
  constexpr int Type = 2;
  list->header()->setStretchLastSection(false);
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
  list->setColumnHidden(Type, true);
}

void SetUp(QFileDialog& chooser, const FileDialog& dialog, DialogForm form) {
  chooser.setObjectName("FileDialog");
  chooser.setWindowTitle(ToQt(dialog.Title));
  chooser.setOption(QFileDialog::DontConfirmOverwrite);
  chooser.setOption(QFileDialog::HideNameFilterDetails);
  const bool existing = form == DialogForm::Open && dialog.FileMustExist;
  chooser.setAcceptMode(existing ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  chooser.setFileMode(existing ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  chooser.setNameFilter(ToQt(ToolkitFilter(dialog.Filter)));
  chooser.setDirectory(StartFolder(dialog));
}

// The toolkit's own dialog.
QString ChosenInToolkit(const FileDialog& dialog, DialogForm form, QWidget* parent) {
  ForgetLook();
  Chooser chooser(dialog, form, parent);
  // The desktops' own dialogs settle the extension behind the question about overwriting, or not
  // at all; and their open forms may refuse a new name.
  chooser.setOption(QFileDialog::DontUseNativeDialog);
  SetUp(chooser, dialog, form);
  chooser.setViewMode(QFileDialog::Detail);
  LayOutList(chooser);
  const QFontMetrics metrics = chooser.fontMetrics();
  const QSize wanted(metrics.averageCharWidth() * 110, metrics.lineSpacing() * 28);
  chooser.resize(wanted.boundedTo(chooser.screen()->availableGeometry().size() - WindowFrame));
  if (auto* name = chooser.findChild<QLineEdit*>("fileNameEdit")) name->setFocus();
  return chooser.exec() == QDialog::Accepted ? chooser.Chosen() : QString();
}

// Windows has one that its users know, with their places and the net's. A choice that may not be
// made brings it up again, in the folder that was chosen.
QString ChosenInSystem(const FileDialog& dialog, DialogForm form, QWidget* parent) {
  QFileDialog chooser(parent);
  SetUp(chooser, dialog, form);
  while (chooser.exec() == QDialog::Accepted && !chooser.selectedFiles().isEmpty()) {
    const QString path = QDir::cleanPath(FinalName(dialog, chooser.selectedFiles().first()));
    if (IsAcceptable(dialog, form, path)) return path;
    chooser.setDirectory(QFileInfo(path).path());
  }
  return {};
}

}  // namespace

std::string WithExtension(const std::string& path, const std::string& extension) {
  const bool ends = path.size() >= extension.size() &&
                    UpperCase(std::string_view(path).substr(path.size() - extension.size())) ==
                        UpperCase(extension);
  return ends ? path : path + extension;
}

std::string ToolkitFilter(const std::string& filter) {
  const std::size_t bar = std::min(filter.find('|'), filter.size());
  std::string text = filter.substr(0, bar);
  const std::string pattern = filter.substr(std::min(bar + 1, filter.size()));
  if (pattern.empty()) return text;
  const std::string shown = "(" + pattern + ")";
  if (text.find(shown) == std::string::npos) text += " " + shown;
  return text + " (" + pattern + " " + UpperCase(pattern) + ")";
}

std::optional<std::string> AskForFile(const FileDialog& dialog, DialogForm form, QWidget* parent) {
  const bool bySystem = QGuiApplication::platformName() == "windows";
  const QString chosen =
      bySystem ? ChosenInSystem(dialog, form, parent) : ChosenInToolkit(dialog, form, parent);
  if (chosen.isEmpty()) return std::nullopt;
  LastFolders()[dialog.Title] = QFileInfo(chosen).path();
  return FromQt(QDir::toNativeSeparators(chosen));
}

}  // namespace orvane
