// The pages of the help as they lie beside the program: their contents and index, and what each of
// them says.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace orvane {

// An entry of the contents or of the index.
struct HelpEntry {
  QString Name;
  QString Page;   // file name, with "#" and a place in it where there is one; empty for a group
  int Depth = 0;  // 0 at the top
};

// The entries of a list of that form (.hhc, .hhk), in its order. What isn't an entry is passed
// over.
std::vector<HelpEntry> ReadHelpList(const std::string& bytes);

// The page that tells about the window of that objectName; the first page for any other.
QString HelpPageOf(const QString& window);

// What a page says, its headings and all, without its markup.
QString PlainPage(const QString& html);

// Whether all words of `wanted` stand in the text, whatever their case; false for no word.
bool HasWords(const QString& text, const QString& wanted);

}  // namespace orvane
