// The one table of menus, toolbar, tips and shortcuts. Free of the toolkit, so that the help's
// shortcut page is made from it too.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

enum class Command {
  None,  // a separator
  Exit,
  New,
  Open,
  Details,
  Save,
  SaveAs,
  MaxDims,
  Recent,      // one of the five places that are filled at run time
  AddSection,  // one entry for each family
  OppositeHand,
  Duplicate,
  HolesAbsolute,
  HolesRelative,
  ConvertHoles,
  Mitres,
  Notches,
  SortByMark,
  SortBySection,
  SortByLength,
  Delete,
  PrintDrawing,
  PrintAllDrawings,
  PrintAccessoryList,
  PrintAccessorySheets,
  PrintSummary,
  ExportCam,
  ToggleDrawing,
  HelpIndex,
  About,
  Registration,
  EditHole,
  RemoveHole,
  EditAccessory,
  ClearAccessory,
  Undo,
  Redo,
  Cut,
  Copy,
  Paste,
  PasteCell,
  NextSection,
  FillSections,
  ChangeSections,
  Find,
  FindNext,
  FindPrevious,
  EarlierVersions,
  RecoverJobs,
  ImportSections,
  SectionList,
  CuttingList,
  CompareJobs,
  Catalogue,
  CheckCatalogue,
  Check,
};

// Where an entry stands. The name is that of the control array.
enum class Place {
  SSCommand1,
  mnuProject,
  mnuEdit,
  mnuSection,
  mnuOutput,
  mnuTools,
  mnuHelp,
  mnuCHPUI,
  mnuAccPUI
};

struct CommandEntry {
  Place Where = Place::SSCommand1;
  Command What = Command::None;
  std::string_view Caption;    // "&" marks the key; empty for a separator and for a recent file
  std::string_view ToolTip;    // toolbar only
  std::string Shortcut;        // "Ctrl+N", several as "Ctrl+N; F2"; menu entries only
  std::string_view Icon;       // name of a file in ui/icons without ".svg"; empty for none
  int Index = 0;               // of the control array
  int Number = 0;              // AddSection: that of the family, from 1; 0 for all others
  std::string_view Name = {};  // objectName of an entry that stands in no control array
};

// All entries, place by place in the order of their index.
const std::vector<CommandEntry>& CommandTable();

// The entries of one place.
std::vector<CommandEntry> CommandsOf(Place place);

// The keys that add a section of each family, from the first to the last.
std::string FamilyKeys();

// A menu of the bar.
struct BarMenu {
  Place Where;
  std::string_view Caption;
  std::string_view Name;  // objectName
};

// In the order of the bar. Those of mnuBar keep their indices whatever stands between them.
constexpr std::array<BarMenu, 6> BarMenus = {{{Place::mnuProject, "&Project", "mnuBar(0)"},
                                              {Place::mnuEdit, "&Edit", "mnuEdit"},
                                              {Place::mnuSection, "&Section", "mnuBar(1)"},
                                              {Place::mnuOutput, "&Output", "mnuBar(2)"},
                                              {Place::mnuTools, "&Tools", "mnuTools"},
                                              {Place::mnuHelp, "&Help", "mnuBar(3)"}}};

}  // namespace orvane
