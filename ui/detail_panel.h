// The detail panel of the main window: pattern, sag bars, pitch, jointing pieces and hole list of
// the selected section.
#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "project/changes.h"
#include "project/rules/section_details.h"
#include "ui/commands.h"
#include "ui/controls/flex_grid.h"
#include "ui/controls/plain_combo.h"

namespace orvane {

// What showing a section does to its pattern holes.
enum class ShownHoles { Afresh, AsTheyStand };

// The item worked on is always the one at the current row of the sections grid.
class DetailPanel : public QWidget {
 public:
  DetailPanel(const FlexGrid& sections, QWidget* parent);

  // Step of the main window's load: the entries of cboPitch.
  void FillPitches();

  // Fill and show; none of these counts as the user's choice.
  void FillPatternCombo(const std::string& Letter);
  // Shows the panel for a row: its parts, pattern and sag bars, its holes made afresh and its
  // sheet. Pitch, jointing pieces and hole list are shown by the calls of their own below.
  // True when the section has a pattern of the list: the sheet was drawn then. `holes` can spare
  // the holes.
  bool SetDetailPanel(const std::string& Letter, std::int16_t ItemIndex,
                      ShownHoles holes = ShownHoles::Afresh);
  // No choice, no text and no hole row; without a section nothing of the panel shows at all.
  void ClearDetailPanel();
  // Hides all parts of the panel, for a grid without rows.
  void HideParts();
  void FillHoleGrid(std::int16_t ItemIndex);
  void EmptyHoleGrid();
  void ShowPitch(std::int16_t ItemIndex);
  void ShowJointingPieces(std::int16_t ItemIndex);

  // The text of the pattern selected here, by which the section's holes are made; empty without a
  // selection, and then the custom holes alone are left.
  std::string ShownPattern() const;

  // Change what the hole list and the sheet follow: the section's sag bars are settled, and the
  // first makes its holes afresh by the pattern shown. An error stops it and reaches the caller,
  // whose look it is.
  void RebuildShownHoles(std::int16_t ItemIndex);
  void ShowHolesAsTheyStand(std::int16_t ItemIndex);

  // Typed letters of both lists choose or are dropped, as leaving them would; the focus stays.
  void SettleLists();
  // The row of the hole list that is marked, 0 for none.
  int MarkedHole() const { return markedHole_; }
  void MarkHole(int row);

  // The letters go, and nothing is chosen; false if there are none.
  bool DropLetters();
  // The first row for which a list was left undecided, 0 for none; and the focus put into that
  // list, with which it counts as entered, while that row is the current one.
  int UndecidedRow() const;
  void EnterUndecided();
  // All such rows, or the one that has gone: those behind it have moved up.
  void ForgetUndecided();
  void ForgetRow(int row);
  // The rows stand in another order: row i is what was row formerRows[i - 1].
  void MoveUndecided(const std::vector<int>& formerRows);

  // What takes the focus of the panel, and of its hole list; none while that part doesn't show.
  QWidget* PatternStop() const;
  QWidget* HoleListStop() const;

  // Run before a command of the panel's own: fields with typed letters are settled.
  std::function<void()> BeforeCommand;

  // Commands.

  // Does nothing for a row below 1; else ItemIndex is the current row of the sections grid.
  void ConvertToCustom(std::int16_t ItemIndex);
  // CustomRow is a row of the hole list; nothing happens for a hole or a section that isn't there.
  void DeleteCustomHole(std::int16_t ItemIndex, int CustomRow);
  // The hole dialog on the selected section, to add holes in that mode; refused unless its pattern
  // is "Custom".
  void AddCustomHoles(std::int16_t Mode);

  // Width at which the hole list stands beside the options with no figure out of sight.
  int WidthForFigures() const;

  // The part of the screen that shows what the hole dialog changes; it opens beside it.
  std::function<QRect()> ElevationPlace;

 protected:
  // The keys of the hole list, and the mark that it has the focus.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildPunching();
  void BuildSagBars();
  void BuildPitch();
  void BuildJointing();
  void BuildHoleList();
  void BuildHolesMenu();
  void LayParts();

  // A list and the rows for which it was left undecided, with their reasons.
  struct WatchedList {
    PlainCombo* List = nullptr;
    std::map<int, QString> Undecided;
  };
  void WatchList(WatchedList& watched, PlainCombo* list);
  static void ShowUndecided(const WatchedList& watched, int row);
  void RunOwn(const std::function<void()>& command);

  std::int16_t Row() const;      // of the section worked on
  bool IsHoleListShown() const;  // false for a pattern of holes not placed by hand
  void ShowPart(QWidget& part, bool shown);
  void ShowParts(const std::string& letter);
  void ShowSagBars(SagBars choice);

  // The hole list after a change of the section's holes.
  void Follow(const ChangeNotice& change);

  void PatternChosen();
  void TakePattern(std::int16_t ItemIndex);
  void ApplyPattern(std::int16_t ItemIndex, ShownHoles holes);
  void SagBarsSelected(int option);
  void PitchSelected();
  void JointingChanged();

  bool HoleListKey(const QKeyEvent& key);
  void HoleListEntered(Qt::FocusReason reason);
  void ShowHolesMenu(QPoint globalPos);
  void RunHoleCommand(Command command);
  void EditCustomHole();
  void OpenHoleDialog(std::int16_t Mode);

  const FlexGrid& sections_;
  WatchedList patterns_;
  WatchedList pitches_;

  QWidget* SSPanelPunching_ = nullptr;
  PlainCombo* cboPattern_ = nullptr;
  QGroupBox* fraSagBars_ = nullptr;
  QButtonGroup* optSagBars_ = nullptr;
  QLabel* lblPitch_ = nullptr;
  PlainCombo* cboPitch_ = nullptr;
  QLabel* lblJointing_ = nullptr;
  QLineEdit* txtJointing_ = nullptr;
  QWidget* SSpanelCustom_ = nullptr;
  TextGridModel* holes_ = nullptr;
  FlexGrid* MSFlexGrid2_ = nullptr;
  int markedHole_ = 0;  // row of the hole list, 0 for none
  QMenu* mnuCHPU_ = nullptr;
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
