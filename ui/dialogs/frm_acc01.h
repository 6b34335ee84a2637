// "Type 1 Accessories": the sizes of an accessory, each with its number off, beside its picture.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// A field that takes digits alone. Enter leads to the next control, as Tab does.
class NumberField : public PlainField {
 public:
  explicit NumberField(QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void KeepDigits();
};

// Edits the lines of an accessory, a row of AccDefs. A picture that can't be loaded raises its
// error out of the constructor.
class FrmAcc01 : public PlainDialog {
 public:
  explicit FrmAcc01(std::int16_t AccIndex, QWidget* parent = nullptr);

 protected:
  bool HasChanges() override;

 private:
  QWidget* BuildRows();
  NumberField* NewField(std::string_view array, int index, std::string_view heading);
  QLayout* BuildButtons();
  void FillRows();
  // What the fields show, a row for each size.
  TextRows ShownRows() const;

  void Store();
  void ClearFields();
  void Print();

  const std::int16_t accIndex_;
  const bool hasTexts_;  // the column of descriptions is shown
  const bool hasParam_;  // and that of values

  TextRows openedWith_;  // what the fields showed first
  // One for each size, in their order.
  std::vector<NumberField*> txtQty_;
  std::vector<NumberField*> txtParam_;
};

}  // namespace orvane
