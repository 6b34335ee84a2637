// "Mitres": the angles at which the ends of a section are cut, with a sketch of the beam.
#pragma once

#include <QLineEdit>
#include <array>
#include <cstdint>

#include "project/rules/mitre_rules.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// The picture Picture1. It shows the angles that were given to it last, at any size, whatever is
// being typed.
class BeamPicture : public QWidget {
 public:
  explicit BeamPicture(QWidget* parent);

  // Degrees.
  void ShowAngles(double left, double right);
  // What it shows at its present size, in twips.
  BeamSketch Corners() const;

  QSize sizeHint() const final;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double left_ = 0;
  double right_ = 0;
};

// Edits a row of Items.
class FrmMitres : public PlainDialog {
 public:
  explicit FrmMitres(std::int16_t ItemIndex, QWidget* parent = nullptr);

  // Draws the sketch from the two boxes.
  void DrawBeam();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LeaveBox(QLineEdit& box);
  void Store();

  const std::int16_t itemIndex_;
  std::array<QLineEdit*, 2> txtAngle_{};
  BeamPicture* Picture1_ = nullptr;
};

}  // namespace orvane
