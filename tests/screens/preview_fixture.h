// What the tests of the preview and of printing share: documents of plain pages, and a printer in
// place of the platform's dialog.
#pragma once

#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/dialog_fixture.h"
#include "tests/screens/run_clock.h"
#include "tests/support/patience.h"
#include "ui/platform/printing.h"

namespace orvane::test {

// The text "Page n" in 20 points, 30 mm from the page's upper left corner.
inline Page NumberedPage(int number, double width = 297, double height = 210) {
  TextShape text;
  text.TopLeft = {30, 30};
  text.Text = "Page " + std::to_string(number);
  text.Type.Size = 20;
  text.Ascent = 6.4;
  return {width, height, {text}};
}

inline Document NumberedPages(int count, double width = 297, double height = 210) {
  Document document;
  for (int page = 1; page <= count; ++page) {
    document.Pages.push_back(NumberedPage(page, width, height));
  }
  return document;
}

inline QString OutputOfProgram(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(Patience)) << FromQt(program);
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

// The sizes of the pages of a PDF in points, "842 x 595".
inline std::vector<std::string> PageSizesOf(const std::string& pdf) {
  std::vector<std::string> sizes;
  const QString info = OutputOfProgram("pdfinfo", {"-f", "1", "-l", "9999", ToQt(pdf)});
  static const QRegularExpression size("size: +([0-9.]+ x [0-9.]+) pts");
  for (auto found = size.globalMatch(info); found.hasNext();) {
    sizes.push_back(FromQt(found.next().captured(1)));
  }
  return sizes;
}

// The texts of a PDF, its pages divided by "|".
inline std::string TextsOf(const std::string& pdf) {
  QStringList pages = OutputOfProgram("pdftotext", {"-raw", ToQt(pdf), "-"}).split('\f');
  if (pages.last().isEmpty()) pages.removeLast();
  for (QString& page : pages) page = page.trimmed();
  return FromQt(pages.join('|'));
}

// Puts a choice in place of the print dialog for the time of a test.
class PrintingTest : public DialogTest {
 protected:
  ~PrintingTest() override { ReplacePrintDialog({}); }

  // What the dialog would have been asked; it chooses as `choose` does.
  void Choose(std::function<bool(QPrinter&)> choose) {
    ReplacePrintDialog([this, choose = std::move(choose)](QPrinter& printer, QWidget*) {
      ++asked;
      return choose(printer);
    });
  }
  void ChooseFile(const std::string& path) {
    Choose([path](QPrinter& printer) {
      printer.setOutputFileName(ToQt(path));
      return true;
    });
  }

  // A path in the test's own folder, which is there.
  std::string Pdf(const std::string& name = "printed.pdf") {
    const std::string path = TempFile(name, "");
    std::filesystem::remove(path);
    return path;
  }

  int asked = 0;
  RunClock clock;
};

}  // namespace orvane::test
