// "Notches": the table of a section's notches, edited cell by cell, and a picture of the codes.
#pragma once

#include <QWidget>
#include <cstdint>
#include <string_view>

#include "ui/controls/text_table.h"
#include "ui/platform/plain_dialog.h"

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

// MSFlexGrid1: what is typed or chosen stands in its cell at once.
class NotchesTable : public TextTable {
 public:
  NotchesTable(std::int16_t ItemIndex, QWidget* parent);
};

// Edits the notches of a row of Items; nothing is stored before OK.
class FrmNotches : public PlainDialog {
 public:
  explicit FrmNotches(std::int16_t ItemIndex, QWidget* parent = nullptr);

  // Leaves one blank row.
  void ClearAll();

 protected:
  bool HasChanges() override;

 private:
  void Store();

  const std::int16_t itemIndex_;
  NotchesTable* MSFlexGrid1_;
};

}  // namespace orvane
