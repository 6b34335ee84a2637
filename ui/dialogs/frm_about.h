// The about box; at the start it serves as the splash screen.
#pragma once

#include <QDialog>

namespace orvane {

class FrmAbout : public QDialog {
 public:
  explicit FrmAbout(QWidget* parent = nullptr);
};

}  // namespace orvane
