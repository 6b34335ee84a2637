#include <QEvent>

#include "output/cam_export.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// A desktop whose fields take some keys of the menu for their own: Ctrl+E for the end of the line,
// Ctrl+D for Delete. It says so when the toolkit asks the field that has the focus.
class GreedyFields : public QObject {
 public:
  explicit GreedyFields(QWidget& field) : field_(field) { qApp->installEventFilter(this); }

  int Asked() const { return asked_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &field_ && event->type() == QEvent::ShortcutOverride) {
      ++asked_;
      event->accept();
    }
    return false;
  }

 private:
  QWidget& field_;
  int asked_ = 0;
};

class MenuKeys : public SectionsTest {};

TEST_F(MenuKeys, Ctrl_D_in_a_cell_duplicates_the_section_once) {
  Put("Z", "A1", "Z14012", 6000, 4).Notes = "n1";
  for (const int column : {1, 3, 4, 5}) {
    SCOPED_TRACE(column);
    Show(1, column);
    ASSERT_EQ(Focus(), "txtEdit");
    const int before = Items.UBound();
    const GreedyFields greedy(Editor());
    Press(Qt::Key_D, Qt::ControlModifier);
    Settle();
    EXPECT_GE(greedy.Asked(), 1);
    EXPECT_EQ(Items.UBound(), before + 1);
    EXPECT_EQ(Items.At(before + 1).Notes, "n1");
  }
  EXPECT_EQ(Items.At(1).Mark, "A1");
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_EQ(Items.At(1).Quantity, 4);
}

TEST_F(MenuKeys, Ctrl_E_in_a_cell_exports_once) {
  Put("Z", "A1", "Z14012", 6000, 4);
  for (const int column : {1, 3, 4, 5}) {
    SCOPED_TRACE(column);
    Show(1, column);
    ASSERT_EQ(Focus(), "txtEdit");
    Editor().setCursorPosition(0);
    const std::string path = TempPath("job.xov");
    platform.Chosen.push_back(path);
    dialogs.ExpectBox("CAM export complete\n" + path);
    const GreedyFields greedy(Editor());
    Press(Qt::Key_E, Qt::ControlModifier);
    Settle();
    BackToMain();
    EXPECT_GE(greedy.Asked(), 1);
    EXPECT_TRUE(platform.Chosen.empty());
    EXPECT_EQ(BytesOf(path), CamFile(platform.Present).Text);
  }
  EXPECT_EQ(platform.OpenDialogs.size(), 4U);
  EXPECT_EQ(dialogs.Boxes().size(), 4U);
  EXPECT_EQ(Items.UBound(), 1);
}

// What is no key of the menu stays the field's.
TEST_F(MenuKeys, A_key_of_the_field_alone_runs_no_command) {
  Put("Z", "A1", "Z14012", 6000, 4);
  Show(1, 1);
  const GreedyFields greedy(Editor());
  Press(Qt::Key_K, Qt::ControlModifier);
  Type("B7");
  Settle();
  EXPECT_GE(greedy.Asked(), 1);
  EXPECT_EQ(FromQt(Editor().text()), "B7");
  EXPECT_EQ(Items.UBound(), 1);
}

}  // namespace
}  // namespace orvane::test
