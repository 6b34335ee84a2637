#include "ui/dialogs/frm_catalogue.h"

#include <QHBoxLayout>
#include <QHeaderView>

#include "core/catalogue_folder.h"
#include "core/desktop.h"
#include "core/files.h"
#include "core/settings.h"
#include "core/text.h"
#include "ui/dialogs/frm_catalogue_check.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

enum UsedColumns { UsedNameColumn, UsedFromColumn, UsedPathColumn };

QString OriginText(const CatalogueFileInUse& file) {
  if (file.Unpaired) return "the program's folder, as accs1.csv and accs2.csv count as a pair";
  switch (file.From) {
    case CatalogueOrigin::Office:
      return "the office's folder";
    case CatalogueOrigin::Program:
      return "the program's folder";
    case CatalogueOrigin::Nowhere:
      break;
  }
  return "nowhere";
}

}  // namespace

FrmCatalogue::FrmCatalogue(QWidget* parent)
    : PlainDialog(parent), stored_(AbsolutePath(CatalogueFolder())) {
  setObjectName("frmCatalogue");
  setWindowTitle("Catalogue");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);

  folder_ = new PlainField(this);
  folder_->setObjectName("txtFolder");
  folder_->setText(ToQt(stored_));
  folder_->setPlaceholderText("the catalogue that ships with the program");
  auto* folderLabel = new QLabel("Catalogue &folder:", this);
  folderLabel->setBuddy(folder_);
  QPushButton* browse = AddButton("cmdBrowse", "C&hoose...");
  QPushButton* shipped = AddButton("cmdShipped", "The &shipped one");

  files_ = new QTreeWidget(this);
  files_->setObjectName("lvwFiles");
  files_->setAccessibleName("Files in use");
  files_->setHeaderLabels({"File", "In use from", "Path"});
  files_->setRootIsDecorated(false);
  files_->setUniformRowHeights(true);
  files_->setAllColumnsShowFocus(true);
  files_->header()->setSectionsMovable(false);
  const int letter = fontMetrics().averageCharWidth();
  files_->setColumnWidth(UsedNameColumn, letter * 26);
  files_->setColumnWidth(UsedFromColumn, letter * 26);

  note_ = new QLabel(this);
  note_->setObjectName("lblNote");
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);

  QPushButton* check = AddButton("cmdCheckCatalogue", "Chec&k...");
  QPushButton* ok = AddButton("cmdOK", "&OK");
  QPushButton* cancel = AddButton("cmdCancel", "&Cancel");
  const auto run = [this](QPushButton* button, void (FrmCatalogue::*action)()) {
    connect(button, &QPushButton::clicked, this,
            [this, action] { Guard([&] { (this->*action)(); }); });
  };
  run(browse, &FrmCatalogue::Browse);
  run(shipped, &FrmCatalogue::TakeShipped);
  run(check, &FrmCatalogue::CheckIt);
  run(ok, &FrmCatalogue::Take);
  connect(cancel, &QPushButton::clicked, this, [this] { Guard([this] { Cancel(); }); });
  connect(folder_, &QLineEdit::textChanged, this, [this] { Guard([this] { ShowFiles(); }); });

  auto* line = new QHBoxLayout;
  line->addWidget(folderLabel);
  line->addWidget(folder_, 1);
  line->addWidget(browse);
  line->addWidget(shipped);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(check);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  QVBoxLayout* layout = AddLayout();
  layout->addLayout(line);
  layout->addWidget(files_, 1);
  layout->addWidget(note_);
  layout->addLayout(buttons);
  PressByEnter(*ok);
  ShowFiles();
  folder_->setFocus();
  resize(letter * 130, files_->fontMetrics().lineSpacing() * 26);
}

bool FrmCatalogue::HasChanges() {
  return Folder() != stored_;
}

// Whatever folder the program is started in next time, it is the same one.
std::string FrmCatalogue::Folder() const {
  return AbsolutePath(std::string(Trim(FromQt(folder_->text()))));
}

void FrmCatalogue::Browse() {
  const std::optional<std::string> chosen =
      TheDesktop().ShowFolderDialog("Catalogue folder", Folder());
  if (chosen) folder_->setText(ToQt(*chosen));
  folder_->setFocus();
}

void FrmCatalogue::TakeShipped() {
  folder_->clear();
  folder_->setFocus();
}

// A folder that isn't there has no files, so that nothing would be told but what ships.
void FrmCatalogue::CheckIt() {
  const std::string folder = Folder();
  if (!folder.empty() && !IsFolder(folder)) {
    TheDesktop().Message("There is no folder " + folder);
    return folder_->setFocus();
  }
  FrmCatalogueCheck(folder, this).exec();
}

void FrmCatalogue::Take() {
  const std::string folder = Folder();
  if (!folder.empty() && folder != stored_ && !IsFolder(folder)) {
    TheDesktop().Message("There is no folder " + folder);
    return folder_->setFocus();
  }
  if (folder != stored_) StoreCatalogueFolder(folder);
  accept();
}

void FrmCatalogue::ShowFiles() {
  const std::string folder = Folder();
  const bool isThere = folder.empty() || IsFolder(folder);
  files_->clear();
  for (const CatalogueFileInUse& file : CatalogueFilesOf(isThere ? folder : "")) {
    auto* row = new QTreeWidgetItem(files_);
    row->setText(UsedNameColumn, ToQt(file.Name));
    row->setText(UsedFromColumn, OriginText(file));
    row->setToolTip(UsedFromColumn, PlainTip(FromQt(OriginText(file))));
    row->setText(UsedPathColumn, ToQt(file.Path));
    row->setToolTip(UsedPathColumn, PlainTip(file.Path));
  }
  files_->setCurrentItem(files_->topLevelItem(0));
  note_->setText(!isThere ? "There is no such folder."
                 : folder == OfficeFolder
                     ? "These files are in use. A change counts from the next start of the program."
                     : "These files will be in use from the next start of the program.");
}

}  // namespace orvane
