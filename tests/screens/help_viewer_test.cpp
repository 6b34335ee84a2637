// Starting the help: which viewer, with which file, and what the user is told without one.
#include <QtTest/QTest>

#include <unistd.h>
#include <QProcessEnvironment>
#include <QTextBrowser>
#include <QUrl>

#include <filesystem>

#include "core/program_folder.h"
#include "tests/screens/dialog_fixture.h"
#include "ui/platform/help_viewer.h"

namespace orvane {

namespace {

using test::DialogTest;
using test::RunQueued;

// A program folder with a compiled help, and a search path on which only the test's own viewers
// stand.
class HelpViewer : public DialogTest {
 protected:
  HelpViewer() : searchPath_(qgetenv("PATH")) {
    std::filesystem::create_directories(TempPath("bin"));
    std::filesystem::create_directories(TempPath("program folder"));
    ProgramFolder = TempPath("program folder");
    file = TempFile("program folder/Lintaro.chm", "ITSF");
    qputenv("PATH", QByteArray::fromStdString(TempPath("bin")));
  }
  ~HelpViewer() override {
    qputenv("PATH", searchPath_);
    delete Window();
  }

  // Our own window of the help; null while there is none.
  static QWidget* Window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "frmHelp") return window;
    }
    return nullptr;
  }

  // The page that our own window shows, once it has come.
  static std::string ShownPage() {
    EXPECT_TRUE(QTest::qWaitFor([] { return Window() != nullptr; }, 10000));
    if (Window() == nullptr) return "";
    return FromQt(Window()->findChild<QTextBrowser*>("txtPage")->source().toLocalFile());
  }

  // A viewer that writes down what it was started with, one argument a line.
  void AddViewer(const std::string& name, const std::string& before = "") {
    const std::string script =
        TempFile("bin/" + name, "#!/bin/sh\n" + before + "{ echo " + name +
                                    "; for a in \"$@\"; do echo \"$a\"; done; echo \"sandbox off: "
                                    "$QTWEBENGINE_DISABLE_SANDBOX\"; } > '" +
                                    TempPath("told.part") + "'\n/bin/mv '" + TempPath("told.part") +
                                    "' '" + TempPath("told") + "'\n");
    std::filesystem::permissions(script, std::filesystem::perms(0755));
  }

  // What the viewer wrote, once it has.
  std::string Told() {
    const std::string path = TempPath("told");
    EXPECT_TRUE(QTest::qWaitFor([&path] { return std::filesystem::exists(path); }, 10000));
    return test::BytesOf(path);
  }

  // What a viewer called by that name writes for the one file.
  std::string Started(const std::string& name) const {
    const std::string sandbox = geteuid() == 0 ? "1" : "";
    return name + "\n" + file + "\nsandbox off: " + sandbox + "\n";
  }

  void AddPages() {
    std::filesystem::create_directories(TempPath("program folder/help"));
    TempFile("program folder/help/index.html", "<html></html>");
    TempFile("program folder/help/notches.html", "<html></html>");
  }

  // What opens a page in the browser, and ends with that code.
  void AddOpener(int code) {
    const std::string script =
        TempFile("bin/xdg-open", "#!/bin/sh\necho \"$@\" > '" + TempPath("told.part") +
                                     "'\n/bin/mv '" + TempPath("told.part") + "' '" +
                                     TempPath("told") + "'\nexit " + std::to_string(code) + "\n");
    std::filesystem::permissions(script, std::filesystem::perms(0755));
  }
  std::string PageAddress(const std::string& page) {
    return FromQt(QUrl::fromLocalFile(ToQt(TempPath("program folder/help/" + page))).toString());
  }

  std::string file;

 private:
  QByteArray searchPath_;
};

TEST_F(HelpViewer, The_command_is_the_viewers_name_a_blank_and_the_file) {
  EXPECT_EQ(HelpCommand("C:\\Program Files\\Orvane\\Lintaro.chm"),
            "hh.exe C:\\Program Files\\Orvane\\Lintaro.chm");
}

TEST_F(HelpViewer, The_first_viewer_installed_gets_the_file) {
  AddViewer("kchmviewer");
  AddViewer("xchm");
  StartHelp(file, "frmMain");
  EXPECT_EQ(Told(), Started("kchmviewer"));
}

TEST_F(HelpViewer, Without_the_first_viewer_the_second_gets_it) {
  AddViewer("xchm");
  AddPages();
  StartHelp(file, "frmMain");
  EXPECT_EQ(Told(), Started("xchm"));
}

TEST_F(HelpViewer, The_viewer_is_not_waited_for) {
  AddViewer("kchmviewer", "while [ ! -e '" + TempPath("go on") + "' ]; do /bin/sleep 0.01; done\n");
  StartHelp(file, "frmMain");
  EXPECT_FALSE(std::filesystem::exists(TempPath("told")));
  TempFile("go on", "");
  EXPECT_EQ(Told(), Started("kchmviewer"));
}

TEST_F(HelpViewer, Without_a_viewer_the_windows_page_opens_in_the_browser) {
  AddPages();
  AddOpener(0);
  StartHelp(file, "frmNotches");
  EXPECT_EQ(Told(), PageAddress("notches.html") + "\n");
  RunQueued();
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(HelpViewer, Without_the_compiled_help_its_pages_open_although_a_viewer_is_there) {
  AddViewer("kchmviewer");
  AddPages();
  AddOpener(0);
  std::filesystem::remove(file);
  StartHelp(file, "");
  EXPECT_EQ(Told(), PageAddress("index.html") + "\n");
}

TEST_F(HelpViewer, An_opener_that_finds_no_browser_brings_the_window_of_our_own) {
  AddPages();
  AddOpener(3);
  StartHelp(file, "frmNotches");
  EXPECT_EQ(Told(), PageAddress("notches.html") + "\n");
  EXPECT_EQ(ShownPage(), TempPath("program folder/help/notches.html"));
}

TEST_F(HelpViewer, Without_viewer_and_opener_our_own_window_shows_the_page) {
  AddPages();
  StartHelp(file, "frmNotches");
  EXPECT_EQ(ShownPage(), TempPath("program folder/help/notches.html"));
}

TEST_F(HelpViewer, A_window_without_a_page_of_its_own_gets_the_first) {
  AddPages();
  StartHelp(file, "whatever");
  EXPECT_EQ(ShownPage(), TempPath("program folder/help/index.html"));
}

TEST_F(HelpViewer, Without_anything_the_error_names_the_file) {
  const std::string text = "The help can't be shown: no viewer for " + file + " was found";
  EXPECT_EQ(test::ErrorOf([this] { StartHelp(file, "frmMain"); }), text);
  EXPECT_EQ(Window(), nullptr);
}

}  // namespace

}  // namespace orvane
