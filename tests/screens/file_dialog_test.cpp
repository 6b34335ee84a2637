// The file dialogs: the real ones, driven by keys.
#include <QtTest/QTest>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QTreeView>
#include <algorithm>
#include <filesystem>

#include "tests/screens/dialog_fixture.h"
#include "tests/support/patience.h"
#include "ui/platform/file_dialog.h"

namespace orvane {

namespace {

using test::DialogTest;

class FileDialogTest : public DialogTest {
 protected:
  FileDialogTest() : folder(TempPath("jobs")), workingFolder_(std::filesystem::current_path()) {
    std::filesystem::create_directories(folder);
    platform.RealFileDialogs = true;
  }
  ~FileDialogTest() override { std::filesystem::current_path(workingFolder_); }

  // The three dialogs of the system. A title of the test's own keeps their last folders apart.
  FileDialog Opening() const {
    return {Title("Open Project"),
            "Orvane Detail Projects (*.ovd)|*.ovd",
            ".ovd",
            folder,
            false,
            true,
            ""};
  }
  FileDialog Saving() const {
    return {Title("Save Project"),
            "Orvane Detail Projects (*.ovd)|*.ovd",
            ".ovd",
            folder,
            true,
            false,
            ""};
  }
  FileDialog Exporting() const {
    return {Title("CAM File Export"), "CAM Files|*.xov", ".xov", folder, false, false, ""};
  }
  static std::string Title(const std::string& title) {
    return title + " of " + ::testing::UnitTest::GetInstance()->current_test_info()->name();
  }

  void Foresee(std::function<void(QFileDialog&)> action) {
    dialogs.ExpectDialog("FileDialog", [action = std::move(action)](QWidget& window) {
      action(dynamic_cast<QFileDialog&>(window));
    });
  }
  static void TypeName(QFileDialog& dialog, const std::string& name) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog, test::Patience));
    auto& field = Find<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_EQ(dialog.focusWidget(), &field);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, ToQt(name));
  }
  // Keys go to the list of completions while it is open.
  static void Enter(QFileDialog& dialog) {
    QWidget* completions = QApplication::activePopupWidget();
    QTest::keyClick(completions != nullptr ? completions : &Find(dialog, "fileNameEdit"),
                    Qt::Key_Return);
  }
  static void Escape(QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }

  // Types the name and presses Enter; what the dialog then asks or says is foreseen before.
  std::optional<std::string> Save(const FileDialog& dialog, const std::string& name) {
    Foresee([name](QFileDialog& window) {
      TypeName(window, name);
      Enter(window);
    });
    return platform.ShowSaveDialog(dialog);
  }
  std::optional<std::string> Open(const FileDialog& dialog, const std::string& name) {
    Foresee([name](QFileDialog& window) {
      TypeName(window, name);
      Enter(window);
    });
    return platform.ShowOpenDialog(dialog);
  }
  // The folder that a dialog starts in; it is cancelled.
  std::string StartOf(const FileDialog& dialog) {
    std::string start;
    Foresee([&start](QFileDialog& window) {
      start = FromQt(window.directory().absolutePath());
      Escape(window);
    });
    EXPECT_EQ(platform.ShowOpenDialog(dialog), std::nullopt);
    return start;
  }

  std::string In(const std::string& name) const { return folder + "/" + name; }
  void AddFile(const std::string& name) { TempFile("jobs/" + name, "x"); }

  const std::string folder;

 private:
  const std::filesystem::path workingFolder_;
};

TEST_F(FileDialogTest, WithExtension_adds_the_extension_unless_the_name_ends_in_it) {
  struct Case {
    const char* Path;
    const char* Extension;
    const char* Result;
  };
  const std::vector<Case> cases = {
      {"/jobs/job1", ".ovd", "/jobs/job1.ovd"},
      {"/jobs/job1.ovd", ".ovd", "/jobs/job1.ovd"},
      {"/jobs/JOB1.OVD", ".ovd", "/jobs/JOB1.OVD"},
      {"/jobs/job1.Ovd", ".ovd", "/jobs/job1.Ovd"},
      {"/jobs/job3.5m", ".ovd", "/jobs/job3.5m.ovd"},
      {"/jobs/a.xac", ".xov", "/jobs/a.xac.xov"},
      {"/jobs/a.ovd.xov", ".ovd", "/jobs/a.ovd.xov.ovd"},
      {"/jobs/ovd", ".ovd", "/jobs/ovd.ovd"},
      {"/jobs/x.", ".ovd", "/jobs/x..ovd"},
      {"a", ".ovd", "a.ovd"},
      {"a", "", "a"},
  };
  for (const Case& row : cases) EXPECT_EQ(WithExtension(row.Path, row.Extension), row.Result);
}

TEST_F(FileDialogTest, ToolkitFilter_splits_text_and_pattern) {
  EXPECT_EQ(ToolkitFilter("Orvane Detail Projects (*.ovd)|*.ovd"),
            "Orvane Detail Projects (*.ovd) (*.ovd *.OVD)");
  EXPECT_EQ(ToolkitFilter("CAM Files|*.xov"), "CAM Files (*.xov) (*.xov *.XOV)");
  EXPECT_EQ(ToolkitFilter("All"), "All");
}

TEST_F(FileDialogTest, The_dialog_bears_its_title_and_shows_the_filters_text) {
  const std::vector<std::pair<FileDialog, std::string>> cases = {
      {Opening(), "Orvane Detail Projects (*.ovd)"},
      {Saving(), "Orvane Detail Projects (*.ovd)"},
      {Exporting(), "CAM Files (*.xov)"},
  };
  for (const auto& [dialog, shown] : cases) {
    Foresee([&dialog = dialog, &shown = shown](QFileDialog& window) {
      EXPECT_EQ(FromQt(window.windowTitle()), dialog.Title);
      const auto& types = Find<QComboBox>(window, "fileTypeCombo");
      EXPECT_EQ(types.count(), 1);
      EXPECT_EQ(FromQt(types.currentText()), shown);
      EXPECT_EQ(Find<QLineEdit>(window, "fileNameEdit").text(), "");
      Escape(window);
    });
    EXPECT_EQ(platform.ShowOpenDialog(dialog), std::nullopt);
  }
}

TEST_F(FileDialogTest, The_filter_shows_files_of_its_kind_whatever_the_case) {
  for (const char* name : {"a.ovd", "B.OVD", "c.Ovd", "d.xov", "e", "ovd"}) AddFile(name);
  std::filesystem::create_directories(In("folder"));
  Foresee([](QFileDialog& window) {
    auto& list = Find<QTreeView>(window, "treeView");
    const auto names = [&list] {
      std::vector<std::string> shown;
      for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
        shown.push_back(FromQt(list.model()->index(row, 0, list.rootIndex()).data().toString()));
      }
      std::sort(shown.begin(), shown.end());
      return shown;
    };
    const std::vector<std::string> expected = {"B.OVD", "a.ovd", "c.Ovd", "folder"};
    EXPECT_TRUE(QTest::qWaitFor([&] { return names() == expected; }));
    EXPECT_EQ(names(), expected);
    Escape(window);
  });
  platform.ShowOpenDialog(Opening());
}

TEST_F(FileDialogTest, A_saved_name_gets_the_extension_unless_it_has_it) {
  EXPECT_EQ(Save(Saving(), "job1"), In("job1.ovd"));
  EXPECT_EQ(Save(Saving(), "job2.ovd"), In("job2.ovd"));
  EXPECT_EQ(Save(Saving(), "JOB3.OVD"), In("JOB3.OVD"));
  EXPECT_EQ(Save(Saving(), "job3.5m"), In("job3.5m.ovd"));
  EXPECT_EQ(Save(Saving(), TempPath("elsewhere")), TempPath("elsewhere.ovd"));
  EXPECT_EQ(Save(Saving(), "../up"), TempPath("up.ovd"));
}

TEST_F(FileDialogTest, Saving_over_a_file_is_asked_about_the_final_name) {
  AddFile("job1.ovd");
  AddFile("job2");
  dialogs.ExpectDialog("FileDialog", [this](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    TypeName(dialog, "job1");
    dialogs.ExpectBox("job1.ovd already exists.\nDo you want to replace it?", Saving().Title,
                      QMessageBox::Yes);
    Enter(dialog);
  });
  EXPECT_EQ(platform.ShowSaveDialog(Saving()), In("job1.ovd"));
  // A file of the typed name is not the one that would be replaced.
  EXPECT_EQ(Save(Saving(), "job2"), In("job2.ovd"));
}

TEST_F(FileDialogTest, No_to_the_question_goes_back_to_the_dialog) {
  AddFile("job1.ovd");
  dialogs.ExpectDialog("FileDialog", [this](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    TypeName(dialog, "job1.ovd");
    dialogs.ExpectBox("job1.ovd already exists.\nDo you want to replace it?", Saving().Title,
                      QMessageBox::No);
    Enter(dialog);
    EXPECT_TRUE(dialog.isVisible());
    TypeName(dialog, "job2");
    Enter(dialog);
  });
  EXPECT_EQ(platform.ShowSaveDialog(Saving()), In("job2.ovd"));
}

TEST_F(FileDialogTest, A_file_that_must_exist_is_taken_with_its_extension_or_as_it_is_called) {
  for (const char* name : {"job1.ovd", "job2", "job3", "job3.ovd"}) AddFile(name);
  EXPECT_EQ(Open(Opening(), "job1.ovd"), In("job1.ovd"));
  EXPECT_EQ(Open(Opening(), "job1"), In("job1.ovd"));
  EXPECT_EQ(Open(Opening(), "job2"), In("job2"));
  EXPECT_EQ(Open(Opening(), "job3"), In("job3.ovd"));
}

TEST_F(FileDialogTest, A_file_that_must_exist_and_does_not_is_refused) {
  dialogs.ExpectDialog("FileDialog", [this](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    TypeName(dialog, "gone");
    dialogs.ExpectBox("gone.ovd doesn't exist.", Opening().Title);
    Enter(dialog);
    EXPECT_TRUE(dialog.isVisible());
    Escape(dialog);
  });
  EXPECT_EQ(platform.ShowOpenDialog(Opening()), std::nullopt);
}

TEST_F(FileDialogTest, A_folder_that_does_not_exist_is_refused) {
  std::filesystem::create_directories(In("odd.ovd"));
  dialogs.ExpectDialog("FileDialog", [this](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    TypeName(dialog, "nowhere/job1");
    dialogs.ExpectBox("The folder " + In("nowhere") + " doesn't exist.", Saving().Title);
    Enter(dialog);
    EXPECT_TRUE(dialog.isVisible());
    TypeName(dialog, "odd");
    dialogs.ExpectBox("odd.ovd is a folder.", Saving().Title);
    Enter(dialog);
    EXPECT_TRUE(dialog.isVisible());
    Escape(dialog);
  });
  EXPECT_EQ(platform.ShowSaveDialog(Saving()), std::nullopt);
}

TEST_F(FileDialogTest, A_folder_that_is_typed_is_gone_into) {
  std::filesystem::create_directories(In("inner"));
  Foresee([this](QFileDialog& window) {
    TypeName(window, "inner");
    Enter(window);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(FromQt(window.directory().absolutePath()), In("inner"));
    EXPECT_EQ(Find<QLineEdit>(window, "fileNameEdit").text(), "");
    TypeName(window, "job1");
    Enter(window);
  });
  EXPECT_EQ(platform.ShowSaveDialog(Saving()), In("inner/job1.ovd"));
}

TEST_F(FileDialogTest, The_export_takes_an_existing_file_without_a_question_and_a_new_name) {
  AddFile("old.xov");
  AddFile("a.xac");
  EXPECT_EQ(Open(Exporting(), "old.xov"), In("old.xov"));
  EXPECT_EQ(Open(Exporting(), "old"), In("old.xov"));
  EXPECT_EQ(Open(Exporting(), "new"), In("new.xov"));
  EXPECT_EQ(Open(Exporting(), "a.xac"), In("a.xac.xov"));
  EXPECT_EQ(Open(Exporting(), "b.xac"), In("b.xac.xov"));
}

TEST_F(FileDialogTest, The_export_refuses_a_folder_that_does_not_exist) {
  dialogs.ExpectDialog("FileDialog", [this](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    TypeName(dialog, "nowhere/a.xov");
    dialogs.ExpectBox("The folder " + In("nowhere") + " doesn't exist.", Exporting().Title);
    Enter(dialog);
    EXPECT_TRUE(dialog.isVisible());
    Escape(dialog);
  });
  EXPECT_EQ(platform.ShowOpenDialog(Exporting()), std::nullopt);
}

TEST_F(FileDialogTest, A_file_chosen_in_the_list_is_taken) {
  AddFile("job1.ovd");
  AddFile("job2.OVD");
  Foresee([](QFileDialog& window) {
    auto& list = Find<QTreeView>(window, "treeView");
    const auto entry = [&list] {
      for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
        const QModelIndex index = list.model()->index(row, 0, list.rootIndex());
        if (index.data().toString() == "job2.OVD") return index;
      }
      return QModelIndex();
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return entry().isValid(); }));
    list.scrollTo(entry());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualRect(entry()).center());
    EXPECT_EQ(Find<QLineEdit>(window, "fileNameEdit").text(), "job2.OVD");
    auto* buttons = window.findChild<QDialogButtonBox*>("buttonBox");
    QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
  });
  EXPECT_EQ(platform.ShowOpenDialog(Opening()), In("job2.OVD"));
}

TEST_F(FileDialogTest, Escape_the_frame_and_the_cancel_button_choose_nothing) {
  const std::vector<std::function<void(QFileDialog&)>> ways = {
      [](QFileDialog& window) { Escape(window); },
      [](QFileDialog& window) { window.close(); },
      [](QFileDialog& window) {
        auto* buttons = window.findChild<QDialogButtonBox*>("buttonBox");
        QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
      },
  };
  for (const auto& cancel : ways) {
    Foresee([&cancel](QFileDialog& window) {
      TypeName(window, "job1");
      cancel(window);
    });
    EXPECT_EQ(platform.ShowSaveDialog(Saving()), std::nullopt);
  }
}

TEST_F(FileDialogTest, An_empty_name_chooses_nothing) {
  Foresee([](QFileDialog& window) {
    Enter(window);
    EXPECT_TRUE(window.isVisible());
    Escape(window);
  });
  EXPECT_EQ(platform.ShowSaveDialog(Saving()), std::nullopt);
}

TEST_F(FileDialogTest, A_dialog_without_a_folder_starts_in_its_own_last_one) {
  std::filesystem::create_directories(In("one"));
  std::filesystem::create_directories(In("two"));
  std::filesystem::create_directories(In("present"));
  std::filesystem::current_path(In("present"));
  FileDialog saving = Saving();
  FileDialog exporting = Exporting();
  saving.InitialFolder.clear();
  exporting.InitialFolder.clear();
  // At its first use there is none: the current folder.
  EXPECT_EQ(StartOf(saving), In("present"));
  EXPECT_EQ(StartOf(exporting), In("present"));
  EXPECT_EQ(Save(saving, In("one/job1")), In("one/job1.ovd"));
  EXPECT_EQ(StartOf(saving), In("one"));
  EXPECT_EQ(StartOf(exporting), In("present"));
  EXPECT_EQ(Open(exporting, In("two/a")), In("two/a.xov"));
  EXPECT_EQ(StartOf(saving), In("one"));
  EXPECT_EQ(StartOf(exporting), In("two"));
}

TEST_F(FileDialogTest, A_dialog_without_any_folder_yet_starts_in_that_of_the_job) {
  std::filesystem::create_directories(In("jobs"));
  std::filesystem::create_directories(In("stored"));
  std::filesystem::create_directories(In("present"));
  std::filesystem::current_path(In("present"));
  FileDialog saving = Saving();
  saving.InitialFolder.clear();
  saving.FirstFolder = In("jobs") + "/";
  EXPECT_EQ(StartOf(saving), In("jobs"));
  saving.InitialFolder = In("stored");
  EXPECT_EQ(StartOf(saving), In("stored"));
  saving.InitialFolder = In("gone");
  EXPECT_EQ(StartOf(saving), In("jobs"));
  saving.FirstFolder = In("gone too");
  EXPECT_EQ(StartOf(saving), In("present"));
  // One that was used goes to the folder of that time.
  saving.FirstFolder = In("jobs");
  EXPECT_EQ(Save(saving, In("stored/a")), In("stored/a.ovd"));
  EXPECT_EQ(StartOf(saving), In("stored"));
}

TEST_F(FileDialogTest, A_cancelled_dialog_leaves_its_last_folder) {
  std::filesystem::create_directories(In("one"));
  std::filesystem::create_directories(In("two"));
  FileDialog saving = Saving();
  saving.InitialFolder.clear();
  EXPECT_EQ(Save(saving, In("one/job1")), In("one/job1.ovd"));
  Foresee([this](QFileDialog& window) {
    TypeName(window, In("two"));
    Enter(window);
    EXPECT_EQ(FromQt(window.directory().absolutePath()), In("two"));
    Escape(window);
  });
  EXPECT_EQ(platform.ShowSaveDialog(saving), std::nullopt);
  EXPECT_EQ(StartOf(saving), In("one"));
}

TEST_F(FileDialogTest, A_given_folder_comes_first_unless_it_has_gone) {
  std::filesystem::create_directories(In("one"));
  FileDialog saving = Saving();
  EXPECT_EQ(StartOf(saving), folder);
  EXPECT_EQ(Save(saving, In("one/job1")), In("one/job1.ovd"));
  EXPECT_EQ(StartOf(saving), folder);
  saving.InitialFolder = folder + "/";
  EXPECT_EQ(StartOf(saving), folder);
  saving.InitialFolder = In("gone");
  EXPECT_EQ(StartOf(saving), In("one"));
}

TEST_F(FileDialogTest, The_window_behind_gets_its_focus_back) {
  QWidget window;
  QLineEdit field(&window);
  ShowActive(window);
  field.setFocus();
  Foresee([&window](QFileDialog& dialog) {
    EXPECT_EQ(dialog.parentWidget(), &window);
    Escape(dialog);
  });
  platform.ShowSaveDialog(Saving());
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window, test::Patience));
  EXPECT_EQ(QApplication::focusWidget(), &field);
}

TEST_F(FileDialogTest, The_toolkit_keeps_no_settings_of_its_own) {
  Save(Saving(), "job1");
  const QSettings toolkit(QSettings::UserScope, "QtProject");
  EXPECT_FALSE(std::filesystem::exists(FromQt(toolkit.fileName())));
}

}  // namespace

}  // namespace orvane
