// The start of the program: its steps and their order.
#include <QListWidget>
#include <QPushButton>

#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "project/project_file.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"
#include "ui/start_up.h"

namespace orvane::test {

namespace {

using Trace = std::vector<std::string>;

// Notes each reading of the settings as "\KEY NAME", in one trace with whatever else happens.
class TracedSettings : public SettingsStore {
 public:
  explicit TracedSettings(Trace& trace) : trace_(trace) {}
  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override {
    trace_.push_back(key.substr(SettingsKey.size()) + " " + name);
    return values_.Query(root, key, name);
  }
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override {
    return values_.Store(root, key, name, text);
  }

 private:
  Trace& trace_;
  MemorySettings values_;
};

class TracedDesktop : public TestDesktop {
 public:
  Trace Events;
  TracedSettings Traced{Events};
  SettingsStore& Settings() override { return Traced; }
  void ProcessEvents() override {
    Events.push_back("pending events");
    TestDesktop::ProcessEvents();
  }
  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override {
    Events.push_back("box: " + text);
    return TestDesktop::ShowMessageBox(text, title, buttons, icon);
  }
};

class StartUpTest : public ScreenTest {
 protected:
  StartUpTest() { InstallDesktop(desktop); }
  ~StartUpTest() override { QApplication::setQuitOnLastWindowClosed(false); }
  void SetUp() override {}

  // A program folder that holds these of the shipped catalogues.
  void FolderWith(const std::vector<std::string>& files) {
    const std::string shipped = ProgramFolder;
    ProgramFolder = TempPath("program");
    std::filesystem::create_directories(ProgramFolder);
    for (const std::string& file : files) {
      std::filesystem::copy_file(shipped + "/" + file, ProgramFolder + "/" + file);
    }
  }

  // The program ended; another process begins.
  void Restart() {
    start.emplace();
    QApplication::setQuitOnLastWindowClosed(false);
  }

  void HaveCompany(const std::string& name) {
    CompanyName = name;
    SaveRegistration();
    CompanyName.clear();
  }

  void ExpectAbout(std::function<void(QWidget&)> close = [](QWidget& about) {
    QTest::mouseClick(about.findChild<QPushButton*>(), Qt::LeftButton);
  }) {
    dialogs.ExpectDialog("frmAbout", [this, close](QWidget& about) {
      desktop.Events.emplace_back("frmAbout");
      EXPECT_EQ(start->Main(), nullptr);
      EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
      close(about);
    });
  }

  void ExpectRegistration(const std::string& name) {
    dialogs.ExpectDialog("frmRegistration", [this, name](QWidget& window) {
      desktop.Events.emplace_back("frmRegistration");
      EXPECT_TRUE(window.isModal());
      EXPECT_EQ(start->Main(), nullptr);
      Find<QLineEdit>(window, "Text1(0)").setText(ToQt(name));
      QTest::mouseClick(&Find<QPushButton>(window, "SSCommand1"), Qt::LeftButton);
    });
  }

  // "Error loading data from " the file, as the box shows it.
  static std::string Missing(const std::string& file) {
    return "Error loading data from " + ProgramFolder + "/" + file + "\n" +
           DescriptionOf(Failure::FileNotFound);
  }

  TracedDesktop desktop;
  std::optional<StartUp> start{std::in_place};
};

const std::string FolderSetting = "\\Settings Catalogue folder";
const Trace UpToAbout = {FolderSetting, "frmAbout"};
const Trace SettingsBeforeTheWindow = {
    "\\Settings\\MaxDims Z",
    "\\Settings\\MaxDims E",
    "\\Settings\\MaxDims C",
    "\\Settings\\MaxDims V",
    "\\Settings\\MaxDims R",
    "\\Settings\\MaxDims T",
    "\\Settings\\PageSetup LeftMargin",
    "\\Settings\\PageSetup RightMargin",
    "\\Settings\\PageSetup TopMargin",
    "\\Settings\\PageSetup BottomMargin",
    "\\Settings\\Drawings MinHoleSep",
    "\\Registration Company Name",
    "\\Registration Company Details",
};

const Trace LoadOfTheWindow = {
    "pending events",
    "\\Settings\\RecentFiles Recent1",
    "\\Settings\\RecentFiles Recent2",
    "\\Settings\\RecentFiles Recent3",
    "\\Settings\\RecentFiles Recent4",
    "\\Settings\\RecentFiles Recent5",
    "\\Settings\\Screen State",
    "\\Settings\\Screen Width",
    "\\Settings\\Screen Height",
    "\\Settings\\Screen Top",
    "\\Settings\\Screen Left",
    "\\Settings\\Bars GridPane",
    "\\Settings\\Bars GridShare",
    "\\Settings\\Bars PanelShare",
};

Trace operator+(Trace left, const Trace& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

}  // namespace

TEST_F(StartUpTest, The_steps_run_in_their_order) {
  HaveCompany("Anna Steel");
  dialogs.ExpectDialog("frmAbout", [this](QWidget& about) {
    desktop.Events.emplace_back("frmAbout");
    // The accessories are there, nothing else is.
    EXPECT_EQ(AccDefs.UBound(), AccType1Count + AccType2Count);
    EXPECT_GT(AccType1Count, 0);
    EXPECT_GT(AccType2Count, 0);
    EXPECT_EQ(AccUsed.UBound(), AccDefs.UBound());
    EXPECT_TRUE(SectionDims.Empty());
    EXPECT_EQ(MaxDims.At(1), 0);
    EXPECT_EQ(CompanyName, "");
    EXPECT_EQ(FromQt(about.windowTitle()), "About Orvane Detail System");
    EXPECT_TRUE(about.isModal());
    QTest::mouseClick(about.findChild<QPushButton*>(), Qt::LeftButton);
  });
  start->Run();
  EXPECT_EQ(desktop.Events, UpToAbout + SettingsBeforeTheWindow + LoadOfTheWindow);
  ASSERT_NE(start->Main(), nullptr);
  EXPECT_TRUE(start->Main()->isVisible());
  EXPECT_FALSE(start->Main()->isModal());
  EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
  EXPECT_FALSE(SectionDims.Empty());
  EXPECT_FALSE(PunchPatterns.Empty());
  EXPECT_EQ(MaxDims.At(1), 15000);
  EXPECT_EQ(LeftMargin, 10);
  EXPECT_EQ(MinHoleSep, 4);
  EXPECT_EQ(CompanyName, "Anna Steel");
}

TEST_F(StartUpTest, A_first_start_asks_for_the_company_once) {
  ExpectAbout();
  ExpectRegistration("Anna Steel");
  start->Run();
  EXPECT_EQ(desktop.Events,
            UpToAbout + SettingsBeforeTheWindow + Trace{"frmRegistration"} + LoadOfTheWindow);
  EXPECT_EQ(CompanyName, "Anna Steel");
  Restart();
  ResetModel();
  desktop.Events.clear();
  ExpectAbout();
  start->Run();
  EXPECT_EQ(desktop.Events, UpToAbout + SettingsBeforeTheWindow + LoadOfTheWindow);
  EXPECT_EQ(CompanyName, "Anna Steel");
}

TEST_F(StartUpTest, A_job_that_was_named_is_opened_behind_all_the_steps) {
  HaveCompany("Anna Steel");
  const std::string job = TempPath("shed.ovd");
  WriteProjectFile(job);
  ExpectAbout();
  start->Run(job);
  EXPECT_EQ(ProjectFileName, "");  // the window shows first
  RunQueued();
  EXPECT_EQ(ProjectFileName, job);
  EXPECT_EQ(FromQt(start->Main()->windowTitle()), "shed.ovd - Orvane Detailing System");
}

TEST_F(StartUpTest, A_named_job_that_is_not_there_is_told_and_the_window_stays) {
  HaveCompany("Anna Steel");
  ExpectAbout();
  start->Run(TempPath("gone.ovd"));
  dialogs.ExpectBox(std::string(DescriptionOf(Failure::FileNotFound)));
  RunQueued();
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs.Done(); }, Patience));
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_TRUE(start->Main()->isVisible());
}

TEST_F(StartUpTest, A_company_left_empty_is_asked_for_at_the_next_start_again) {
  for (int i = 0; i < 2; ++i) {
    ExpectAbout();
    ExpectRegistration("");
    start->Run();
    ASSERT_NE(start->Main(), nullptr);
    EXPECT_TRUE(dialogs.Done());
    Restart();
  }
}

TEST_F(StartUpTest, A_registration_closed_by_its_frame_or_Escape_stores_nothing_and_start_goes_on) {
  for (const bool byEscape : {true, false}) {
    SCOPED_TRACE(byEscape);
    ExpectAbout();
    dialogs.ExpectDialog("frmRegistration", [byEscape](QWidget& window) {
      Find<QLineEdit>(window, "Text1(0)").setText("Nobody");
      if (byEscape) {
        QTest::keyClick(&window, Qt::Key_Escape);
      } else {
        window.close();
      }
    });
    start->Run();
    ASSERT_NE(start->Main(), nullptr);
    EXPECT_TRUE(start->Main()->isVisible());
    EXPECT_EQ(CompanyName, "");
    EXPECT_EQ(desktop.Traced.Query(SettingsRoot::LocalMachine, SettingsKey + "\\Registration",
                                   "Company Name"),
              std::nullopt);
    Restart();
  }
}

TEST_F(StartUpTest, The_about_box_must_be_closed_before_the_window_comes) {
  HaveCompany("Anna Steel");
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& about) { QTest::mouseClick(about.findChild<QPushButton*>(), Qt::LeftButton); },
      [](QWidget& about) { QTest::keyClick(&about, Qt::Key_Escape); },
      [](QWidget& about) { about.close(); },
  };
  for (const auto& way : ways) {
    ExpectAbout([this, &way](QWidget& about) {
      RunQueued();
      EXPECT_TRUE(about.isVisible());
      EXPECT_EQ(start->Main(), nullptr);
      way(about);
    });
    start->Run();
    ASSERT_NE(start->Main(), nullptr);
    EXPECT_TRUE(start->Main()->isVisible());
    Restart();
  }
}

TEST_F(StartUpTest, Without_accs1_its_message_comes_first_and_the_accessory_list_stays_empty) {
  FolderWith({"dims.csv", "punch.csv", "accs2.csv"});
  HaveCompany("Anna Steel");
  dialogs.ExpectBox(Missing("accs1.csv"), "Orvane Detailing System");
  ExpectAbout();
  start->Run();
  const std::string box = "box: Error loading data from " + ProgramFolder + "/accs1.csv\r" +
                          DescriptionOf(Failure::FileNotFound);
  EXPECT_EQ(desktop.Events,
            (Trace{FolderSetting, box, "frmAbout"} + SettingsBeforeTheWindow + LoadOfTheWindow));
  EXPECT_EQ(AccType2Count, 0);
  EXPECT_EQ(AccUsed.UBound(), 0);
  EXPECT_EQ(start->Main()->findChild<QListWidget*>("lstAccessories")->count(), 0);
  EXPECT_FALSE(SectionDims.Empty());
}

TEST_F(StartUpTest, Without_any_catalogue_three_messages_come_and_the_window_after_them) {
  FolderWith({});
  HaveCompany("Anna Steel");
  dialogs.ExpectBox(Missing("accs1.csv"), "Orvane Detailing System");
  ExpectAbout();
  dialogs.ExpectBox(Missing("dims.csv"), "Orvane Detailing System");
  dialogs.ExpectBox(Missing("punch.csv"), "Orvane Detailing System");
  start->Run();
  EXPECT_EQ(dialogs.Boxes().size(), 3U);
  ASSERT_NE(start->Main(), nullptr);
  EXPECT_TRUE(start->Main()->isVisible());
  // The load went on behind the readers.
  EXPECT_EQ(start->Main()->findChild<QComboBox*>("cboPitch")->count(), 6);
  start->Main()->Run(Command::AddSection, 1);
  EXPECT_EQ(Items.UBound(), 1);
}

TEST_F(StartUpTest, A_margin_beyond_16_bits_is_told_and_the_start_goes_on) {
  HaveCompany("Anna Steel");
  desktop.Traced.Store(SettingsRoot::LocalMachine, SettingsKey + "\\Settings\\PageSetup",
                       "LeftMargin", "99999");
  ExpectAbout();
  dialogs.ExpectBox("Overflow in the settings\nPageSetup, LeftMargin: 99999 becomes 10");
  start->Run();
  EXPECT_EQ(LeftMargin, 10);
  EXPECT_EQ(RightMargin, 10);
  EXPECT_EQ(MaxDims.At(6), 4000);
  EXPECT_EQ(MinHoleSep, 4);
  EXPECT_EQ(CompanyName, "Anna Steel");
  ASSERT_NE(start->Main(), nullptr);
  EXPECT_TRUE(start->Main()->isVisible());
}

TEST_F(StartUpTest, Each_step_can_be_run_by_itself) {
  start->LoadAccessories();
  EXPECT_GT(AccDefs.UBound(), 0);
  start->SetSettingsRoot();
  EXPECT_EQ(TheSettingsRoot, SettingsRoot::LocalMachine);
  EXPECT_EQ(desktop.Events, Trace{});
  start->ReadSettings();
  EXPECT_EQ(desktop.Events, SettingsBeforeTheWindow);
  desktop.Events.clear();
  CompanyName = "Anna Steel";
  start->AskRegistration();
  start->ShowMain();
  EXPECT_EQ(desktop.Events, LoadOfTheWindow);
}

TEST_F(StartUpTest, The_application_bears_its_name_version_and_icon) {
  PrepareApplication();
  EXPECT_EQ(QApplication::applicationDisplayName(), "Orvane Detailing System");
  EXPECT_FALSE(QApplication::applicationVersion().isEmpty());
  EXPECT_FALSE(QApplication::windowIcon().isNull());
  EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

}  // namespace orvane::test
