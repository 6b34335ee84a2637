#include "project/section_look.h"

#include "core/runtime_error.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane::test {
namespace {

class SectionLook : public SystemTest {
 protected:
  SectionLook() {
    ForgetSaid();
    InstallMainScreen(screen);
    for (const char* mark : {"P1", "P2"}) {
      Item item;
      item.Mark = mark;
      Items.Append(item);
    }
  }
  ~SectionLook() override {
    UninstallMainScreen();
    ForgetSaid();
  }

  [[noreturn]] static void Fail() { throw RuntimeError(Failure::DivisionByZero); }
  // The boxes shown since the last call.
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const ShownBox& box : desktop.Boxes) texts.push_back(box.Text);
    desktop.Boxes.clear();
    return texts;
  }
  // The last line shown under the sheet.
  std::string Line() { return lines.empty() ? "none was shown" : lines.back(); }

  using Texts = std::vector<std::string>;

 private:
  std::vector<std::string> lines;

  // Keeps the lines alone.
  class Screen : public MainScreen {
   public:
    explicit Screen(std::vector<std::string>& lines) : lines_(lines) {}
    void ForgetEditors() override {}
    void DisplayItems() override {}
    void ClearDetailPanel() override {}
    void EmptyHoleList() override {}
    void SelectFirstItem() override {}
    void SetAccUsage() override {}
    void ClearAccUsage() override {}
    void ShowFileName(const std::string&) override {}
    void ShowRecentFiles() override {}
    void ShowSectionErrors(const std::string& line) override { lines_.push_back(line); }
    void ShowJobNote(const std::string&) override {}
    void ClearDrawing() override {}
    void RefreshProjectDetails() override {}
    void ShowProjectDetails() override {}
    void GoTo(const TextPlace&) override {}

   private:
    std::vector<std::string>& lines_;
  };
  Screen screen{lines};
};

TEST_F(SectionLook, What_goes_wrong_in_it_is_said_once_with_the_mark_and_stands_in_the_line) {
  const auto look = [] {
    TakeLookError("Overflow");
    TakeLookError("Overflow");
    Fail();
  };
  LookAndSay(1, look);
  EXPECT_EQ(Boxes(), (Texts{"P1: Overflow\rP1: Division by zero"}));
  EXPECT_EQ(Line(), "P1: Overflow; Division by zero");
  LookAndSay(1, look);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Line(), "P1: Overflow; Division by zero");
  LookAndSay(1, [] {});
  EXPECT_EQ(Line(), "");
}

TEST_F(SectionLook, A_look_while_a_cell_is_typed_says_nothing_and_the_next_says_it) {
  LookAtSection(1, Fail);
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(Line(), "P1: Division by zero");
  SayErrors();
  EXPECT_EQ(Boxes(), (Texts{"P1: Division by zero"}));
  SayErrors();
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(SectionLook, Another_error_and_another_section_are_said_too) {
  LookAndSay(1, Fail);
  LookAndSay(2, Fail);
  LookAndSay(1, [] {
    TakeLookError("Overflow");
    Fail();
  });
  EXPECT_EQ(Boxes(), (Texts{"P1: Division by zero", "P2: Division by zero", "P1: Overflow"}));
}

TEST_F(SectionLook, It_is_said_again_once_the_user_has_changed_the_section) {
  const ChangeFollower forget{nullptr, [](const ChangeNotice& change) { ForgetSaid(change); }};
  LookAndSay(1, Fail);
  LookAndSay(2, Fail);
  Boxes();
  // Looks, changes of other sections and of the job's details are none of this one.
  Change(ChangeKind::ShowSection, 1);
  Change(ChangeKind::Length, 2);
  Change(ChangeKind::ProjectDetails);
  Change(ChangeKind::Sort);
  Change(ChangeKind::SamePattern, 1);
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), Texts{});
  Change(ChangeKind::Mark, 1, [] { Items.At(1).Mark = "P9"; });
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), (Texts{"P9: Division by zero"}));
  // The former mark is free for another section.
  Change(ChangeKind::Mark, 1, [] { Items.At(1).Mark = "P1"; });
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), (Texts{"P1: Division by zero"}));
  Change(ChangeKind::Delete, 1, [] { Items.Remove(1); });
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), (Texts{"P2: Division by zero"}));
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), Texts{});
  Change(ChangeKind::OpenProject);
  LookAndSay(1, Fail);
  EXPECT_EQ(Boxes(), (Texts{"P2: Division by zero"}));
}

TEST_F(SectionLook, A_look_inside_another_at_the_same_section_is_a_part_of_it) {
  LookAndSay(1, [this] {
    LookAndSay(1, Fail);
    EXPECT_EQ(Boxes(), Texts{});
    TakeLookError("Overflow");
  });
  EXPECT_EQ(Boxes(), (Texts{"P1: Division by zero\rP1: Overflow"}));
  // A cell that is typed in keeps quiet whatever looks at its section meanwhile.
  LookAtSection(2, [] { LookAndSay(2, Fail); });
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(SectionLook, A_look_inside_another_at_another_section_is_one_of_its_own) {
  LookAtSection(1, [this] {
    LookAndSay(2, Fail);
    EXPECT_EQ(Boxes(), (Texts{"P2: Division by zero"}));
    TakeLookError("Overflow");
  });
  EXPECT_EQ(Line(), "P1: Overflow");
}

TEST_F(SectionLook, Without_a_section_errors_are_raised_and_without_a_look_they_are_told) {
  EXPECT_EQ(ErrorOf([] { LookAndSay(0, Fail); }), "Division by zero");
  EXPECT_EQ(Boxes(), Texts{});
  TakeLookError("Overflow");
  EXPECT_EQ(Boxes(), (Texts{"Overflow"}));
}

}  // namespace
}  // namespace orvane::test
