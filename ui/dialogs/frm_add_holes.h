// "Add Custom Holes" and "Edit Custom Holes": holes placed by hand.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

#include "core/section_families.h"
#include "project/rules/custom_holes.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// Works on a row of Items in the mode EditHole, AddAbsolute or AddRelative. `CustomRow` counts the
// custom holes of the section: the one that is marked, 0 for none. It is the one that is edited,
// and there must be such a hole then. Each hole stored is a change of its own.
class FrmAddHoles : public PlainDialog {
 public:
  FrmAddHoles(std::int16_t ItemIndex, std::int16_t Mode, int CustomRow, QWidget* parent = nullptr);

  // The marked hole will stand at that CustomRow when the change under way is over.
  std::function<void(int CustomRow)> MarkedMoves;

  // The code of the selected button in the set of the section's letter; NoLines if none is.
  std::int16_t FindPattern() const;
  // Selects the button of that code in the letter's set; none if the set has no such button.
  void SelectPattern(std::string_view Letter, int code);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildParts();
  QHBoxLayout* BuildPosition();
  QWidget* BuildSet(std::string_view Letter);
  void BuildOffGauge();
  QHBoxLayout* BuildDetails();
  QHBoxLayout* BuildButtons();

  void ShowNewHole();
  void ShowHoleToEdit();

  void PatternSelected();
  void SlotLenChanged();
  bool TakeYPosKey(const QKeyEvent& key);
  void Store();
  bool StoreAt(std::int16_t XPos, const HoleEntry& entry);
  HoleEntry Entry() const;

  const std::int16_t itemIndex_;
  const std::int16_t mode_;
  int customRow_;
  // Editing a hole whose lines no button stands for.
  bool openedWithoutLines_ = false;

  QLineEdit* txtXpos_ = nullptr;
  QLabel* lblX_ = nullptr;
  std::array<QButtonGroup*, SectionFamilies.size()> sets_{};  // in the order of SectionFamilies
  QGroupBox* SSPanelOffGauge_ = nullptr;
  QLineEdit* txtYPos_ = nullptr;
  QButtonGroup* SSRibbon2_ = nullptr;
  QGroupBox* fraDiameter_ = nullptr;
  QButtonGroup* optDia_ = nullptr;
  QLineEdit* txtSlotLen_ = nullptr;
  QCheckBox* chkCounterSunk_ = nullptr;
  QPushButton* SSCommand1_ = nullptr;
  std::array<QPushButton*, 2> SSCommand2_{};
};

}  // namespace orvane
