// Documents on printers, and into the files that stand for them.
#include <QDir>
#include <QLineEdit>
#include <QPrintDialog>
#include <QRadioButton>
#include <QSpinBox>
#include <filesystem>

#include "tests/screens/preview_fixture.h"

namespace orvane::test {

namespace {

// Two upright pages of A4, one level one, and a level one of A3.
Document MixedPages() {
  return {{NumberedPage(1, 210, 297), NumberedPage(2, 210, 297), NumberedPage(3, 297, 210),
           NumberedPage(4, 420, 297)}};
}

class Printing : public PrintingTest {
 protected:
  // Prints into a file as the choice says.
  bool PrintPdf(const Document& document, std::function<void(QPrinter&)> choose = {}) {
    Choose([this, choose = std::move(choose)](QPrinter& printer) {
      printer.setOutputFileName(ToQt(path));
      if (choose) choose(printer);
      return true;
    });
    return PrintDocument(document, nullptr, "Hall 7");
  }

  std::string path = Pdf();
};

}  // namespace

TEST_F(Printing, A_file_has_every_page_in_its_own_size_and_way_up_from_the_first_on) {
  EXPECT_TRUE(PrintPdf(MixedPages()));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(PageSizesOf(path),
            (std::vector<std::string>{"595 x 842", "595 x 842", "842 x 595", "1191 x 842"}));
  EXPECT_EQ(TextsOf(path), "Page 1|Page 2|Page 3|Page 4");
  const QString info = OutputOfProgram("pdfinfo", {ToQt(path)});
  EXPECT_TRUE(info.contains(QRegularExpression("Title: +Hall 7\n"))) << FromQt(info);
}

TEST_F(Printing, The_dialog_is_asked_with_the_first_pages_paper_and_the_jobs_name) {
  Choose([](QPrinter& printer) {
    EXPECT_EQ(FromQt(printer.docName()), "Hall 7");
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A4);
    EXPECT_TRUE(printer.fullPage());
    EXPECT_EQ(printer.printRange(), QPrinter::AllPages);
    EXPECT_EQ(printer.fromPage(), 1);
    EXPECT_EQ(printer.toPage(), 2);
    return false;
  });
  EXPECT_FALSE(PrintDocument(NumberedPages(2), nullptr, "Hall 7"));
  EXPECT_EQ(asked, 1);
}

TEST_F(Printing, The_paper_that_was_chosen_is_what_is_drawn_on) {
  std::vector<Paper> asked;
  const auto again = [&](const Paper& paper) {
    asked.push_back(paper);
    return std::optional<Document>(Document{
        {NumberedPage(1, paper.Height, paper.Width), NumberedPage(2, paper.Height, paper.Width)}});
  };
  const auto print = [&](QPageSize::PageSizeId id) {
    Choose([this, id](QPrinter& printer) {
      printer.setOutputFileName(ToQt(path));
      printer.setPageSize(QPageSize(id));
      return true;
    });
    EXPECT_TRUE(PrintDocument(NumberedPages(1), nullptr, "Hall 7", again));
    return PageSizesOf(path);
  };
  EXPECT_EQ(print(QPageSize::A3), (std::vector<std::string>{"1191 x 842", "1191 x 842"}));
  EXPECT_EQ(print(QPageSize::Letter), (std::vector<std::string>{"792 x 612", "792 x 612"}));
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_NEAR(asked[0].Width, 297, 0.5);
  EXPECT_NEAR(asked[1].Height, 279.4, 0.5);
  // The page's own, and one that is too small for any sheet.
  EXPECT_EQ(print(QPageSize::A4).size(), 1U);
  EXPECT_EQ(print(QPageSize::A5).size(), 1U);
  EXPECT_EQ(asked.size(), 2U);
}

TEST_F(Printing, A_cancelled_dialog_prints_nothing_and_says_nothing) {
  Choose([this](QPrinter& printer) {
    printer.setOutputFileName(ToQt(path));
    return false;
  });
  EXPECT_FALSE(PrintDocument(NumberedPages(2), nullptr, ""));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Printing, A_document_without_pages_asks_for_nothing) {
  EXPECT_FALSE(PrintPdf({}));
  EXPECT_EQ(asked, 0);
}

TEST_F(Printing, A_range_of_pages_is_printed_alone) {
  EXPECT_TRUE(PrintPdf(MixedPages(), [](QPrinter& printer) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
  }));
  EXPECT_EQ(TextsOf(path), "Page 2|Page 3");
  EXPECT_EQ(PageSizesOf(path), (std::vector<std::string>{"595 x 842", "842 x 595"}));
}

TEST_F(Printing, Several_ranges_are_printed_in_the_order_of_the_document) {
  EXPECT_TRUE(PrintPdf(NumberedPages(9), [](QPrinter& printer) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString("8-20,2,4-5"));
  }));
  EXPECT_EQ(TextsOf(path), "Page 2|Page 4|Page 5|Page 8|Page 9");
}

TEST_F(Printing, The_last_page_may_come_first) {
  EXPECT_TRUE(PrintPdf(NumberedPages(3),
                       [](QPrinter& printer) { printer.setPageOrder(QPrinter::LastPageFirst); }));
  EXPECT_EQ(TextsOf(path), "Page 3|Page 2|Page 1");
}

TEST_F(Printing, A_range_beyond_the_document_is_told) {
  EXPECT_EQ(ErrorOf([&] {
              PrintPdf(NumberedPages(3), [](QPrinter& printer) {
                printer.setPrintRange(QPrinter::PageRange);
                printer.setFromTo(4, 6);
              });
            }),
            "There are no such pages");
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Printing, A_file_that_cannot_be_written_is_told) {
  path = TempPath("no/such/folder/a.pdf");
  EXPECT_EQ(ErrorOf([&] { PrintPdf(NumberedPages(1)); }), "Path not found");
}

TEST_F(Printing, A_printer_that_makes_no_copies_gets_them_page_by_page_or_set_by_set) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  ASSERT_FALSE(printer.supportsMultipleCopies());
  printer.setCopyCount(2);
  printer.setCollateCopies(true);
  EXPECT_EQ(ChosenPages(printer, 3), (std::vector<int>{1, 2, 3, 1, 2, 3}));
  printer.setCollateCopies(false);
  EXPECT_EQ(ChosenPages(printer, 3), (std::vector<int>{1, 1, 2, 2, 3, 3}));
  printer.setOutputFileName(ToQt(path));
  EXPECT_EQ(ChosenPages(printer, 3), (std::vector<int>{1, 2, 3}));
}

// What a printer gets, looked at in a file.
class OnAPrinter : public Printing {
 protected:
  OnAPrinter() : printer(QPrinter::HighResolution) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(ToQt(path));
  }
  static bool Always(int) { return true; }

  QPrinter printer;
};

TEST_F(OnAPrinter, Every_page_keeps_its_size_and_way_up_from_the_first_on) {
  EXPECT_TRUE(PrintPages(printer, MixedPages(), {3, 1, 4}, Always));
  EXPECT_EQ(PageSizesOf(path), (std::vector<std::string>{"842 x 595", "595 x 842", "1191 x 842"}));
  EXPECT_EQ(TextsOf(path), "Page 3|Page 1|Page 4");
}

TEST_F(OnAPrinter, A_page_stands_on_paper_where_it_stands_in_a_file) {
  const std::string other = Pdf("other.pdf");
  ASSERT_TRUE(PrintPages(printer, NumberedPages(1), {1}, Always));
  ChooseFile(other);
  ASSERT_TRUE(PrintDocument(NumberedPages(1), nullptr, ""));
  const auto place = [](const std::string& file) {
    const QString text = OutputOfProgram("pdftotext", {"-bbox", ToQt(file), "-"});
    static const QRegularExpression first("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"");
    const QRegularExpressionMatch found = first.match(text);
    EXPECT_TRUE(found.hasMatch()) << FromQt(text);
    return QPointF(found.captured(1).toDouble(), found.captured(2).toDouble());
  };
  // 30 mm are 85.04 points.
  EXPECT_NEAR(place(path).x(), 85.04, 0.5);
  EXPECT_NEAR(place(path).x(), place(other).x(), 0.1);
  EXPECT_NEAR(place(path).y(), place(other).y(), 0.1);
}

TEST_F(OnAPrinter, A_run_that_is_called_off_prints_no_further_page) {
  std::vector<int> told;
  EXPECT_FALSE(PrintPages(printer, NumberedPages(5), {1, 2, 3, 4, 5}, [&](int done) {
    told.push_back(done);
    return done < 2;
  }));
  EXPECT_EQ(told, (std::vector<int>{0, 1, 2}));
}

TEST_F(OnAPrinter, A_printer_that_fails_is_told) {
  printer.setOutputFileName(ToQt(TempPath("no/such/folder/a.pdf")));
  EXPECT_EQ(ErrorOf([&] { PrintPages(printer, NumberedPages(1), {1}, Always); }),
            "Can't print on " + FromQt(printer.printerName()));
}

// The platform's dialog itself.
class TheDialog : public Printing {
 protected:
  // Foresees the dialog, which prints into the file.
  void Foresee(const std::function<void(QWidget&)>& choose) {
    dialogs.ExpectDialog("PrintDialog", [this, choose](QWidget& dialog) {
      WaitUntilActive(dialog);
      auto& file = Find<QLineEdit>(dialog, "filename");
      // The toolkit proposes the current folder where it lies in the person's own, else that one.
      const QString home = QDir::homePath();
      const QString folder = QDir::currentPath().startsWith(home) ? QDir::currentPath() : home;
      EXPECT_EQ(FromQt(file.text()), FromQt(folder) + "/Hall 7.pdf");
      file.setFocus();
      Press(Qt::Key_A, Qt::ControlModifier);
      Type(path);
      choose(dialog);
      if (QApplication::activeModalWidget() == &dialog) QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }
};

TEST_F(TheDialog, Prints_the_whole_document_into_the_file_of_that_name) {
  Foresee([](QWidget&) {});
  EXPECT_TRUE(PrintDocument(NumberedPages(3), nullptr, "Hall 7"));
  EXPECT_EQ(TextsOf(path), "Page 1|Page 2|Page 3");
  EXPECT_EQ(PageSizesOf(path), std::vector<std::string>(3, "842 x 595"));
}

TEST_F(TheDialog, Prints_the_range_that_is_typed) {
  Foresee([this](QWidget& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().startsWith("&Options")) QTest::mouseClick(button, Qt::LeftButton);
    }
    auto& some = Find<QRadioButton>(dialog, "printRange");
    ASSERT_TRUE(some.isVisible());
    QTest::mouseClick(&some, Qt::LeftButton, Qt::NoModifier, QPoint(10, some.height() / 2));
    ASSERT_TRUE(some.isChecked());
    for (const auto& [end, page] : {std::pair("from", "2"), std::pair("to", "3")}) {
      auto& field = Find<QSpinBox>(dialog, end);
      EXPECT_EQ(field.minimum(), 1);
      EXPECT_EQ(field.maximum(), 5);
      field.setFocus();
      field.selectAll();
      Type(page);
    }
  });
  EXPECT_TRUE(PrintDocument(NumberedPages(5), nullptr, "Hall 7"));
  EXPECT_EQ(TextsOf(path), "Page 2|Page 3");
}

TEST_F(TheDialog, Escape_prints_nothing) {
  Foresee([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_FALSE(PrintDocument(NumberedPages(3), nullptr, "Hall 7"));
  EXPECT_FALSE(std::filesystem::exists(path));
}

// The toolkit's list of names that fit comes up when the folder has been read, and takes an Enter.
TEST_F(TheDialog, No_list_of_names_comes_between_the_name_and_its_Enter) {
  Foresee(
      [](QWidget& dialog) { EXPECT_EQ(Find<QLineEdit>(dialog, "filename").completer(), nullptr); });
  EXPECT_TRUE(PrintDocument(NumberedPages(1), nullptr, "Hall 7"));
}

// A run of many pages.

TEST_F(Printing, A_long_run_can_be_called_off_and_leaves_no_file) {
  clock.MakeRunsLong();
  clock.LookAtEachStep([this] { dialogs.Look(); });
  dialogs.ExpectDialog("ProgressDialog", [](QWidget& dialog) {
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblProgress").text()).substr(0, 15), "Pages printed: ");
    QTest::mouseClick(&Find(dialog, "cmdCancel"), Qt::LeftButton);
  });
  EXPECT_FALSE(PrintPdf(NumberedPages(20000)));
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace orvane::test
