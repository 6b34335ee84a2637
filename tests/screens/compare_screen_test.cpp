// Another job compared with the open one, and the list of what is cut, by a person's keys.
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTreeWidget>

#include "core/files.h"
#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"
#include "ui/controls/document_view.h"
#include "ui/dialogs/frm_compare.h"
#include "ui/dialogs/frm_preview.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

class CompareScreen : public SectionsTest {
 protected:
  struct Dialog {
    QWidget& Form;
    QTreeWidget& List;

    Texts Rows() const {
      Texts rows;
      for (int row = 0; row < List.topLevelItemCount(); ++row) {
        std::string text;
        for (int column = 0; column < List.columnCount(); ++column) {
          text += (column > 0 ? "|" : "") + FromQt(List.topLevelItem(row)->text(column));
        }
        rows.push_back(text);
      }
      return rows;
    }
    std::string Label(const std::string& name) const {
      return FromQt(Find<QLabel>(Form, name).text());
    }
    PageView& Sheet() const { return Find<PageView>(Form, "VSPrinter1"); }
    bool IsOld() const { return Find<QRadioButton>(Form, "optOld").isChecked(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) const {
      QTest::keyClick(QApplication::focusWidget(), key, held);
      RunQueued();
    }
  };

  // The window's entry of the menu of tools, by its letters.
  void Ask(Qt::Key letter) {
    Press(Qt::Key_T, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), letter);
    Settle();
  }
  void CompareWith(const std::string& path, const std::function<void(const Dialog&)>& act) {
    platform.Chosen.push_back(path);
    dialogs.ExpectDialog("frmCompare", [act](QWidget& form) {
      form.activateWindow();
      ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
      act({form, Find<QTreeWidget>(form, "lvwDifferences")});
      RunQueued();
      if (form.isVisible()) QTest::keyClick(&form, Qt::Key_Escape);
    });
    Ask(Qt::Key_W);
  }

  // The job as it was issued: P1 with a hole by hand, P2, P3.
  std::string Issued() {
    Item& first = Put("Z", "P1", "Z14012", 6000, 4);
    first.PatternName = CustomPattern;
    PutHole(first, 1500, "C");
    Put("Z", "P2", "Z14012", 3000, 2);
    Put("Z", "P3", "Z14012", 900, 1);
    return TempFile("issued.ovd", ProjectText());
  }
};

TEST_F(CompareScreen, The_list_tells_each_field_and_the_other_file_is_only_read) {
  const std::string issued = Issued();
  const std::string bytes = BytesOf(issued);
  Items.At(1).Length = 6500;
  Items.At(1).Holes.At(1).Diameter = 14;
  Items.At(2).Mark = "Q2";
  Items.Remove(3);
  Show();
  const std::string open = ProjectText();
  CompareWith(issued, [](const Dialog& dialog) {
    EXPECT_EQ(dialog.Rows(),
              (Texts{"P1|changed|Length|6000|6500",
                     "P1|changed|Hole at 1500|W1, W2, dia 18|W1, W2, dia 14",
                     "Q2|renamed|Mark|P2|Q2", "P3|removed||Z14012, 900 mm, 1 off|"}));
    EXPECT_EQ(dialog.Label("lblSummary"),
              "From issued.ovd to this project: 1 section changed, 1 renamed, 1 removed");
    EXPECT_FALSE(Find<QLabel>(dialog.Form, "lblNote").isVisible());
    EXPECT_EQ(Focus(), "lvwDifferences");
    dialog.Key(Qt::Key_Escape);
    EXPECT_FALSE(dialog.Form.isVisible());
  });
  EXPECT_EQ(ProjectText(), open);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(BytesOf(issued), bytes);
  EXPECT_FALSE(IsRegularFile(issued + ".lock"));
  ASSERT_EQ(platform.OpenDialogs.size(), 1U);
  EXPECT_EQ(platform.OpenDialogs.front().Title, "Compare With");
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
}

TEST_F(CompareScreen, The_blank_turns_the_old_sheet_to_the_new_one_and_rings_stand_on_both) {
  const std::string issued = Issued();
  Items.At(1).Length = 6500;
  Items.At(1).Holes.At(1).Diameter = 14;
  Put("Z", "P4", "Z14012", 5000, 1);
  Show();
  CompareWith(issued, [](const Dialog& dialog) {
    PageView& sheet = dialog.Sheet();
    EXPECT_FALSE(dialog.IsOld());
    EXPECT_EQ(dialog.Label("lblSheet"), "P1 in this project");
    // Around the length that came, and more quietly around the hole.
    ASSERT_EQ(sheet.Rings().size(), 2U);
    EXPECT_TRUE(sheet.Rings().at(0).IsStrong);
    EXPECT_FALSE(sheet.Rings().at(1).IsStrong);
    const QRectF newHole = sheet.Rings().at(1).Place;
    EXPECT_LT(newHole.right(), sheet.Rings().at(0).Place.left());

    dialog.Key(Qt::Key_Space);
    EXPECT_TRUE(dialog.IsOld());
    EXPECT_EQ(dialog.Label("lblSheet"), "P1 in issued.ovd");
    ASSERT_EQ(sheet.Rings().size(), 2U);
    // The same hole stands farther to the right on the shorter section's sheet.
    EXPECT_GT(sheet.Rings().at(1).Place.center().x(), newHole.center().x());

    dialog.Key(Qt::Key_Down);
    EXPECT_FALSE(sheet.Rings().at(0).IsStrong);
    EXPECT_TRUE(sheet.Rings().at(1).IsStrong);
    EXPECT_TRUE(dialog.IsOld());

    // One that came is in no old sheet.
    dialog.Key(Qt::Key_Down);
    EXPECT_EQ(dialog.Label("lblSheet"), "P4 is not in issued.ovd");
    EXPECT_TRUE(sheet.PaperPlace().isEmpty());
    // The toolkit shows the button pressed for a moment first.
    dialog.Key(Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.IsOld(); }));
    EXPECT_EQ(dialog.Label("lblSheet"), "P4 in this project");
    EXPECT_FALSE(sheet.PaperPlace().isEmpty());
    EXPECT_TRUE(sheet.Rings().empty());
  });
}

TEST_F(CompareScreen, Swapped_the_other_job_is_the_later_one) {
  const std::string issued = Issued();
  Items.Remove(3);
  Show();
  CompareWith(issued, [](const Dialog& dialog) {
    EXPECT_EQ(dialog.Rows(), Texts{"P3|removed||Z14012, 900 mm, 1 off|"});
    dialog.Key(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(dialog.Rows(), Texts{"P3|added|||Z14012, 900 mm, 1 off"});
    EXPECT_EQ(dialog.Label("lblSummary"), "From this project to issued.ovd: 1 section added");
    EXPECT_EQ(dialog.Label("lblSheet"), "P3 in issued.ovd");
  });
}

TEST_F(CompareScreen, Equal_jobs_have_no_rows_and_nothing_to_print) {
  const std::string issued = Issued();
  Show();
  CompareWith(issued, [](const Dialog& dialog) {
    EXPECT_EQ(dialog.Rows(), Texts{});
    EXPECT_EQ(dialog.Label("lblSummary"), "From issued.ovd to this project: no difference");
    EXPECT_FALSE(Find<QPushButton>(dialog.Form, "cmdPrint").isEnabled());
    dialog.Key(Qt::Key_Space);
  });
}

TEST_F(CompareScreen, The_revision_list_is_shown_before_it_is_printed) {
  const std::string issued = Issued();
  Items.At(1).Quantity = 5;
  Show();
  bool shown = false;
  CompareWith(issued, [&](const Dialog& dialog) {
    dialogs.ExpectDialog("frmPreview", [&](QWidget& preview) {
      auto& form = dynamic_cast<FrmPreview&>(preview);
      EXPECT_EQ(form.DocumentName, "revision list");
      EXPECT_EQ(form.Surface().Result().Pages.size(), 1U);
      EXPECT_EQ(preview.parentWidget(), &dialog.Form);
      EXPECT_EQ(form.findChild<QAction*>("mnuFileSaveFigures"), nullptr);
      shown = true;
      QTest::keyClick(&preview, Qt::Key_Escape);
    });
    dialog.Key(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(dialog.Form.isVisible());
  });
  EXPECT_TRUE(shown);
}

TEST_F(CompareScreen, A_file_that_cannot_be_read_is_told_and_the_open_job_stays) {
  const std::string issued = Issued();
  Show();
  const std::string open = ProjectText();
  platform.Chosen.push_back(TempFile("half.ovd", BytesOf(issued).substr(0, 60)));
  dialogs.ExpectBox("Input past end of file");
  Ask(Qt::Key_W);
  EXPECT_EQ(ProjectText(), open);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  // A cancelled dialog does nothing.
  platform.Chosen.push_back(std::nullopt);
  Ask(Qt::Key_W);
}

TEST_F(CompareScreen, A_file_that_was_cut_behind_its_sections_says_so) {
  const std::string issued = Issued();
  Show();
  const std::string bytes = BytesOf(issued);
  CompareWith(TempFile("cut.ovd", bytes.substr(0, bytes.size() - 1)), [](const Dialog& dialog) {
    EXPECT_TRUE(Find<QLabel>(dialog.Form, "lblNote").isVisible());
    EXPECT_EQ(dialog.Label("lblNote"),
              "cut.ovd is cut off or damaged behind its sections: what it lacks there shows as a "
              "difference.");
  });
}

TEST_F(CompareScreen, The_cutting_list_is_shown_and_saved_for_a_spreadsheet) {
  Issued();
  Show();
  const std::string file = TempPath("list.csv");
  platform.Chosen.push_back(file);
  dialogs.ExpectDialog("frmPreview", [&](QWidget& preview) {
    preview.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &preview; }));
    EXPECT_EQ(dynamic_cast<FrmPreview&>(preview).DocumentName, "cutting list");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    RunQueued();
    QTest::keyClick(&preview, Qt::Key_Escape);
  });
  Ask(Qt::Key_U);
  ASSERT_EQ(platform.SaveDialogs.size(), 1U);
  EXPECT_EQ(platform.SaveDialogs.front().Title, "Cutting List");
  // 4 of 6 m, 2 of 3 m, 1 of 0.9 m; the one hole by hand in both rows of four purlins.
  const std::string csv = BytesOf(file);
  EXPECT_NE(csv.find("Z,Z14012,6000,4,24.000,P1 (4)\r\n"), std::string::npos) << csv;
  EXPECT_NE(csv.find("Total,,,7,30.900,\r\n"), std::string::npos) << csv;
  EXPECT_EQ(ProjectDirty, False);
}

}  // namespace
}  // namespace orvane::test
