// The table of commands, and the toolbar and menus made from it.
#include <QMenuBar>
#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "core/section_families.h"
#include "tests/screens/screen_fixture.h"
#include "ui/commands.h"

namespace orvane::test {

namespace {

struct Expected {
  int Index;
  Command What;
  std::string Caption;
  std::string ToolTip;
  int Number = 0;  // of the family
};

const std::vector<Expected> Toolbar = {
    {0, Command::Exit, "Exit", "Quit the Orvane detail program"},
    {1, Command::New, "New", "Start a new project"},
    {2, Command::Open, "Open", "Open an existing project"},
    {3, Command::Details, "Details", "Edit project details"},
    {4, Command::Save, "Save", "Save the current project"},
    {5, Command::PrintSummary, "Print", "Print a summary of the current project"},
    {6, Command::AddSection, "Z", "Add a Z section", 1},
    {7, Command::AddSection, "Eaves", "Add an eaves beam section", 2},
    {8, Command::AddSection, "C", "Add a channel section", 3},
    {9, Command::AddSection, "VCR", "Add a vertical cladding rail section", 4},
    {10, Command::AddSection, "Cleader", "Add a cleader rail section", 5},
    {11, Command::AddSection, "Top Hat", "Add a top hat section", 6},
    {12, Command::ToggleDrawing, "&Dwg", "Maximize drawing area"},
    {13, Command::HelpIndex, "Help", "Show help contents and index"},
};

struct ExpectedMenu {
  Place Where;
  std::string Name;
  std::string BarCaption;
  std::vector<Expected> Entries;  // an empty caption is a separator
};

const std::vector<ExpectedMenu> Menus = {
    {Place::mnuProject,
     "mnuProject",
     "&Project",
     {{0, Command::New, "&New", ""},
      {1, Command::Open, "&Open", ""},
      {2, Command::Save, "&Save", ""},
      {3, Command::SaveAs, "Save &As", ""},
      {4, Command::None, "", ""},
      {5, Command::Details, "&Project Details", ""},
      {6, Command::None, "", ""},
      {7, Command::MaxDims, "Set &maximum section lengths", ""},
      {8, Command::None, "", ""},
      {14, Command::None, "", ""},
      {15, Command::Exit, "E&xit", ""}}},
    {Place::mnuSection,
     "mnuSection",
     "&Section",
     {{0, Command::AddSection, "&Z section", "", 1},
      {1, Command::AddSection, "&Eaves Beam", "", 2},
      {2, Command::AddSection, "&C Channel", "", 3},
      {3, Command::AddSection, "&VCR", "", 4},
      {4, Command::AddSection, "Cleader &Rail", "", 5},
      {5, Command::AddSection, "&Top Hat", "", 6},
      {6, Command::None, "", ""},
      {7, Command::OppositeHand, "Create &Opposite Hand", ""},
      {8, Command::Duplicate, "D&uplicate Section", ""},
      {9, Command::None, "", ""},
      {10, Command::HolesAbsolute, "Add Holes (&Absolute X)", ""},
      {11, Command::HolesRelative, "Add Holes (Relative &X)", ""},
      {12, Command::ConvertHoles, "Convert Standard &Punching to Custom", ""},
      {13, Command::Mitres, "&Mitres", ""},
      {14, Command::Notches, "&Notches", ""},
      {15, Command::None, "", ""},
      {16, Command::SortByMark, "Sort by Mar&k", ""},
      {17, Command::SortBySection, "Sort by &Section", ""},
      {18, Command::SortByLength, "Sort by &Length", ""},
      {19, Command::None, "", ""},
      {20, Command::Delete, "&Delete", ""}}},
    {Place::mnuOutput,
     "mnuOutput",
     "&Output",
     {{0, Command::PrintDrawing, "Print Current &Drawing", ""},
      {1, Command::PrintAllDrawings, "Print &All Drawings", ""},
      {2, Command::PrintAccessoryList, "Print Accessory &List", ""},
      {3, Command::PrintAccessorySheets, "Print All Accessory &Sheets", ""},
      {4, Command::PrintSummary, "Print &Contract Summary", ""},
      {5, Command::None, "", ""},
      {6, Command::ExportCam, "&Export CAM File", ""}}},
    {Place::mnuHelp,
     "mnuHelp",
     "&Help",
     {{0, Command::HelpIndex, "&Help Index", ""},
      {1, Command::About, "&About", ""},
      {2, Command::None, "", ""},
      {3, Command::Registration, "Registration Details", ""}}},
};

void ExpectEntries(Place place, const std::vector<Expected>& expected) {
  std::vector<CommandEntry> entries;
  for (const CommandEntry& entry : CommandsOf(place)) {
    if (entry.What != Command::Recent) entries.push_back(entry);
  }
  ASSERT_EQ(entries.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(expected[i].Caption + " at " + std::to_string(expected[i].Index));
    EXPECT_EQ(entries[i].Where, place);
    EXPECT_EQ(entries[i].Index, expected[i].Index);
    EXPECT_EQ(entries[i].What, expected[i].What);
    EXPECT_EQ(entries[i].Caption, expected[i].Caption);
    EXPECT_EQ(entries[i].ToolTip, expected[i].ToolTip);
    EXPECT_EQ(entries[i].Number, expected[i].Number);
  }
}

std::string Indexed(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

// "&Dwg" without its mark: "Alt+D".
std::string AltKey(std::string_view caption) {
  const std::size_t at = caption.find('&');
  return at == std::string_view::npos ? ""
                                      : FromQt("Alt+" + ToQt(caption.substr(at + 1, 1)).toUpper());
}

}  // namespace

TEST(Commands, The_toolbar_has_its_captions_and_tips_by_index) {
  ExpectEntries(Place::SSCommand1, Toolbar);
}

TEST(Commands, The_menus_have_their_captions_by_index) {
  for (const ExpectedMenu& menu : Menus) {
    SCOPED_TRACE(menu.Name);
    ExpectEntries(menu.Where, menu.Entries);
  }
}

TEST(Commands, The_places_of_the_recent_files_are_9_to_13_of_the_project_menu) {
  std::vector<int> places;
  for (const CommandEntry& entry : CommandTable()) {
    if (entry.What != Command::Recent) continue;
    EXPECT_EQ(entry.Where, Place::mnuProject);
    EXPECT_EQ(entry.Caption, "");
    places.push_back(entry.Index);
  }
  EXPECT_EQ(places, (std::vector<int>{9, 10, 11, 12, 13}));
}

TEST(Commands, The_pop_up_of_the_hole_list_has_its_four_entries) {
  ExpectEntries(Place::mnuCHPUI, {{0, Command::HolesAbsolute, "Add Holes (Absolute X)", ""},
                                  {1, Command::HolesRelative, "Add Holes (Relative X)", ""},
                                  {2, Command::EditHole, "Edit", ""},
                                  {3, Command::RemoveHole, "Remove", ""}});
}

TEST(Commands, The_pop_up_of_the_accessory_list_has_its_two_entries) {
  ExpectEntries(Place::mnuAccPUI, {{0, Command::EditAccessory, "Edit", ""},
                                   {1, Command::ClearAccessory, "Clear", ""}});
}

TEST(Commands, Captions_and_tips_of_the_families_are_those_of_the_section_families) {
  const std::vector<CommandEntry> menu = CommandsOf(Place::mnuSection);
  const std::vector<CommandEntry> toolbar = CommandsOf(Place::SSCommand1);
  ASSERT_EQ(SectionFamilies.size(), 6U);
  for (std::size_t i = 0; i < SectionFamilies.size(); ++i) {
    SCOPED_TRACE(SectionFamilies.at(i).Letter);
    EXPECT_EQ(menu.at(i).What, Command::AddSection);
    EXPECT_EQ(menu.at(i).Number, static_cast<int>(i) + 1);
    EXPECT_EQ(menu.at(i).Caption, SectionFamilies.at(i).MenuEntry);
    EXPECT_EQ(toolbar.at(6 + i).What, Command::AddSection);
    EXPECT_EQ(toolbar.at(6 + i).Number, static_cast<int>(i) + 1);
    EXPECT_EQ(toolbar.at(6 + i).Caption, SectionFamilies.at(i).ButtonCaption);
    EXPECT_EQ(toolbar.at(6 + i).Icon, SectionFamilies.at(i).Icon);
    EXPECT_EQ(toolbar.at(6 + i).ToolTip, SectionFamilies.at(i).ToolTip);
  }
}

TEST(Commands, The_bar_has_the_four_menus_with_those_of_editing_and_of_tools_between_them) {
  std::vector<std::string> captions;
  for (const BarMenu& menu : BarMenus) captions.emplace_back(menu.Caption);
  EXPECT_EQ(captions, (std::vector<std::string>{"&Project", "&Edit", "&Section", "&Output",
                                                "&Tools", "&Help"}));
}

TEST(Commands, Shortcuts_are_as_told) {
  using Given = std::tuple<Command, int, std::string>;
  const std::vector<Given> expected = {
      {Command::New, 0, "Ctrl+N"},
      {Command::Open, 0, "Ctrl+O"},
      {Command::Save, 0, "Ctrl+S"},
      {Command::SaveAs, 0, "Ctrl+Shift+S"},
      {Command::Undo, 0, "Ctrl+Z"},
      {Command::Redo, 0, "Ctrl+Shift+Z; Ctrl+Y"},
      {Command::Cut, 0, "Ctrl+X; Shift+Del"},
      {Command::Copy, 0, "Ctrl+C; Ctrl+Ins"},
      {Command::Paste, 0, "Ctrl+V; Shift+Ins"},
      {Command::PasteCell, 0, "Ctrl+Shift+V"},
      {Command::NextSection, 0, "Ctrl+Return; Ctrl+Enter"},
      {Command::FillSections, 0, "Ctrl+Shift+D"},
      {Command::Find, 0, "Ctrl+F"},
      {Command::FindNext, 0, "F3"},
      {Command::FindPrevious, 0, "Shift+F3"},
      {Command::AddSection, 1, "Ctrl+1"},
      {Command::AddSection, 2, "Ctrl+2"},
      {Command::AddSection, 3, "Ctrl+3"},
      {Command::AddSection, 4, "Ctrl+4"},
      {Command::AddSection, 5, "Ctrl+5"},
      {Command::AddSection, 6, "Ctrl+6"},
      {Command::Duplicate, 0, "Ctrl+D"},
      {Command::PrintSummary, 0, "Ctrl+P"},
      {Command::ExportCam, 0, "Ctrl+E"},
      {Command::Check, 0, "F7"},
      {Command::HelpIndex, 0, "F1"},
  };
  std::vector<Given> found;
  for (const CommandEntry& entry : CommandTable()) {
    if (!entry.Shortcut.empty()) found.emplace_back(entry.What, entry.Number, entry.Shortcut);
  }
  EXPECT_EQ(found, expected);
}

TEST(Commands, No_shortcut_is_given_twice_or_is_a_key_that_an_edit_field_uses) {
  std::set<QString> taken;
  // Keys of an edit field on every platform, written out: a test run knows the keys of one only.
  for (const char* key :
       {"Ctrl+A",         "Ctrl+C",   "Ctrl+V",    "Ctrl+X",    "Ctrl+Z",    "Ctrl+Y",
        "Ctrl+Shift+Z",   "Ctrl+Ins", "Shift+Ins", "Shift+Del", "Ctrl+Left", "Ctrl+Right",
        "Ctrl+Home",      "Ctrl+End", "Home",      "End",       "Backspace", "Del",
        "Ctrl+Backspace", "Ctrl+Del", "F2",        "F4",        "Alt+Down"}) {
    taken.insert(QKeySequence::fromString(key, QKeySequence::PortableText).toString());
  }
  for (const CommandEntry& entry : CommandTable()) {
    if (entry.Shortcut.empty()) continue;
    // Those of &Edit are the edit fields' own on purpose: they go to a field first.
    if (entry.Where == Place::mnuEdit) continue;
    const QKeySequence keys =
        QKeySequence::fromString(ToQt(entry.Shortcut), QKeySequence::PortableText);
    ASSERT_EQ(keys.count(), 1) << entry.Shortcut;
    EXPECT_TRUE(taken.insert(keys.toString()).second) << entry.Shortcut;
  }
}

TEST(Commands, Only_menu_entries_have_shortcuts_and_only_buttons_have_tips) {
  for (const CommandEntry& entry : CommandTable()) {
    if (entry.Where == Place::SSCommand1) {
      EXPECT_EQ(entry.Shortcut, "") << entry.Caption;
      EXPECT_NE(entry.ToolTip, "") << entry.Caption;
    } else {
      EXPECT_EQ(entry.ToolTip, "") << entry.Caption;
    }
  }
}

TEST(Commands, The_key_of_Dwg_is_that_of_no_menu) {
  std::set<std::string> keys;
  for (const BarMenu& menu : BarMenus) EXPECT_TRUE(keys.insert(AltKey(menu.Caption)).second);
  EXPECT_EQ(AltKey("&Dwg"), "Alt+D");
  EXPECT_EQ(keys.count("Alt+D"), 0U);
}

class CommandsOnScreen : public ScreenTest {};

TEST_F(CommandsOnScreen, Every_button_stands_on_the_toolbar_with_its_text_tip_and_picture) {
  auto& panel = Find<QWidget>("SSPanelToolbar");
  ASSERT_EQ(panel.findChildren<QToolButton*>().size(), 14);
  int right = -1;
  for (const Expected& expected : Toolbar) {
    SCOPED_TRACE(expected.Caption);
    auto& button = Find<QToolButton>(panel, Indexed("SSCommand1", expected.Index));
    EXPECT_EQ(FromQt(button.text()), expected.Caption);
    EXPECT_EQ(FromQt(button.toolTip()), expected.ToolTip);
    EXPECT_FALSE(button.icon().isNull());
    EXPECT_EQ(button.focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(button.isVisible());
    EXPECT_TRUE(button.isEnabled());
    EXPECT_GE(button.width(), button.sizeHint().width());
    EXPECT_GT(button.x(), right);
    right = button.geometry().right();
  }
  EXPECT_EQ(Find<QToolButton>("SSCommand1(12)").shortcut(), QKeySequence("Alt+D"));
}

TEST_F(CommandsOnScreen, Every_menu_holds_its_entries_in_the_order_of_their_index) {
  ASSERT_EQ(main->menuBar()->actions().size(), 6);
  // Those of editing and of tools stand between them.
  const std::array<qsizetype, 4> places = {0, 2, 3, 5};
  for (std::size_t i = 0; i < Menus.size(); ++i) {
    SCOPED_TRACE(Menus[i].Name);
    QAction* onBar = main->menuBar()->actions().at(places.at(i));
    EXPECT_EQ(FromQt(onBar->text()), Menus[i].BarCaption);
    auto& menu = Find<QMenu>(Indexed("mnuBar", static_cast<int>(i)));
    EXPECT_EQ(onBar->menu(), &menu);
    const QList<QAction*> actions = menu.actions();
    ASSERT_EQ(actions.size(), static_cast<qsizetype>(Menus[i].Entries.size()));
    for (std::size_t n = 0; n < Menus[i].Entries.size(); ++n) {
      const Expected& expected = Menus[i].Entries[n];
      SCOPED_TRACE(expected.Caption + " at " + std::to_string(expected.Index));
      QAction* action = actions.at(static_cast<qsizetype>(n));
      EXPECT_EQ(action, &Entry(Indexed(Menus[i].Name, expected.Index)));
      EXPECT_EQ(action->isSeparator(), expected.Caption.empty());
      if (action->isSeparator()) continue;
      EXPECT_EQ(FromQt(action->text()), expected.Caption);
      EXPECT_TRUE(action->isVisible());
      EXPECT_TRUE(action->isEnabled());
      EXPECT_EQ(action->menuRole(), QAction::NoRole);
      EXPECT_FALSE(action->icon().isNull());
    }
  }
}

TEST_F(CommandsOnScreen, Every_shortcut_is_set_on_its_entry) {
  int count = 0;
  for (const CommandEntry& entry : CommandTable()) {
    // Entries of these menus bear names of their own.
    const bool isNamed = entry.Where == Place::mnuEdit || entry.Where == Place::mnuTools;
    if (entry.Where == Place::SSCommand1 || isNamed || entry.Shortcut.empty()) continue;
    const auto menu = std::find_if(Menus.begin(), Menus.end(), [&](const ExpectedMenu& candidate) {
      return candidate.Where == entry.Where;
    });
    ASSERT_NE(menu, Menus.end());
    const QAction& action = Entry(Indexed(menu->Name, entry.Index));
    EXPECT_EQ(FromQt(action.shortcut().toString(QKeySequence::PortableText)), entry.Shortcut);
    ++count;
  }
  EXPECT_EQ(count, 14);
}

TEST_F(CommandsOnScreen, The_entries_of_editing_bear_names_and_keys_of_their_own) {
  const auto keysOf = [this](const char* name) {
    std::vector<std::string> keys;
    for (const QKeySequence& key : Entry(name).shortcuts()) {
      keys.push_back(FromQt(key.toString(QKeySequence::PortableText)));
    }
    return keys;
  };
  QList<QAction*> entries = Find<QMenu>("mnuEdit").actions();
  entries.removeIf([](const QAction* entry) { return entry->isSeparator(); });
  EXPECT_EQ(entries, (QList{&Entry("mnuEditUndo"), &Entry("mnuEditRedo"), &Entry("mnuEditCut"),
                            &Entry("mnuEditCopy"), &Entry("mnuEditPaste"),
                            &Entry("mnuEditPasteCell"), &Entry("mnuEditNextSection"),
                            &Entry("mnuEditFill"), &Entry("mnuEditChange"), &Entry("mnuEditFind"),
                            &Entry("mnuEditFindNext"), &Entry("mnuEditFindPrevious")}));
  EXPECT_EQ(main->menuBar()->actions().at(1)->menu(), &Find<QMenu>("mnuEdit"));
  EXPECT_EQ(keysOf("mnuEditUndo"), std::vector<std::string>{"Ctrl+Z"});
  EXPECT_EQ(keysOf("mnuEditRedo"), (std::vector<std::string>{"Ctrl+Shift+Z", "Ctrl+Y"}));
  EXPECT_EQ(keysOf("mnuEditCut"), (std::vector<std::string>{"Ctrl+X", "Shift+Del"}));
  EXPECT_EQ(keysOf("mnuEditCopy"), (std::vector<std::string>{"Ctrl+C", "Ctrl+Ins"}));
  EXPECT_EQ(keysOf("mnuEditPaste"), (std::vector<std::string>{"Ctrl+V", "Shift+Ins"}));
  EXPECT_EQ(keysOf("mnuEditPasteCell"), std::vector<std::string>{"Ctrl+Shift+V"});
  EXPECT_EQ(keysOf("mnuEditNextSection"), (std::vector<std::string>{"Ctrl+Return", "Ctrl+Enter"}));
  for (const QAction* entry : entries) EXPECT_FALSE(entry->icon().isNull());
}

TEST_F(CommandsOnScreen, The_menu_of_tools_stands_before_the_help) {
  EXPECT_EQ(main->menuBar()->actions().at(4)->menu(), &Find<QMenu>("mnuTools"));
  EXPECT_EQ(Find<QMenu>("mnuTools").actions(),
            (QList{&Entry("mnuToolsVersions"), &Entry("mnuToolsRecover"), &Entry("mnuTools(2)"),
                   &Entry("mnuToolsImport"), &Entry("mnuToolsSectionList"),
                   &Entry("mnuToolsCuttingList"), &Entry("mnuTools(6)"), &Entry("mnuToolsCheck"),
                   &Entry("mnuToolsCompare"), &Entry("mnuTools(9)"), &Entry("mnuToolsCatalogue"),
                   &Entry("mnuToolsCheckCatalogue")}));
  EXPECT_TRUE(Entry("mnuTools(9)").isSeparator());
  EXPECT_EQ(FromQt(Entry("mnuToolsCatalogue").text()), "C&atalogue...");
  EXPECT_EQ(FromQt(Entry("mnuToolsCheckCatalogue").text()), "Chec&k catalogue...");
  EXPECT_FALSE(Entry("mnuToolsCatalogue").icon().isNull());
  EXPECT_FALSE(Entry("mnuToolsCheckCatalogue").icon().isNull());
  EXPECT_TRUE(Entry("mnuTools(2)").isSeparator());
  EXPECT_TRUE(Entry("mnuTools(6)").isSeparator());
  EXPECT_EQ(FromQt(Entry("mnuToolsCheck").text()), "&Check...");
  EXPECT_EQ(FromQt(Entry("mnuToolsCheck").shortcut().toString()), "F7");
  EXPECT_FALSE(Entry("mnuToolsCheck").icon().isNull());
  EXPECT_EQ(FromQt(Entry("mnuToolsRecover").text()), "&Recover jobs...");
  EXPECT_EQ(FromQt(Entry("mnuToolsImport").text()), "&Import sections...");
  EXPECT_EQ(FromQt(Entry("mnuToolsSectionList").text()), "Section &list...");
  EXPECT_EQ(FromQt(Entry("mnuToolsCuttingList").text()), "C&utting list...");
  EXPECT_EQ(FromQt(Entry("mnuToolsCompare").text()), "Compare &with...");
  EXPECT_FALSE(Entry("mnuToolsCuttingList").icon().isNull());
  EXPECT_FALSE(Entry("mnuToolsCompare").icon().isNull());
  EXPECT_FALSE(Entry("mnuToolsImport").icon().isNull());
  EXPECT_FALSE(Entry("mnuToolsSectionList").icon().isNull());
  EXPECT_EQ(FromQt(Entry("mnuToolsVersions").text()), "Earlier &versions...");
  EXPECT_FALSE(Entry("mnuToolsVersions").icon().isNull());
}

}  // namespace orvane::test
