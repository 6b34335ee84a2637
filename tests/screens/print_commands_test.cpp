// The entries of the Output menu that print, from the window to the preview.
#include <QMessageBox>

#include "core/runtime_error.h"
#include "tests/screens/preview_fixture.h"
#include "tests/screens/sections_fixture.h"
#include "ui/dialogs/frm_preview.h"

namespace orvane::test {

namespace {

class PrintCommands : public SectionsTest {
 protected:
  ~PrintCommands() override { ReplacePrintDialog({}); }

  void Output(int index) {
    Entry("mnuOutput(" + std::to_string(index) + ")").trigger();
    Settle();
    if (main->isVisible()) BackToMain();
  }
  // Foresees the preview, keeps its pages and closes it by its entry.
  void ExpectPreview(const std::function<void(FrmPreview&)>& look = [](FrmPreview&) {}) {
    dialogs.ExpectDialog("frmPreview", [this, look](QWidget& dialog) {
      auto& preview = dynamic_cast<FrmPreview&>(dialog);
      EXPECT_TRUE(preview.isModal());
      EXPECT_EQ(preview.parentWidget(), main.get());
      ++previews;
      lastPreview = &preview;
      shown = preview.Surface().Result();
      look(preview);
      Find<QAction>(dialog, "mnuFile(2)").trigger();
    });
  }

  // The texts of a page that was shown.
  std::vector<std::string> TextsOfPage(std::size_t page) {
    std::vector<std::string> texts;
    for (const Shape& shape : shown.Pages.at(page - 1).Shapes) {
      if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(text->Text);
    }
    return texts;
  }
  ::testing::AssertionResult HasText(std::size_t page, const std::string& text) {
    std::string all;
    for (const std::string& each : TextsOfPage(page)) {
      if (each == text) return ::testing::AssertionSuccess();
      all += "\n  " + each;
    }
    return ::testing::AssertionFailure() << "no \"" << text << "\" in" << all;
  }
  bool PageIsLandscape(std::size_t page) {
    return shown.Pages.at(page - 1).Width > shown.Pages.at(page - 1).Height;
  }

  // Three purlins with holes in pairs.
  void PutThree() {
    for (const char* mark : {"P1", "P2", "P3"}) {
      Put("Z", mark, "Z14012", 6000, 2).PatternName = "Butt Single Holes";
    }
  }

  int previews = 0;
  QPointer<FrmPreview> lastPreview;
  Document shown;
  RunClock clock;
};

}  // namespace

TEST_F(PrintCommands, Without_a_selected_section_the_current_drawing_does_nothing) {
  Output(0);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(PrintCommands, The_current_drawing_is_the_selected_rows_one_sheet) {
  PutThree();
  Show(2, 1);
  ExpectPreview();
  Output(0);
  ASSERT_EQ(previews, 1);
  ASSERT_EQ(shown.Pages.size(), 1U);
  EXPECT_TRUE(PageIsLandscape(1));
  EXPECT_TRUE(HasText(1, "P2"));
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(PrintCommands, All_drawings_are_a_page_a_section_in_their_order) {
  PutThree();
  Show(3, 4);
  ExpectPreview();
  Output(1);
  ASSERT_EQ(shown.Pages.size(), 3U);
  EXPECT_TRUE(HasText(1, "P1"));
  EXPECT_TRUE(HasText(2, "P2"));
  EXPECT_TRUE(HasText(3, "P3"));
  for (std::size_t page = 1; page <= 3; ++page) EXPECT_TRUE(PageIsLandscape(page));
  EXPECT_TRUE(CursorAt(3, 4, "2"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(PrintCommands, The_only_section_of_a_project_shows_in_all_drawings_too) {
  Put("Z", "P1", "Z14012", 6000).PatternName = "Butt Single Holes";
  Show();
  ExpectPreview();
  Output(1);
  ASSERT_EQ(shown.Pages.size(), 1U);
  EXPECT_TRUE(HasText(1, "P1"));
  EXPECT_TRUE(PageIsLandscape(1));
}

TEST_F(PrintCommands, Without_sections_all_drawings_do_nothing) {
  Output(1);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(PrintCommands, The_accessory_list_never_does_anything) {
  PutThree();
  AccLines1.Append({1, 1, 5, 0});
  AccUsed.At(1) = True;
  Show();
  const int drawn = Sheet().DrawCount();
  Output(2);
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_EQ(Sheet().DrawCount(), drawn);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
}

TEST_F(PrintCommands, Without_accessories_there_is_nothing_to_print) {
  PutThree();
  Show();
  dialogs.ExpectBox("Nothing to print");
  Output(3);
  EXPECT_EQ(previews, 0);
}

TEST_F(PrintCommands, Accessory_sheets_are_a_page_an_accessory_in_use) {
  AccLines1.Append({1, 1, 5, 0});
  AccLines1.Append({2, 1, 7, 0});
  AccUsed.At(1) = AccUsed.At(2) = True;
  ExpectPreview();
  Output(3);
  ASSERT_EQ(previews, 1);
  EXPECT_EQ(shown.Pages.size(), 2U);
  EXPECT_TRUE(HasText(1, "5"));
  EXPECT_TRUE(HasText(2, "7"));
  EXPECT_TRUE(PageIsLandscape(1));
}

TEST_F(PrintCommands, The_summary_comes_from_its_entry_its_button_and_its_key) {
  PutThree();
  Show();
  for (const char* way : {"mnuOutput(4)", "SSCommand1(5)", "Ctrl+P"}) {
    SCOPED_TRACE(way);
    ExpectPreview();
    const std::string name = way;
    if (name == "Ctrl+P") {
      Press(Qt::Key_P, Qt::ControlModifier);
    } else if (name == "SSCommand1(5)") {
      Click(name);
    } else {
      Entry(name).trigger();
    }
    Settle();
    BackToMain();
    ASSERT_EQ(shown.Pages.size(), 1U);
    EXPECT_FALSE(PageIsLandscape(1));
    EXPECT_TRUE(HasText(1, "Sections:"));
    EXPECT_TRUE(HasText(1, "P3"));
    EXPECT_TRUE(HasText(1, "Accessories:"));
    EXPECT_TRUE(CursorAt(1, 1, "P1"));
  }
  EXPECT_EQ(previews, 3);
}

TEST_F(PrintCommands, A_summary_without_sections_shows_the_accessories_as_the_surface_stands) {
  ExpectPreview();
  Output(4);
  ASSERT_EQ(shown.Pages.size(), 1U);
  EXPECT_TRUE(PageIsLandscape(1));
  EXPECT_EQ(TextsOfPage(1), (std::vector<std::string>{"Accessories:"}));
}

TEST_F(PrintCommands, A_long_summary_goes_over_several_pages_and_counts_them) {
  for (int i = 1; i <= 150; ++i) Put("Z", "M" + std::to_string(i), "Z14012", 6000);
  Show();
  ExpectPreview([](FrmPreview& preview) {
    EXPECT_EQ(Find<DocumentView>(preview, "VSPrinter1").Pages().PageCount(),
              static_cast<int>(preview.Surface().Result().Pages.size()));
  });
  Output(4);
  ASSERT_GE(shown.Pages.size(), 3U);
  for (std::size_t page = 1; page <= shown.Pages.size(); ++page) {
    EXPECT_TRUE(HasText(page, "Page " + std::to_string(page)));
    EXPECT_FALSE(PageIsLandscape(page));
  }
}

TEST_F(PrintCommands, Closing_destroys_the_form_and_the_next_command_gets_a_fresh_one) {
  PutThree();
  Show();
  ExpectPreview();
  Output(4);
  EXPECT_TRUE(lastPreview.isNull());
  // Portrait, the header and the bold of the summary don't reach the sheet.
  ExpectPreview();
  Output(0);
  EXPECT_TRUE(lastPreview.isNull());
  ASSERT_EQ(shown.Pages.size(), 1U);
  EXPECT_TRUE(PageIsLandscape(1));
  for (const std::string& text : TextsOfPage(1)) {
    EXPECT_EQ(text.find("Contract Summary"), std::string::npos) << text;
  }
  EXPECT_EQ(main->findChild<QDialog*>("frmPreview"), nullptr);
}

TEST_F(PrintCommands, Each_command_takes_the_margins_of_the_moment) {
  PutThree();
  Show();
  const auto leftmost = [this] {
    double left = 1000;
    for (const Shape& shape : shown.Pages.at(0).Shapes) {
      if (const auto* text = std::get_if<TextShape>(&shape)) left = std::min(left, text->TopLeft.X);
    }
    return left;
  };
  ExpectPreview();
  Output(4);
  const double before = leftmost();
  LeftMargin += 7;
  ExpectPreview();
  Output(4);
  EXPECT_NEAR(leftmost(), before + 7, 0.05);
}

// The cell that is being typed.

TEST_F(PrintCommands, What_is_being_typed_is_printed_as_typed_so_far) {
  PutThree();
  Show(2, 1);
  Retype("Q9");
  ExpectPreview();
  Press(Qt::Key_P, Qt::ControlModifier);
  Settle();
  BackToMain();
  EXPECT_TRUE(HasText(1, "Q9"));
  EXPECT_TRUE(CursorAt(2, 1, "Q9"));
}

TEST_F(PrintCommands, A_length_that_would_be_refused_is_printed_and_refused_when_it_is_left) {
  PutThree();
  Show(1, 3);
  Press(Qt::Key_Delete);
  ExpectPreview();
  Press(Qt::Key_P, Qt::ControlModifier);
  Settle();
  BackToMain();
  EXPECT_TRUE(CursorAt(1, 3, ""));
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
}

// What a run leaves.

TEST_F(PrintCommands, All_drawings_make_the_holes_afresh_but_for_those_placed_by_hand) {
  PutThree();
  Item& custom = Put("Z", "C1", "Z14012", 6000);
  custom.PatternName = "Custom";
  PutHole(custom, 700, std::string(CustomKind));
  Show();
  Items.At(2).Holes.Clear();
  ExpectPreview();
  Output(1);
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 5968}));
  EXPECT_EQ(HolesOf(4), (std::vector<int>{700}));
}

TEST_F(PrintCommands, The_selected_rows_sheet_and_holes_are_right_behind_the_run) {
  PutThree();
  Show(2, 1);
  Items.At(2).Holes.At(1).XPos = 1234;
  const int drawn = Sheet().DrawCount();
  ExpectPreview([&](FrmPreview&) {
    EXPECT_EQ(Sheet().ShownRow(), 2);
    EXPECT_GT(Sheet().DrawCount(), drawn);
  });
  Output(1);
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 5968}));
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(CurrentItem, 2);
}

TEST_F(PrintCommands, An_opposite_hand_that_is_shown_mirrored_is_turned_back_and_says_so) {
  // Holes at 32 mm and at a third of the length; none of the right-hand end.
  PunchPattern pattern;
  pattern.SectionType = "Z";
  pattern.Name = "Lopsided";
  pattern.Codes = "B0 D2";
  PunchPatterns.Append(pattern);
  Put("Z", "P1", "Z14012", 3000).PatternName = "Lopsided";
  Show();
  Section(7);
  Settle();
  ASSERT_EQ(HolesOf(2), (std::vector<int>{2000, 2968}));
  ASSERT_TRUE(Shown("lblMirrored"));
  ExpectPreview();
  Output(1);
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 1000}));
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_FALSE(Shown("lblMirrored"));
}

TEST_F(PrintCommands, An_error_is_told_without_a_preview_and_the_next_command_works) {
  PutThree();
  Show(2, 1);
  class Failing : public TestDesktop {
   public:
    void ProcessEvents() override { throw RuntimeError(Failure::DiskFull); }
  } failing;
  // The sheet behind the command fails the same way: that is told of its section, once.
  dialogs.ExpectBox("P2: " + DescriptionOf(Failure::DiskFull));
  for (const int index : {0, 1}) {
    InstallDesktop(failing);
    dialogs.ExpectBox(DescriptionOf(Failure::DiskFull));
    Entry("mnuOutput(" + std::to_string(index) + ")").trigger();
    InstallDesktop(platform);
    Settle();
    EXPECT_EQ(previews, 0);
    EXPECT_EQ(main->findChild<QDialog*>("frmPreview"), nullptr);
  }
  BackToMain();
  ExpectPreview();
  Output(1);
  EXPECT_EQ(shown.Pages.size(), 3U);
}

TEST_F(PrintCommands, A_long_run_is_called_off_and_leaves_everything_as_it_was) {
  for (int i = 1; i <= 400; ++i) {
    Put("Z", "M" + std::to_string(i), "Z14012", 6000).PatternName = "Butt Single Holes";
  }
  Show(2, 1);
  clock.MakeRunsLong();
  clock.LookAtEachStep([this] { dialogs.Look(); });
  dialogs.ExpectDialog("ProgressDialog", [](QWidget& dialog) {
    const std::string text = FromQt(Find<QLabel>(dialog, "lblProgress").text());
    EXPECT_EQ(text.substr(0, 14), "Sheets drawn: ");
    EXPECT_EQ(text.substr(text.size() - 7), " of 400");
    QTest::mouseClick(&Find(dialog, "cmdCancel"), Qt::LeftButton);
  });
  Output(1);
  EXPECT_EQ(previews, 0);
  // Rows 1 and 2 were looked at before.
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 5968}));
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 5968}));
  EXPECT_EQ(HolesOf(3), (std::vector<int>{}));
  EXPECT_EQ(HolesOf(4), (std::vector<int>{}));
  EXPECT_EQ(main->findChild<QDialog*>("frmPreview"), nullptr);
  EXPECT_TRUE(CursorAt(2, 1, "M2"));
}

TEST_F(PrintCommands, A_long_run_that_goes_on_shows_its_preview) {
  for (int i = 1; i <= 60; ++i) Put("Z", "M" + std::to_string(i), "Z14012", 6000);
  Show();
  clock.MakeRunsLong();
  dialogs.Ignore("ProgressDialog");
  std::vector<std::string> seen;
  clock.LookAtEachStep([&seen] {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) return;
    EXPECT_EQ(FromQt(window->objectName()), "ProgressDialog");
    const std::string text = FromQt(Find<QLabel>(*window, "lblProgress").text());
    if (seen.empty() || seen.back() != text) seen.push_back(text);
  });
  ExpectPreview();
  Output(1);
  std::vector<std::string> expected;
  for (int i = 1; i <= 60; ++i) expected.push_back("Sheets drawn: " + std::to_string(i) + " of 60");
  EXPECT_EQ(seen, expected);
  EXPECT_EQ(shown.Pages.size(), 60U);
  EXPECT_EQ(main->findChild<QDialog*>("ProgressDialog"), nullptr);
}

TEST_F(PrintCommands, An_error_in_the_middle_of_a_long_run_takes_its_dialog_away_first) {
  for (int i = 1; i <= 60; ++i) Put("Z", "M" + std::to_string(i), "Z14012", 6000);
  Show(2, 1);
  clock.MakeRunsLong();
  class FailingLater : public TestDesktop {
   public:
    // Once for each sheet.
    void ProcessEvents() override {
      if (++sheets < 30) return;
      InstallDesktop(then);
      wasLong = window.findChild<QDialog*>("ProgressDialog") != nullptr;
      throw RuntimeError(Failure::DiskFull);
    }
    FailingLater(Desktop& then, FrmMain& window) : then(then), window(window) {}
    Desktop& then;
    FrmMain& window;
    int sheets = 0;
    bool wasLong = false;
  } failing(platform, *main);
  // The progress is nobody's question.
  dialogs.Ignore("ProgressDialog");
  dialogs.ExpectDialog("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(FromQt(dynamic_cast<QMessageBox&>(box).text()), DescriptionOf(Failure::DiskFull));
    EXPECT_EQ(main->findChild<QDialog*>("ProgressDialog"), nullptr);
    box.close();
  });
  InstallDesktop(failing);
  Output(1);
  EXPECT_TRUE(failing.wasLong);
  EXPECT_EQ(dialogs.Boxes(), std::vector<std::string>{DescriptionOf(Failure::DiskFull)});
  EXPECT_EQ(main->findChild<QDialog*>("frmPreview"), nullptr);
  EXPECT_TRUE(CursorAt(2, 1, "M2"));
}

// A system's own menu bar, and what else doesn't ask which window is open.
TEST_F(PrintCommands, While_a_run_is_drawn_no_other_one_begins) {
  for (int i = 1; i <= 60; ++i) Put("Z", "M" + std::to_string(i), "Z14012", 6000);
  Show();
  clock.MakeRunsLong();
  dialogs.Ignore("ProgressDialog");
  bool tried = false;
  clock.LookAtEachStep([&] {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible() || std::exchange(tried, true)) return;
    EXPECT_EQ(FromQt(window->objectName()), "ProgressDialog");
    for (const int index : {0, 1, 3, 4}) {
      Entry("mnuOutput(" + std::to_string(index) + ")").trigger();
      EXPECT_EQ(QApplication::activeModalWidget(), window) << index;
    }
  });
  ExpectPreview();
  Output(1);
  EXPECT_TRUE(tried);
  EXPECT_EQ(previews, 1);
  EXPECT_EQ(shown.Pages.size(), 60U);
}

// From the keyboard to the paper.

TEST_F(PrintCommands, A_summary_is_printed_to_a_file_by_keys_alone) {
  PutThree();
  txtProject.at(1) = "4711";
  Show();
  const std::string path = TempFile("summary.pdf", "");
  ReplacePrintDialog([path](QPrinter& printer, QWidget* parent) {
    EXPECT_EQ(FromQt(parent->objectName()), "frmPreview");
    printer.setOutputFileName(ToQt(path));
    return true;
  });
  dialogs.ExpectDialog("frmPreview", [this](QWidget& dialog) {
    // The toolkit calls a dialog active whose owner still is.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
    Press(Qt::Key_P, Qt::ControlModifier);
    Press(Qt::Key_Escape);
  });
  Press(Qt::Key_P, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(PageSizesOf(path), std::vector<std::string>{"595 x 842"});
  const std::string text = TextsOf(path);
  for (const char* part : {"Orvane Detail System", "Contract Summary (4711)", "Page 1",
                           "Sections:", "P1 Z14012 6000 2", "Accessories:"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
  }
}

}  // namespace orvane::test
