// Starting the help: which viewer, with which file, and what the user is told without one.
#include <QtTest/QTest>

#include <unistd.h>
#include <QDesktopServices>
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
    QDesktopServices::unsetUrlHandler("file");
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
  }

  std::string file;
  QTextBrowser browser;  // takes the pages' address

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
  StartHelp(file);
  EXPECT_EQ(Told(), Started("kchmviewer"));
}

TEST_F(HelpViewer, Without_the_first_viewer_the_second_gets_it) {
  AddViewer("xchm");
  AddPages();
  StartHelp(file);
  EXPECT_EQ(Told(), Started("xchm"));
}

TEST_F(HelpViewer, The_viewer_is_not_waited_for) {
  AddViewer("kchmviewer", "while [ ! -e '" + TempPath("go on") + "' ]; do /bin/sleep 0.01; done\n");
  StartHelp(file);
  EXPECT_FALSE(std::filesystem::exists(TempPath("told")));
  TempFile("go on", "");
  EXPECT_EQ(Told(), Started("kchmviewer"));
}

TEST_F(HelpViewer, Without_a_viewer_the_pages_open_in_the_browser) {
  AddPages();
  QDesktopServices::setUrlHandler("file", &browser, "setSource");
  StartHelp(file);
  EXPECT_EQ(FromQt(browser.source().toLocalFile()), TempPath("program folder/help/index.html"));
}

TEST_F(HelpViewer, Without_the_compiled_help_its_pages_open_although_a_viewer_is_there) {
  AddViewer("kchmviewer");
  AddPages();
  std::filesystem::remove(file);
  QDesktopServices::setUrlHandler("file", &browser, "setSource");
  StartHelp(file);
  EXPECT_EQ(FromQt(browser.source().toLocalFile()), TempPath("program folder/help/index.html"));
  EXPECT_FALSE(std::filesystem::exists(TempPath("told")));
}

TEST_F(HelpViewer, Without_anything_the_error_names_the_file) {
  const std::string text = "The help can't be shown: no viewer for " + file + " was found";
  EXPECT_EQ(test::ErrorOf([this] { StartHelp(file); }), text);
  // The display of the tests has no browser to open pages in.
  AddPages();
  EXPECT_EQ(test::ErrorOf([this] { StartHelp(file); }), text);
}

}  // namespace

}  // namespace orvane
