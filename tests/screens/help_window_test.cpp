// The window of our own that shows the help's pages.
#include <QScrollBar>

#include "core/files.h"
#include "core/program_folder.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"
#include "ui/platform/help_window.h"

namespace orvane::test {

namespace {

class HelpWindowTest : public ScreenTest {
 protected:
  // The house's own pages, with the lists that the build lays beside them.
  void SetUp() override {
    ScreenTest::SetUp();
    const std::string help = ORVANE_SOURCE_DIR "/help/";
    folder = TempPath("help");
    std::filesystem::copy(help + "pages", folder);
    for (const char* list : {"Lintaro.hhc", "Lintaro.hhk"}) {
      std::filesystem::copy(help + list, folder + "/" + list);
    }
  }
  void TearDown() override {
    delete Window();
    ScreenTest::TearDown();
  }

  static HelpWindow* Window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* help = dynamic_cast<HelpWindow*>(window)) return help;
    }
    return nullptr;
  }
  void Show(const char* page) {
    ShowHelpWindow(ToQt(folder), page);
    Settle();
    ASSERT_NE(Window(), nullptr);
    Window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window(), Patience));
  }
  template <class Control>
  Control& Of(const char* name) {
    return Find<Control>(*Window(), name);
  }
  std::string Page() { return FromQt(Of<QTextBrowser>("txtPage").source().fileName()); }

  std::string folder;
};

std::vector<std::string> Texts(const QListWidget& list) {
  std::vector<std::string> texts;
  for (int i = 0; i < list.count(); ++i) texts.push_back(FromQt(list.item(i)->text()));
  return texts;
}

}  // namespace

TEST_F(HelpWindowTest, It_shows_the_page_asked_for_and_where_it_stands_in_the_contents) {
  Show("notches.html");
  EXPECT_EQ(Page(), "notches.html");
  EXPECT_EQ(FromQt(Window()->windowTitle()), "Notches - Help");
  EXPECT_EQ(FromQt(Of<QTreeWidget>("tvwContents").currentItem()->text(0)), "Notches");
  EXPECT_EQ(Focus(), "txtPage");
}

TEST_F(HelpWindowTest, The_contents_are_those_of_the_compiled_help) {
  Show("index.html");
  auto& contents = Of<QTreeWidget>("tvwContents");
  EXPECT_EQ(FromQt(contents.topLevelItem(0)->text(0)), "Welcome");
  EXPECT_EQ(FromQt(contents.topLevelItem(1)->text(0)), "A first job, step by step");
  const QTreeWidgetItem* screens = contents.topLevelItem(2);
  EXPECT_EQ(FromQt(screens->text(0)), "The screens");
  EXPECT_EQ(FromQt(screens->child(0)->text(0)), "Main window");
  EXPECT_EQ(FromQt(screens->child(1)->text(0)), "Sections grid");
}

TEST_F(HelpWindowTest, Keys_lead_through_the_contents_and_back) {
  Show("index.html");
  Press(Qt::Key_C, Qt::AltModifier);
  Of<QTreeWidget>("tvwContents").setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_EQ(Page(), "first-job.html");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page(), "index.html");
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Page(), "first-job.html");
}

TEST_F(HelpWindowTest, The_index_keeps_the_entries_that_hold_all_words_typed) {
  Show("index.html");
  Of<QTabWidget>("tabHelp").setCurrentIndex(1);
  EXPECT_EQ(Focus(), "txtIndex");
  Type("list accessory");
  EXPECT_EQ(Texts(Of<QListWidget>("lstIndex")),
            (std::vector<std::string>{"Accessory list file", "Accessory list, on the screen"}));
  Press(Qt::Key_Return);
  EXPECT_EQ(Page(), "accessory-file.html");
}

TEST_F(HelpWindowTest, The_search_finds_pages_by_what_they_say_and_marks_the_word) {
  Show("index.html");
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(Focus(), "txtSearch");
  Type("countersunk star");
  Press(Qt::Key_Return);
  const std::vector<std::string> found = Texts(Of<QListWidget>("lstSearch"));
  ASSERT_FALSE(found.empty());
  const std::string count = FromQt(Of<QLabel>("lblFound").text());
  EXPECT_EQ(count, std::to_string(found.size()) + (found.size() == 1 ? " page" : " pages"));
  EXPECT_EQ(Focus(), "lstSearch");
  Press(Qt::Key_Return);
  auto& page = Of<QTextBrowser>("txtPage");
  EXPECT_TRUE(page.toPlainText().contains("star", Qt::CaseInsensitive));
  EXPECT_EQ(FromQt(page.textCursor().selectedText().toLower()), "countersunk");
}

TEST_F(HelpWindowTest, Words_that_no_page_holds_find_none) {
  Show("index.html");
  Press(Qt::Key_F, Qt::ControlModifier);
  Type("qwertz");
  Press(Qt::Key_Return);
  EXPECT_EQ(FromQt(Of<QLabel>("lblFound").text()), "0 pages");
  EXPECT_EQ(Focus(), "txtSearch");
}

TEST_F(HelpWindowTest, A_place_within_a_page_is_scrolled_to) {
  Show("main-window.html");
  auto& page = Of<QTextBrowser>("txtPage");
  EXPECT_EQ(page.verticalScrollBar()->value(), 0);
  // The headings that have a place read as they stand.
  const QString text = page.toPlainText();
  EXPECT_TRUE(text.contains("\nToolbar\n")) << FromQt(text);
  EXPECT_TRUE(text.contains("\nDrawing area\n"));
  Window()->ShowPage("main-window.html#drawing");
  EXPECT_TRUE(QTest::qWaitFor([&] { return page.verticalScrollBar()->value() > 0; }, Patience));
}

TEST_F(HelpWindowTest, F1_in_a_dialog_asks_for_the_help) {
  dialogs.ExpectDialog("frmMaxDims", [&](QWidget& lengths) {
    QTest::keyClick(&Find<QLineEdit>(lengths, "txtMaxDims(1)"), Qt::Key_F1);
    QTest::keyClick(&lengths, Qt::Key_Escape);
  });
  Entry("mnuProject(7)").trigger();
  Settle();
  EXPECT_EQ(platform.HelpFiles, std::vector<std::string>{ProgramPath("\\Lintaro.chm")});
}

TEST_F(HelpWindowTest, It_belongs_to_the_modal_window_it_is_asked_for_in_and_outlives_it) {
  Show("index.html");
  EXPECT_EQ(Window()->parentWidget(), nullptr);
  dialogs.ExpectDialog("frmMaxDims", [&](QWidget& lengths) {
    ShowHelpWindow(ToQt(folder), "max-lengths.html");
    HelpWindow& window = Find<HelpWindow>(lengths, "frmHelp");
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&lengths, Qt::Key_Escape);
  });
  Entry("mnuProject(7)").trigger();
  Settle();
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->parentWidget(), nullptr);
  EXPECT_TRUE(Window()->isVisible());
  EXPECT_EQ(Page(), "max-lengths.html");
}

TEST_F(HelpWindowTest, Each_window_has_its_page) {
  for (const auto& source : std::filesystem::directory_iterator(ORVANE_SOURCE_DIR "/ui/dialogs")) {
    const std::string file = source.path().filename().string();
    if (file.rfind("frm_", 0) != 0 || source.path().extension() != ".cpp") continue;
    const QString text = ToQt(ReadWholeFile(source.path().string()));
    const QRegularExpressionMatch name =
        QRegularExpression("setObjectName\\(\"(frm\\w+)\"\\)").match(text);
    if (!name.hasMatch()) continue;
    const QString page = HelpPageOf(name.captured(1));
    EXPECT_NE(page, "index.html") << file;
    EXPECT_TRUE(std::filesystem::exists(folder + "/" + FromQt(page))) << file;
  }
  EXPECT_EQ(HelpPageOf("frmMain"), "main-window.html");
  EXPECT_EQ(HelpPageOf(""), "index.html");
}

TEST_F(HelpWindowTest, A_list_is_read_with_its_depths_whatever_the_case_of_its_tags) {
  const std::vector<HelpEntry> entries = ReadHelpList(
      "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"A &amp; B\">"
      "<PARAM NAME=\"Local\" VALUE=\"a.html#x\"></object>"
      "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"C\"></OBJECT></UL></ul>");
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(FromQt(entries[0].Name), "A & B");
  EXPECT_EQ(FromQt(entries[0].Page), "a.html#x");
  EXPECT_EQ(entries[0].Depth, 0);
  EXPECT_EQ(FromQt(entries[1].Name), "C");
  EXPECT_EQ(FromQt(entries[1].Page), "");
  EXPECT_EQ(entries[1].Depth, 1);
}

}  // namespace orvane::test
