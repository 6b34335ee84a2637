#include "ui/commands.h"

#include <array>
#include <stdexcept>

namespace orvane {

namespace {

// What an entry says stands here once; what it does is told by its Command alone, so that a button
// and a menu entry of one Command can't come to differ.
// clang-format off
const std::vector<CommandEntry> AllCommands = {
    // Toolbar
    {Place::SSCommand1,  0, Command::Exit,          "Exit",    "Quit the Orvane detail program",         "", "exit"},
    {Place::SSCommand1,  1, Command::New,           "New",     "Start a new project",                    "", "new"},
    {Place::SSCommand1,  2, Command::Open,          "Open",    "Open an existing project",               "", "open"},
    {Place::SSCommand1,  3, Command::Details,       "Details", "Edit project details",                   "", "details"},
    {Place::SSCommand1,  4, Command::Save,          "Save",    "Save the current project",               "", "save"},
    {Place::SSCommand1,  5, Command::PrintSummary,  "Print",   "Print a summary of the current project", "", "print"},
    {Place::SSCommand1,  6, Command::AddZ,          "Z",       "Add a Z section",                        "", "z"},
    {Place::SSCommand1,  7, Command::AddE,          "Eaves",   "Add an eaves beam section",              "", "eaves"},
    {Place::SSCommand1,  8, Command::AddC,          "C",       "Add a channel section",                  "", "c"},
    {Place::SSCommand1,  9, Command::AddV,          "VCR",     "Add a vertical cladding rail section",   "", "vcr"},
    {Place::SSCommand1, 10, Command::AddR,          "Cleader", "Add a cleader rail section",             "", "cleader"},
    {Place::SSCommand1, 11, Command::AddT,          "Top Hat", "Add a top hat section",                  "", "top-hat"},
    {Place::SSCommand1, 12, Command::ToggleDrawing, "&Dwg",    "Maximize drawing area",                  "", "drawing"},
    {Place::SSCommand1, 13, Command::HelpIndex,     "Help",    "Show help contents and index",           "", "help"},

    // &Project
    {Place::mnuProject,  0, Command::New,     "&New",                         "", "Ctrl+N",       "new"},
    {Place::mnuProject,  1, Command::Open,    "&Open",                        "", "Ctrl+O",       "open"},
    {Place::mnuProject,  2, Command::Save,    "&Save",                        "", "Ctrl+S",       "save"},
    {Place::mnuProject,  3, Command::SaveAs,  "Save &As",                     "", "Ctrl+Shift+S", "save-as"},
    {Place::mnuProject,  4, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject,  5, Command::Details, "&Project Details",             "", "",             "details"},
    {Place::mnuProject,  6, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject,  7, Command::MaxDims, "Set &maximum section lengths", "", "",             "max-dims"},
    {Place::mnuProject,  8, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject,  9, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, 10, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, 11, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, 12, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, 13, Command::Recent,  "",                             "", "",             ""},
    {Place::mnuProject, 14, Command::None,    "",                             "", "",             ""},
    {Place::mnuProject, 15, Command::Exit,    "E&xit",                        "", "",             "exit"},

    // &Section
    {Place::mnuSection,  0, Command::AddZ,          "&Z section",              "", "Ctrl+1", "z"},
    {Place::mnuSection,  1, Command::AddE,          "&Eaves Beam",             "", "Ctrl+2", "eaves"},
    {Place::mnuSection,  2, Command::AddC,          "&C Channel",              "", "Ctrl+3", "c"},
    {Place::mnuSection,  3, Command::AddV,          "&VCR",                    "", "Ctrl+4", "vcr"},
    {Place::mnuSection,  4, Command::AddR,          "Cleader &Rail",           "", "Ctrl+5", "cleader"},
    {Place::mnuSection,  5, Command::AddT,          "&Top Hat",                "", "Ctrl+6", "top-hat"},
    {Place::mnuSection,  6, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection,  7, Command::OppositeHand,  "Create &Opposite Hand",   "", "",       "opposite-hand"},
    {Place::mnuSection,  8, Command::Duplicate,     "D&uplicate Section",      "", "Ctrl+D", "duplicate"},
    {Place::mnuSection,  9, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, 10, Command::HolesAbsolute, "Add Holes (&Absolute X)", "", "",       "holes-absolute"},
    {Place::mnuSection, 11, Command::HolesRelative, "Add Holes (Relative &X)", "", "",       "holes-relative"},
    {Place::mnuSection, 12, Command::ConvertHoles,  "Convert Standard &Punching to Custom", "", "", "convert"},
    {Place::mnuSection, 13, Command::Mitres,        "&Mitres",                 "", "",       "mitres"},
    {Place::mnuSection, 14, Command::Notches,       "&Notches",                "", "",       "notches"},
    {Place::mnuSection, 15, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, 16, Command::SortByMark,    "Sort by Mar&k",           "", "",       "sort"},
    {Place::mnuSection, 17, Command::SortBySection, "Sort by &Section",        "", "",       "sort"},
    {Place::mnuSection, 18, Command::SortByLength,  "Sort by &Length",         "", "",       "sort"},
    {Place::mnuSection, 19, Command::None,          "",                        "", "",       ""},
    {Place::mnuSection, 20, Command::Delete,        "&Delete",                 "", "",       "delete"},

    // &Output
    {Place::mnuOutput, 0, Command::PrintDrawing,         "Print Current &Drawing",      "", "",       "print"},
    {Place::mnuOutput, 1, Command::PrintAllDrawings,     "Print &All Drawings",         "", "",       "print-all"},
    {Place::mnuOutput, 2, Command::PrintAccessoryList,   "Print Accessory &List",       "", "",       "accessory-list"},
    {Place::mnuOutput, 3, Command::PrintAccessorySheets, "Print All Accessory &Sheets", "", "",       "accessory-sheets"},
    {Place::mnuOutput, 4, Command::PrintSummary,         "Print &Contract Summary",     "", "Ctrl+P", "summary"},
    {Place::mnuOutput, 5, Command::None,                 "",                            "", "",       ""},
    {Place::mnuOutput, 6, Command::ExportCam,            "&Export CAM File",            "", "Ctrl+E", "export"},

    // &Help
    {Place::mnuHelp, 0, Command::HelpIndex,    "&Help Index",          "", "F1", "help"},
    {Place::mnuHelp, 1, Command::About,        "&About",               "", "",   "about"},
    {Place::mnuHelp, 2, Command::None,         "",                     "", "",   ""},
    {Place::mnuHelp, 3, Command::Registration, "Registration Details", "", "",   "registration"},

    // Pop-up of the hole list
    {Place::mnuCHPUI, 0, Command::HolesAbsolute, "Add Holes (Absolute X)", "", "", "holes-absolute"},
    {Place::mnuCHPUI, 1, Command::HolesRelative, "Add Holes (Relative X)", "", "", "holes-relative"},
    {Place::mnuCHPUI, 2, Command::EditHole,      "Edit",                   "", "", "edit-hole"},
    {Place::mnuCHPUI, 3, Command::RemoveHole,    "Remove",                 "", "", "remove"},

    // Pop-up of the accessory list
    {Place::mnuAccPUI, 0, Command::EditAccessory,  "Edit",  "", "", "edit-accessory"},
    {Place::mnuAccPUI, 1, Command::ClearAccessory, "Clear", "", "", "clear-accessory"},
};
// clang-format on

constexpr std::array<std::string_view, 4> MenuBarCaptions = {"&Project", "&Section", "&Output",
                                                             "&Help"};

}  // namespace

const std::vector<CommandEntry>& CommandTable() {
  return AllCommands;
}

std::vector<CommandEntry> CommandsOf(Place place) {
  std::vector<CommandEntry> entries;
  for (const CommandEntry& entry : AllCommands) {
    if (entry.Where == place) entries.push_back(entry);
  }
  return entries;
}

std::string_view MenuBarCaption(int index) {
  if (index < 0 || index >= static_cast<int>(MenuBarCaptions.size())) {
    throw std::out_of_range("no such menu");
  }
  return MenuBarCaptions.at(static_cast<std::size_t>(index));
}

}  // namespace orvane
