// The help in a window of the program's own, for a desktop without a viewer of it and without a
// browser.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <map>
#include <string>
#include <vector>

#include "ui/platform/help_pages.h"

namespace orvane {

// Shows pages of the help in the colours of the program's other windows.
class HelpBrowser : public QTextBrowser {
 public:
  explicit HelpBrowser(QWidget* parent);
  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;
};

// Contents, index and search beside the page that is shown. Not modal: it belongs to the modal
// window that it was asked for in, so that both can be used, and outlives it.
class HelpWindow : public QDialog {
 public:
  // Of the pages in that folder.
  explicit HelpWindow(const QString& folder);

  // The page, "name.html" or "name.html#place".
  void ShowPage(const QString& page);
  // Stands with that window from now on; null for alone.
  void BelongTo(QWidget* modal);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* Lists();
  QWidget* ContentsList();
  QWidget* IndexList();
  QWidget* SearchList();
  QWidget* Pages();
  std::vector<HelpEntry> ListOf(const char* name) const;
  void FillIndex();
  void Search();
  void Found(const QListWidgetItem& item);
  void Follow(const QString& page);
  QString TextOf(const QString& page);

  QString folder_;
  HelpBrowser* txtPage_;
  QTabWidget* tabs_ = nullptr;
  QTreeWidget* tvwContents_ = nullptr;
  QLineEdit* txtIndex_ = nullptr;
  QListWidget* lstIndex_ = nullptr;
  QLineEdit* txtSearch_ = nullptr;
  QListWidget* lstSearch_ = nullptr;
  QPushButton* cmdBack_ = nullptr;
  QPushButton* cmdForward_ = nullptr;
  std::vector<HelpEntry> index_;
  std::map<QString, QString> texts_;  // of the pages that a search has read
  QPointer<QWidget> modal_;
};

// Shows that page of the pages in the folder, in one window for all of the program. It comes to the
// front.
void ShowHelpWindow(const QString& folder, const QString& page);

}  // namespace orvane
