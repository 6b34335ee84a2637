// The one table of menus, toolbar, tips and shortcuts. Free of the toolkit, so that the help's
// shortcut page is made from it too.
#pragma once

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
};

// Where an entry stands. The name is that of the control array.
enum class Place { SSCommand1, mnuProject, mnuSection, mnuOutput, mnuHelp, mnuCHPUI, mnuAccPUI };

struct CommandEntry {
  Place Where = Place::SSCommand1;
  Command What = Command::None;
  std::string_view Caption;  // "&" marks the key; empty for a separator and for a recent file
  std::string_view ToolTip;  // toolbar only
  std::string Shortcut;      // "Ctrl+N"; menu entries only; empty for none
  std::string_view Icon;     // name of a file in ui/icons without ".svg"; empty for none
  int Index = 0;             // of the control array
  int Number = 0;            // AddSection: that of the family, from 1; 0 for all others
};

// All entries, place by place in the order of their index.
const std::vector<CommandEntry>& CommandTable();

// The entries of one place.
std::vector<CommandEntry> CommandsOf(Place place);

// The captions of mnuBar(0..3): "&Project", "&Section", "&Output", "&Help".
std::string_view MenuBarCaption(int index);

}  // namespace orvane
