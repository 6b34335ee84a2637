#include "ui/platform/help_pages.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTextDocumentFragment>
#include <algorithm>
#include <array>

namespace orvane {

namespace {

struct WindowPage {
  const char* Window;
  const char* Page;
};

// clang-format off
constexpr std::array<WindowPage, 20> WindowPages = {{
    {"frmAbout",          "about.html"},
    {"frmAcc01",          "accessories.html"},
    {"frmAcc02",          "accessories.html"},
    {"frmAddHoles",       "custom-holes.html"},
    {"frmCatalogue",      "catalogue-own.html"},
    {"frmCatalogueCheck", "catalogue-own.html"},
    {"frmChange",         "sections-grid.html"},
    {"frmCheck",          "design-check.html"},
    {"frmCompare",        "compare.html"},
    {"frmErrors",         "validation-errors.html"},
    {"frmImport",         "section-lists.html"},
    {"frmMain",           "main-window.html"},
    {"frmMaxDims",        "max-lengths.html"},
    {"frmMitres",         "mitres.html"},
    {"frmNotches",        "notches.html"},
    {"frmPreview",        "print.html"},
    {"frmProjectDetails", "project-details.html"},
    {"frmRecovery",       "projects.html"},
    {"frmRegistration",   "registration.html"},
    {"frmVersions",       "projects.html"},
}};
// clang-format on

QString PlainText(const QString& html) {
  return QTextDocumentFragment::fromHtml(html).toPlainText();
}

}  // namespace

std::vector<HelpEntry> ReadHelpList(const std::string& bytes) {
  // A list within a list is one deeper; an object is an entry, its parameters name it.
  static const QRegularExpression piece(
      R"re(<ul>|</ul>|<object[^>]*>|</object>|<param\s+name="(\w+)"\s+value="([^"]*)"\s*/?>)re",
      QRegularExpression::CaseInsensitiveOption);
  std::vector<HelpEntry> entries;
  HelpEntry entry;
  int depth = -1;
  const QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
  for (auto at = piece.globalMatch(text); at.hasNext();) {
    const QRegularExpressionMatch match = at.next();
    const QString tag = match.captured(0).left(4).toLower();
    if (tag == "<ul>") ++depth;
    if (tag == "</ul") --depth;
    if (tag == "<obj") entry = {{}, {}, std::max(depth, 0)};
    if (tag == "<par") {
      const QString value = PlainText(match.captured(2));
      if (match.captured(1).compare("Name", Qt::CaseInsensitive) == 0) entry.Name = value;
      if (match.captured(1).compare("Local", Qt::CaseInsensitive) == 0) entry.Page = value;
    }
    if (tag == "</ob" && !entry.Name.isEmpty()) entries.push_back(entry);
  }
  return entries;
}

QString HelpPageOf(const QString& window) {
  for (const WindowPage& row : WindowPages) {
    if (window == row.Window) return row.Page;
  }
  return "index.html";
}

QString PlainPage(const QString& html) {
  return PlainText(html);
}

bool HasWords(const QString& text, const QString& wanted) {
  const QStringList words = wanted.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
  return !words.isEmpty() && std::all_of(words.begin(), words.end(), [&](const QString& word) {
    return text.contains(word, Qt::CaseInsensitive);
  });
}

}  // namespace orvane
