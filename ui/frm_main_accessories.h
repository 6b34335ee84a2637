// The accessory list of the main window: the whole catalogue, with a mark in front of what the
// project uses.
#pragma once

#include <QListWidget>

namespace orvane {

// Bears the name lstAccessories. Entry i, from 0, stands for row i + 1 of AccDefs.
class AccessoryList : public QListWidget {
 public:
  explicit AccessoryList(QWidget* parent = nullptr);

  void FillAccessoryList();
  void SetAccUsage();
  void ClearAccUsage();

 protected:
  // The user's arrival counts as a change of the project, deliberately; the way back from a menu, a
  // dialog or another program doesn't.
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace orvane
