#include "ui/platform/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
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
  // Whether the file may be chosen; says or asks why not.
  bool IsAcceptable(const QString& path);
  QString FinalName(const QString& typed) const;
  void Tell(const std::string& text) {
    TheDesktop().ShowMessageBox(text, dialog_.Title, Buttons::Ok, Icon::None);
  }

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
  const QString path = QDir::cleanPath(FinalName(files.first()));
  if (!IsAcceptable(path)) return;
  chosen_ = path;
  // The file dialog's own would choose by its own rules once more.
  QDialog::accept();  // NOLINT(bugprone-parent-virtual-call)
}

QString Chooser::FinalName(const QString& typed) const {
  QString path = ToQt(WithExtension(FromQt(typed), dialog_.DefaultExtension));
  if (dialog_.FileMustExist && !QFileInfo::exists(path) && QFileInfo::exists(typed)) return typed;
  return path;
}

bool Chooser::IsAcceptable(const QString& path) {
  const QFileInfo file(path);
  const std::string name = FromQt(file.fileName());
  if (!file.dir().exists()) {
    Tell("The folder " + FromQt(QDir::toNativeSeparators(file.path())) + " doesn't exist.");
    return false;
  }
  if (file.isDir()) {
    Tell(name + " is a folder.");
    return false;
  }
  if (dialog_.FileMustExist && !file.exists()) {
    Tell(name + " doesn't exist.");
    return false;
  }
  if (form_ == DialogForm::Open || !dialog_.OverwritePrompt || !file.exists()) return true;
  return TheDesktop().ShowMessageBox(name + " already exists.\rDo you want to replace it?",
                                     dialog_.Title, Buttons::YesNo, Icon::None) == Answer::Yes;
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

void SetUp(Chooser& chooser, const FileDialog& dialog, DialogForm form) {
  chooser.setObjectName("FileDialog");
  chooser.setWindowTitle(ToQt(dialog.Title));
  // The platform's own dialogs settle the extension behind the question about overwriting, or not
  // at all; and their open forms may refuse a new name.
  chooser.setOption(QFileDialog::DontUseNativeDialog);
  chooser.setOption(QFileDialog::DontConfirmOverwrite);
  chooser.setOption(QFileDialog::HideNameFilterDetails);
  const bool existing = form == DialogForm::Open && dialog.FileMustExist;
  chooser.setAcceptMode(existing ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  chooser.setFileMode(existing ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  chooser.setNameFilter(ToQt(ToolkitFilter(dialog.Filter)));
  chooser.setViewMode(QFileDialog::Detail);
  chooser.setDirectory(StartFolder(dialog));
  LayOutList(chooser);
  const QFontMetrics metrics = chooser.fontMetrics();
  const QSize wanted(metrics.averageCharWidth() * 110, metrics.lineSpacing() * 28);
  chooser.resize(wanted.boundedTo(chooser.screen()->availableGeometry().size() - WindowFrame));
  if (auto* name = chooser.findChild<QLineEdit*>("fileNameEdit")) name->setFocus();
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
  ForgetLook();
  Chooser chooser(dialog, form, parent);
  SetUp(chooser, dialog, form);
  if (chooser.exec() != QDialog::Accepted) return std::nullopt;
  LastFolders()[dialog.Title] = QFileInfo(chooser.Chosen()).path();
  return FromQt(QDir::toNativeSeparators(chooser.Chosen()));
}

}  // namespace orvane
