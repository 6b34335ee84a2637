#include "ui/commands.h"

#include <map>

#include "core/numbers.h"
#include "core/section_families.h"

namespace orvane {

namespace {

// What an entry says stands here once; what it does is told by its Command alone, so that a button
// and a menu entry of one Command can't come to differ. An AddSection stands for one entry of each
// family. Entries of a place are numbered as they come.
// clang-format off
const std::vector<CommandEntry> Rows = {
    // Toolbar
    {Place::SSCommand1, Command::Exit,          "Exit",    "Quit the Orvane detail program",         "", "exit"},
    {Place::SSCommand1, Command::New,           "New",     "Start a new project",                    "", "new"},
    {Place::SSCommand1, Command::Open,          "Open",    "Open an existing project",               "", "open"},
    {Place::SSCommand1, Command::Details,       "Details", "Edit project details",                   "", "details"},
    {Place::SSCommand1, Command::Save,          "Save",    "Save the current project",               "", "save"},
    {Place::SSCommand1, Command::PrintSummary,  "Print",   "Print a summary of the current project", "", "print"},
    {Place::SSCommand1, Command::AddSection,    "",        "",                                       "", ""},
    {Place::SSCommand1, Command::ToggleDrawing, "&Dwg",    "Maximize drawing area",                  "", "drawing"},
    {Place::SSCommand1, Command::HelpIndex,     "Help",    "Show help contents and index",           "", "help"},

    // &Project
    {Place::mnuProject, Command::New,     "&New",                         "", "Ctrl+N",       "new"},
    {Place::mnuProject, Command::Open,    "&Open",                        "", "Ctrl+O",       "open"},
    {Place::mnuProject, Command::Save,    "&Save",                        "", "Ctrl+S",       "save"},
    {Place::mnuProject, Command::SaveAs,  "Save &As",                     "", "Ctrl+Shift+S", "save-as"},
    {Place::mnuProject, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject, Command::Details, "&Project Details",             "", "",             "details"},
    {Place::mnuProject, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject, Command::MaxDims, "Set &maximum section lengths", "", "",             "max-dims"},
    {Place::mnuProject, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject, Command::Exit,    "E&xit",                        "", "",             "exit"},

    // &Edit
    {Place::mnuEdit, Command::Undo, "&Undo", "", "Ctrl+Z",               "undo", 0, 0, "mnuEditUndo"},
    {Place::mnuEdit, Command::Redo, "&Redo", "", "Ctrl+Shift+Z; Ctrl+Y", "redo", 0, 0, "mnuEditRedo"},
    {Place::mnuEdit, Command::None, "",      "", "",                     ""},
    {Place::mnuEdit, Command::Cut,       "Cu&t",            "", "Ctrl+X; Shift+Del", "cut",   0, 0, "mnuEditCut"},
    {Place::mnuEdit, Command::Copy,      "&Copy",           "", "Ctrl+C; Ctrl+Ins",  "copy",  0, 0, "mnuEditCopy"},
    {Place::mnuEdit, Command::Paste,     "&Paste",          "", "Ctrl+V; Shift+Ins", "paste", 0, 0, "mnuEditPaste"},
    {Place::mnuEdit, Command::PasteCell, "Paste into Ce&ll", "", "Ctrl+Shift+V", "paste-cell", 0, 0, "mnuEditPasteCell"},
    {Place::mnuEdit, Command::None, "",      "", "",                     ""},
    {Place::mnuEdit, Command::NextSection, "&Next section", "", "Ctrl+Return; Ctrl+Enter", "next-section", 0, 0, "mnuEditNextSection"},
    {Place::mnuEdit, Command::FillSections, "F&ill chosen sections", "", "Ctrl+Shift+D", "fill", 0, 0, "mnuEditFill"},
    {Place::mnuEdit, Command::ChangeSections, "C&hange chosen sections...", "", "", "change", 0, 0, "mnuEditChange"},
    {Place::mnuEdit, Command::None, "",      "", "",                     ""},
    {Place::mnuEdit, Command::Find,         "&Find...",       "", "Ctrl+F",   "find",          0, 0, "mnuEditFind"},
    {Place::mnuEdit, Command::FindNext,     "Find n&ext",     "", "F3",       "find-next",     0, 0, "mnuEditFindNext"},
    {Place::mnuEdit, Command::FindPrevious, "Find &previous", "", "Shift+F3", "find-previous", 0, 0, "mnuEditFindPrevious"},

    // &Section
    {Place::mnuSection, Command::AddSection,    "",                        "", "",       ""},
    {Place::mnuSection, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, Command::OppositeHand,  "Create &Opposite Hand",   "", "",       "opposite-hand"},
    {Place::mnuSection, Command::Duplicate,     "D&uplicate Section",      "", "Ctrl+D", "duplicate"},
    {Place::mnuSection, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, Command::HolesAbsolute, "Add Holes (&Absolute X)", "", "",       "holes-absolute"},
    {Place::mnuSection, Command::HolesRelative, "Add Holes (Relative &X)", "", "",       "holes-relative"},
    {Place::mnuSection, Command::ConvertHoles,  "Convert Standard &Punching to Custom", "", "", "convert"},
    {Place::mnuSection, Command::Mitres,        "&Mitres",                 "", "",       "mitres"},
    {Place::mnuSection, Command::Notches,       "&Notches",                "", "",       "notches"},
    {Place::mnuSection, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, Command::SortByMark,    "Sort by Mar&k",           "", "",       "sort"},
    {Place::mnuSection, Command::SortBySection, "Sort by &Section",        "", "",       "sort"},
    {Place::mnuSection, Command::SortByLength,  "Sort by &Length",         "", "",       "sort"},
    {Place::mnuSection, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, Command::Delete,        "&Delete",                 "", "",       "delete"},

    // &Output
    {Place::mnuOutput, Command::PrintDrawing,         "Print Current &Drawing",      "", "",       "print"},
    {Place::mnuOutput, Command::PrintAllDrawings,     "Print &All Drawings",         "", "",       "print-all"},
    {Place::mnuOutput, Command::PrintAccessoryList,   "Print Accessory &List",       "", "",       "accessory-list"},
    {Place::mnuOutput, Command::PrintAccessorySheets, "Print All Accessory &Sheets", "", "",       "accessory-sheets"},
    {Place::mnuOutput, Command::PrintSummary,         "Print &Contract Summary",     "", "Ctrl+P", "summary"},
    {Place::mnuOutput, Command::None,                 "",                            "", "",       ""},
    {Place::mnuOutput, Command::ExportCam,            "&Export CAM File",            "", "Ctrl+E", "export"},

    // &Tools
    {Place::mnuTools, Command::EarlierVersions, "Earlier &versions...",  "", "", "versions",     0, 0, "mnuToolsVersions"},
    {Place::mnuTools, Command::RecoverJobs, "&Recover jobs...", "", "", "recover", 0, 0, "mnuToolsRecover"},
    {Place::mnuTools, Command::None,            "",                      "", "", "",             0, 0, ""},
    {Place::mnuTools, Command::ImportSections,  "&Import sections...",   "", "", "import",       0, 0, "mnuToolsImport"},
    {Place::mnuTools, Command::SectionList,     "Section &list...",      "", "", "section-list", 0, 0, "mnuToolsSectionList"},
    {Place::mnuTools, Command::CuttingList,     "C&utting list...",      "", "", "cutting-list", 0, 0, "mnuToolsCuttingList"},
    {Place::mnuTools, Command::None,            "",                      "", "", "",             0, 0, ""},
    {Place::mnuTools, Command::Check,           "&Check...",             "", "F7", "check",      0, 0, "mnuToolsCheck"},
    {Place::mnuTools, Command::CompareJobs,     "Compare &with...",      "", "", "compare",      0, 0, "mnuToolsCompare"},
    {Place::mnuTools, Command::None,            "",                      "", "", "",             0, 0, ""},
    {Place::mnuTools, Command::Catalogue,       "C&atalogue...",         "", "", "catalogue",    0, 0, "mnuToolsCatalogue"},
    {Place::mnuTools, Command::CheckCatalogue,  "Chec&k catalogue...",   "", "", "check-catalogue", 0, 0, "mnuToolsCheckCatalogue"},

    // &Help
    {Place::mnuHelp, Command::HelpIndex,    "&Help Index",          "", "F1", "help"},
    {Place::mnuHelp, Command::About,        "&About",               "", "",   "about"},
    {Place::mnuHelp, Command::None,         "",                     "", "",   ""},
    {Place::mnuHelp, Command::Registration, "Registration Details", "", "",   "registration"},

    // Pop-up of the hole list
    {Place::mnuCHPUI, Command::HolesAbsolute, "Add Holes (Absolute X)", "", "", "holes-absolute"},
    {Place::mnuCHPUI, Command::HolesRelative, "Add Holes (Relative X)", "", "", "holes-relative"},
    {Place::mnuCHPUI, Command::EditHole,      "Edit",                   "", "", "edit-hole"},
    {Place::mnuCHPUI, Command::RemoveHole,    "Remove",                 "", "", "remove"},

    // Pop-up of the accessory list
    {Place::mnuAccPUI, Command::EditAccessory,  "Edit",  "", "", "edit-accessory"},
    {Place::mnuAccPUI, Command::ClearAccessory, "Clear", "", "", "clear-accessory"},
};
// clang-format on

std::string FamilyKey(int number) {
  return "Ctrl+" + DecimalText(number);
}

// What a toolbar button or a menu entry of that place says of a family.
CommandEntry FamilyEntry(Place place, const SectionFamily& family) {
  CommandEntry entry{place, Command::AddSection, family.MenuEntry, "", "", family.Icon};
  entry.Number = FamilyNumber(family.Letter);
  if (place == Place::SSCommand1) {
    entry.Caption = family.ButtonCaption;
    entry.ToolTip = family.ToolTip;
  } else {
    entry.Shortcut = FamilyKey(entry.Number);
  }
  return entry;
}

std::vector<CommandEntry> AllEntries() {
  std::vector<CommandEntry> entries;
  for (const CommandEntry& row : Rows) {
    if (row.What != Command::AddSection) {
      entries.push_back(row);
      continue;
    }
    for (const SectionFamily& family : SectionFamilies) {
      entries.push_back(FamilyEntry(row.Where, family));
    }
  }
  std::map<Place, int> next;
  for (CommandEntry& entry : entries) entry.Index = next[entry.Where]++;
  return entries;
}

}  // namespace

const std::vector<CommandEntry>& CommandTable() {
  static const std::vector<CommandEntry> entries = AllEntries();
  return entries;
}

std::string FamilyKeys() {
  return FamilyKey(1) + " to " + FamilyKey(static_cast<int>(SectionFamilies.size()));
}

std::vector<CommandEntry> CommandsOf(Place place) {
  std::vector<CommandEntry> entries;
  for (const CommandEntry& entry : CommandTable()) {
    if (entry.Where == place) entries.push_back(entry);
  }
  return entries;
}

}  // namespace orvane
