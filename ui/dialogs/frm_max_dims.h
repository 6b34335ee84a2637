// "Set Max Dims": the greatest length of each section family.
#pragma once

#include <QLineEdit>
#include <array>

#include "ui/controls/plain_dialog.h"

namespace orvane {

class FrmMaxDims : public PlainDialog {
 public:
  explicit FrmMaxDims(QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ApplyDefaults();
  void Store();

  std::array<QLineEdit*, 7> txtMaxDims_{};  // 1 to 6
  std::array<QPushButton*, 3> SSCommand2_{};
};

}  // namespace orvane
