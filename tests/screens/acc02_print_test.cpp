// "&Print" in the table of a type 2 accessory: what it shows goes on paper, saved or not.
#include <filesystem>

#include "core/runtime_error.h"
#include "tests/screens/acc02_fixture.h"
#include "tests/screens/preview_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class Acc02PrintTest : public Acc02Test {
 protected:
  void SetUp() override {
    Acc02Test::SetUp();
    PutLine(DoorJambKits, "D1", 2, {"1200", "2100", "Left"});
    PutLine(DoorJambKits, "D2", 1, {"900", "2000", "Right"});
  }
  ~Acc02PrintTest() override { ReplacePrintDialog({}); }

  // Prints go into that file, one after the other.
  std::string PrintInto(const std::string& name) {
    const std::string path = TempFile(name, "");
    std::filesystem::remove(path);
    ReplacePrintDialog([this, path](QPrinter& printer, QWidget* parent) {
      ++asked;
      asker = parent;
      printer.setOutputFileName(ToQt(path));
      return true;
    });
    return path;
  }
  const std::vector<Texts> Two = {{"D1", "2", "1200", "2100", "Left"},
                                  {"D2", "1", "900", "2000", "Right"}};

  int asked = 0;
  QWidget* asker = nullptr;
};

TEST_F(Acc02PrintTest, Print_takes_all_lines_as_they_stand_the_open_editor_included) {
  const std::string path = PrintInto("table.pdf");
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { Button(form, 2).click(); },
      [](QWidget& form) { Trigger(form, "mnuAcc(1)"); },
  };
  for (const auto& print : ways) {
    asked = 0;
    InDialog(DoorJambKits, [&](FrmAcc02& form) {
      TypeInto(form, 1, 3, "1250");
      ClickButton(form, 4);
      // A line without a mark is on the sheet too.
      Key(Qt::Key_Tab);
      Key(Qt::Key_Tab);
      Keys("777");
      Key(Qt::Key_Tab);
      Key(Qt::Key_Tab);
      Keys("r");
      print(form);
      EXPECT_TRUE(form.isVisible());
      EXPECT_EQ(asker, &form);
      EXPECT_EQ(Stored(DoorJambKits), Two);
    });
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(AccDialogResult, "Cancelled");
    EXPECT_EQ(Stored(DoorJambKits), Two);
    const std::string printed = TextsOf(path);
    for (const char* line : {"Mark No.Off Opening Height Hand", "D1 2 1250 2100 Left",
                             "D2 1 900 2000 Right", "777 Right"}) {
      EXPECT_NE(printed.find(line), std::string::npos) << line << " in " << printed;
    }
    EXPECT_EQ(printed.find("1200"), std::string::npos);
    EXPECT_EQ(printed.find('|'), std::string::npos) << "more than one page";
  }
}

TEST_F(Acc02PrintTest, The_paper_that_was_chosen_is_what_the_sheet_is_drawn_on) {
  const std::string path = PrintInto("a3.pdf");
  ReplacePrintDialog([path](QPrinter& printer, QWidget*) {
    printer.setOutputFileName(ToQt(path));
    printer.setPageSize(QPageSize(QPageSize::A3));
    return true;
  });
  InDialog(DoorJambKits, [](FrmAcc02& form) { ClickButton(form, 2); });
  EXPECT_EQ(PageSizesOf(path), std::vector<std::string>{"1191 x 842"});
}

TEST_F(Acc02PrintTest, Print_goes_to_a_choice_left_open_and_starts_at_the_next_try) {
  PutLine(SplicePlates, "A1", 1, {"Z14012", "2.0", "300"});
  PrintInto("plates.pdf");
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Keys("2.");
    Click(form, 1, 1);
    ClickButton(form, 2);
    EXPECT_EQ(asked, 0);
    ExpectEditing(form, 1, 4, "2.0");
    EXPECT_EQ(FromQt(RefusalOf(Choices(form, 4))), "2 entries begin with \"2.\"");
    // Letters typed there are settled by the menu's entry too.
    Keys("9");
    Trigger(form, "mnuAcc(1)");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(FromQt(RefusalOf(Choices(form, 4))), "No entry begins with \"9\"");
    Trigger(form, "mnuAcc(1)");
    EXPECT_EQ(asked, 1);
  });
}

TEST_F(Acc02PrintTest, A_cancelled_print_says_nothing_and_a_failed_one_is_told) {
  ReplacePrintDialog([](QPrinter&, QWidget*) { return false; });
  InDialog(DoorJambKits, [](FrmAcc02& form) {
    ClickButton(form, 2);
    EXPECT_TRUE(form.isVisible());
  });
  EXPECT_TRUE(dialogs.Boxes().empty());
  ReplacePrintDialog([](QPrinter&, QWidget*) -> bool {
    throw RuntimeError(SystemErrorBase, "No printer is installed");
  });
  InDialog(DoorJambKits, [this](FrmAcc02& form) {
    dialogs.ExpectBox("No printer is installed");
    ClickButton(form, 2);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form), Two);
  });
}

TEST_F(Acc02PrintTest, The_sheet_of_an_accessory_with_a_picture_and_groups_is_printed) {
  const std::string path = PrintInto("vcr.pdf");
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    Keys("V1");
    for (const char* text : {"5", "3", "1", "3000", "10", "12.5", "kt33", "kt41"}) {
      Key(Qt::Key_Tab);
      Keys(text);
    }
    // What OK would refuse may be printed.
    ClickButton(form, 2);
  });
  EXPECT_EQ(asked, 1);
  const std::string printed = TextsOf(path);
  for (const char* line : {"Allowances", "V1 5 3 1 3000 10 12.5 KT33 KT41"}) {
    EXPECT_NE(printed.find(line), std::string::npos) << line << " in " << printed;
  }
  EXPECT_TRUE(Stored(VcrAssemblies).empty());
}

}  // namespace
}  // namespace orvane::test
