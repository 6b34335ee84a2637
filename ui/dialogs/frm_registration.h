// "Registration Details": who uses the system, the preferred margins and the least separation of
// holes on the sheets.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <array>

#include "ui/platform/plain_dialog.h"

namespace orvane {

class FrmRegistration : public PlainDialog {
 public:
  explicit FrmRegistration(QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* CompanyFields();
  QWidget* MarginFields();
  QWidget* SeparationField();
  void ShowSettings();
  // Says quietly what the margins do to the strip; nothing where it fits.
  void ShowMarginNote();
  // The range of Text1(6), the only one of the dialog.
  void LimitSeparation();
  void Continue();

  std::array<QLineEdit*, 7> Text1_{};
  QLabel* lblMargins_ = nullptr;
  QPushButton* SSCommand1_ = nullptr;
};

}  // namespace orvane
