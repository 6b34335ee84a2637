// The one gate that changes pass: of the sections, the accessory lines and their flags, the
// project's details and the settings that a user makes. It sets ProjectDirty by the table below,
// lets whoever needs the state before a change have it, and tells whoever shows something once,
// when the change is over. Filling tables at the start of the program is no change. Tables, gate
// and followers belong to one thread, the window's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace orvane {

enum class ChangeKind {
  AddSection,
  Duplicate,
  OppositeHand,
  Delete,
  Sort,
  Mark,
  Product,
  Length,
  Quantity,
  Notes,
  Pattern,
  SamePattern,
  NoPattern,
  ConvertToCustom,
  SagBars,
  Pitch,
  JointingPieces,
  AddHole,
  EditHole,
  RemoveHole,
  Mitres,
  Notches,
  EditAccessory,
  ClearAccessory,
  ProjectDetails,
  NewProject,
  OpenProject,
  Registration,
  MaxDims,
  GridTexts,
  PatternText,
  AccessoryListEntered,
  ProjectReplaced,
  Undo,
  Redo,
  NextSection,
  DeleteSections,
  DuplicateSections,
  OppositeHandSections,
  ConvertSections,
  PasteSections,
  CutSections,
  ImportSections,
  FillSections,
  ChangeSections,
  ShowSection,
  PrintAll,
  Export,
};

// What a change of that kind touches, and so what its row is a row of.
enum class ChangeSubject {
  Section,      // one row of Items
  SectionList,  // which rows Items has, and their order; the row is that of the section, or 0
  Sections,   // several rows of Items at once, what they hold and which there are; the row is that
              // of the section to be shown, or 0
  Accessory,  // the lines and the flag of one row of AccDefs
  Details,    // txtProject and DTPicker1; row 0
  WholeJob,   // all of these; row 0
  Settings,   // what is kept with the program and not with the job; row 0
  Nothing     // no table: it only counts as a change
};

// What it does to ProjectDirty.
enum class Dirties {
  No,
  WhenDone,  // set unless the action raised an error
  Anyway     // set whatever comes of the action
};

// Whose doing it is. What a look makes of the tables is worked out from what the user entered, and
// is no step of his.
enum class ChangeBy { User, Look };

struct ChangeRule {
  ChangeKind Kind;
  std::string_view Name;  // for people
  ChangeSubject Subject;
  Dirties Dirty;
  bool MakesHoles;  // the section's holes may be others afterwards
  bool Redraws;     // its sheet is drawn afresh as soon as the change is over
  ChangeBy By;
};

// One row a kind, in their order.
constexpr std::size_t ChangeKinds = 48;
constexpr std::array<ChangeRule, ChangeKinds> ChangeRules = {{
    // clang-format off
    // Kind                            Name                 Subject                      ProjectDirty         holes   redraw  by

    // Which sections there are. Delete and Sort don't set the flag by themselves: the texts of the
    // grid do where they change, which a sort of equal rows doesn't (GridTexts). The row that is
    // current afterwards is shown, and drawn, by the command.
    {ChangeKind::AddSection,          "Add section",       ChangeSubject::SectionList,  Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::Duplicate,           "Duplicate",         ChangeSubject::SectionList,  Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::OppositeHand,        "Opposite hand",     ChangeSubject::SectionList,  Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::Delete,              "Delete",            ChangeSubject::SectionList,  Dirties::No,         false,  false,  ChangeBy::User},
    {ChangeKind::Sort,                "Sort",              ChangeSubject::SectionList,  Dirties::No,         false,  false,  ChangeBy::User},

    // The cells of a section. What is typed is a changed text of the grid even where the record can't
    // take it, or the holes can't be made for it yet.
    {ChangeKind::Mark,                "Mark",              ChangeSubject::Section,      Dirties::Anyway,     false,  true,   ChangeBy::User},
    {ChangeKind::Product,             "Product",           ChangeSubject::Section,      Dirties::Anyway,     true,   true,   ChangeBy::User},
    {ChangeKind::Length,              "Length",            ChangeSubject::Section,      Dirties::Anyway,     true,   true,   ChangeBy::User},
    {ChangeKind::Quantity,            "Quantity",          ChangeSubject::Section,      Dirties::Anyway,     false,  true,   ChangeBy::User},
    {ChangeKind::Notes,               "Notes",             ChangeSubject::Section,      Dirties::Anyway,     false,  true,   ChangeBy::User},

    // The pattern, by a changed text of its list: the entry that stood there already, chosen again,
    // is none. Without an entry the record loses its pattern and nothing else follows; whether the
    // text has changed by it is told apart (PatternText).
    {ChangeKind::Pattern,             "Pattern",           ChangeSubject::Section,      Dirties::Anyway,     true,   true,   ChangeBy::User},
    {ChangeKind::SamePattern,         "Pattern",           ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::User},
    {ChangeKind::NoPattern,           "Pattern",           ChangeSubject::Section,      Dirties::No,         false,  false,  ChangeBy::User},
    {ChangeKind::ConvertToCustom,     "Convert to custom", ChangeSubject::Section,      Dirties::WhenDone,   true,   true,   ChangeBy::User},

    // Gaps of the flag, which those who work with the system rely on to tell which edits bring the
    // question at the end: of the panel's choices the pattern alone sets it, and none of the dialogs
    // on a section does.
    {ChangeKind::SagBars,             "Sag bars",          ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::User},
    {ChangeKind::Pitch,               "Pitch",             ChangeSubject::Section,      Dirties::No,         false,  true,   ChangeBy::User},
    {ChangeKind::JointingPieces,      "Jointing pieces",   ChangeSubject::Section,      Dirties::No,         false,  true,   ChangeBy::User},
    {ChangeKind::AddHole,             "Add hole",          ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::User},
    {ChangeKind::EditHole,            "Edit hole",         ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::User},
    {ChangeKind::RemoveHole,          "Remove hole",       ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::User},
    // These two dialogs are followed by a drawing whatever button closed them: none is due before.
    {ChangeKind::Mitres,              "Mitres",            ChangeSubject::Section,      Dirties::No,         false,  false,  ChangeBy::User},
    {ChangeKind::Notches,             "Notches",           ChangeSubject::Section,      Dirties::No,         false,  false,  ChangeBy::User},

    // The list of accessories may have had the focus, which sets the flag, since before the project
    // was saved: so its commands set it themselves.
    {ChangeKind::EditAccessory,       "Accessory",         ChangeSubject::Accessory,    Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::ClearAccessory,      "Clear accessory",   ChangeSubject::Accessory,    Dirties::WhenDone,   false,  false,  ChangeBy::User},

    // A gap again: an edit of the details alone is lost without a question. The sheet, which shows
    // them, is drawn when their dialog is closed.
    {ChangeKind::ProjectDetails,      "Project details",   ChangeSubject::Details,      Dirties::No,         false,  false,  ChangeBy::User},
    // Their commands go on behind the change, with the details of a new project or the first sheet of
    // an opened one, and end in ProjectReplaced; a project that can't be read leaves the flag.
    {ChangeKind::NewProject,          "New project",       ChangeSubject::WholeJob,     Dirties::No,         false,  false,  ChangeBy::User},
    {ChangeKind::OpenProject,         "Open project",      ChangeSubject::WholeJob,     Dirties::No,         false,  false,  ChangeBy::User},

    // No part of the job.
    {ChangeKind::Registration,        "Registration",      ChangeSubject::Settings,     Dirties::No,         false,  false,  ChangeBy::User},
    {ChangeKind::MaxDims,             "Max dims",          ChangeSubject::Settings,     Dirties::No,         false,  false,  ChangeBy::User},

    // What counts as a change though no table does: a text of the grid that a command changed, the
    // pattern list's text edited for the moment of a question that was answered No, the user's
    // arrival in the list of accessories, and the end of New and of Open, so that leaving the project
    // brings the question always.
    {ChangeKind::GridTexts,           "Sections",          ChangeSubject::Nothing,      Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::PatternText,         "Pattern",           ChangeSubject::Nothing,      Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::AccessoryListEntered, "Accessories",       ChangeSubject::Nothing,      Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::ProjectReplaced,     "Project",           ChangeSubject::Nothing,      Dirties::WhenDone,   false,  false,  ChangeBy::User},

    // Steps taken back and done again (project/history). The row is that of the section whose step it
    // is, 0 for a step of more; it is shown by the command.
    {ChangeKind::Undo,                "Undo",              ChangeSubject::WholeJob,     Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::Redo,                "Redo",              ChangeSubject::WholeJob,     Dirties::WhenDone,   true,   false,  ChangeBy::User},

    // Rows by the hundred: the section behind another one, and what is done to many at once. All of
    // them set the flag, whatever the same done to one section does.
    {ChangeKind::NextSection,          "Next section",     ChangeSubject::SectionList,  Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::DeleteSections,       "Delete sections",  ChangeSubject::Sections,     Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::DuplicateSections,    "Duplicate sections", ChangeSubject::Sections,   Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::OppositeHandSections, "Opposite hands",   ChangeSubject::Sections,     Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::ConvertSections,      "Convert sections to custom", ChangeSubject::Sections, Dirties::WhenDone, true, false, ChangeBy::User},
    {ChangeKind::PasteSections,        "Paste sections",   ChangeSubject::Sections,     Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::CutSections,          "Cut sections",     ChangeSubject::Sections,     Dirties::WhenDone,   false,  false,  ChangeBy::User},
    {ChangeKind::ImportSections,       "Import sections",  ChangeSubject::Sections,     Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::FillSections,         "Fill sections",    ChangeSubject::Sections,     Dirties::WhenDone,   true,   false,  ChangeBy::User},
    {ChangeKind::ChangeSections,       "Change sections",  ChangeSubject::Sections,     Dirties::WhenDone,   true,   false,  ChangeBy::User},

    // Looks. A move of the cursor and the showing of a section make its pattern holes afresh and
    // settle its sag bars; a run over all sheets leaves the holes that it has drawn (row 0), and an
    // export makes those of all sections afresh and fills up values that an accessory's lines lack.
    {ChangeKind::ShowSection,         "Show",              ChangeSubject::Section,      Dirties::No,         true,   true,   ChangeBy::Look},
    {ChangeKind::PrintAll,            "Print all",         ChangeSubject::WholeJob,     Dirties::No,         true,   false,  ChangeBy::Look},
    {ChangeKind::Export,              "Export",            ChangeSubject::WholeJob,     Dirties::No,         true,   false,  ChangeBy::Look},
    // clang-format on
}};

constexpr const ChangeRule& RuleOf(ChangeKind kind) {
  return ChangeRules.at(static_cast<std::size_t>(kind));
}

// What is told of a change.
struct ChangeNotice {
  ChangeKind Kind = ChangeKind::ShowSection;
  std::int16_t Row = 0;  // of what the kind's subject says
  bool Failed = false;   // the action raised an error: what it changed until then stays
};

// Runs the action as a change of that kind, and sets ProjectDirty as the kind's rule says. An error
// of the action reaches the caller; the state stays as the action left it. A change made inside the
// action of another belongs to it: its own rule decides about the flag, but nobody is told.
// Whoever follows is told before the outermost change, where an error keeps the action from
// running, and once when it is over, also behind an error. Then each has its turn, and the first
// error of them reaches the caller if the action raised none.
void Change(ChangeKind kind, std::int16_t row, const std::function<void()>& action);

// The same without an action: for a kind that touches no table, and for a look at a section as it
// stands.
void Change(ChangeKind kind, std::int16_t row = 0);

// True while the action of a change runs.
bool IsChanging();

// Follows the changes for as long as it lives; those made first are told first. What isn't given is
// not told. A change that a follower itself makes, once one is over, is a change of its own.
class ChangeFollower {
 public:
  using Follow = std::function<void(const ChangeNotice&)>;
  explicit ChangeFollower(Follow after, Follow before = nullptr);
  ~ChangeFollower();
  ChangeFollower(const ChangeFollower&) = delete;
  ChangeFollower& operator=(const ChangeFollower&) = delete;

  const Follow Before;
  const Follow After;
};

}  // namespace orvane
