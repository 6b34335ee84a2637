// "Notches": the table of a section's notches, edited cell by cell, and a picture of the codes.
#pragma once

#include <QFrame>
#include <QLineEdit>
#include <array>
#include <cstdint>
#include <string_view>

#include "project/rules/notch_rules.h"
#include "ui/controls/flex_grid.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/plain_dialog.h"

namespace orvane {

// The picture Image1: a section with the places of the notches marked with their codes.
class NotchPicture : public QWidget {
 public:
  explicit NotchPicture(QWidget* parent);

  // The outline of the section, and the notch of a code in it; empty for an unknown code.
  QRect SectionPlace() const;
  QRect PlaceOf(std::string_view code) const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize NotchSize() const;
};

class NotchesModel;

// Edits the notches of a row of Items; nothing is stored before OK.
class FrmNotches : public PlainDialog {
 public:
  explicit FrmNotches(std::int16_t ItemIndex, QWidget* parent = nullptr);

  // Leaves one blank row.
  void ClearAll();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildGrid();
  void BuildEditors();
  void StartEditing(int row, int column);
  void PlaceEditor();
  void HideEditors();
  bool EditorKey(const QKeyEvent& key);
  bool GridKey(const QKeyEvent& key);
  void Edited(const std::string& text);
  void AddRow();
  void DeleteRow();
  void Store();

  const std::int16_t itemIndex_;
  NotchesModel* model_ = nullptr;
  FlexGrid* MSFlexGrid1_ = nullptr;
  std::array<QFrame*, 2> SSPanelEdit_{};
  QLineEdit* txtEdit_ = nullptr;
  PlainCombo* cboEdit_ = nullptr;
};

}  // namespace orvane
