// "Set Max Dims": the greatest length of each section family.
#pragma once

#include <QLineEdit>
#include <array>

#include "core/section_families.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

class FrmMaxDims : public PlainDialog {
 public:
  explicit FrmMaxDims(QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ApplyDefaults();
  void Store();

  // The rows of MaxDims; element 0 is no field.
  std::array<QLineEdit*, SectionFamilies.size() + 1> txtMaxDims_{};
  std::array<QPushButton*, 3> SSCommand2_{};
};

}  // namespace orvane
