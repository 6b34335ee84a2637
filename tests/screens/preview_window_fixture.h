// What the tests of "Print Preview" share: the window with a document of plain pages, the keys and
// the wheel, and what shows.
#pragma once

#include <QMenuBar>
#include <QScrollBar>
#include <QWheelEvent>

#include "core/numbers.h"
#include "tests/screens/preview_fixture.h"
#include "ui/dialogs/frm_preview.h"

namespace orvane::test {

inline constexpr double Edge = 12;  // pixels of the desk around the paper

class Preview : public PrintingTest {
 protected:
  // Shows a preview of that many landscape pages, each with "Page n" and a thin line.
  void Open(int pages, PageOrientation orientation = PageOrientation::Landscape) {
    preview = std::make_unique<FrmPreview>();
    Draw(pages, orientation);
    preview->resize(900, 700);
    ShowActive(*preview);
    QCoreApplication::processEvents();
  }
  void Draw(int pages, PageOrientation orientation) {
    PageSurface& surface = preview->Surface();
    surface.Orientation(orientation);
    surface.StartDoc();
    surface.FontSize(20);
    for (int page = 1; page <= pages; ++page) {
      if (page > 1) surface.NewPage();
      surface.CurrentX(Length::OfMm(30));
      surface.CurrentY(Length::OfMm(30));
      surface.Text("Page " + std::to_string(page));
      surface.PenWidth(Length::OfMm(0.1));
      surface.DrawLine(Length::OfMm(30), Length::OfMm(60), Length::OfMm(130), Length::OfMm(60));
    }
    surface.EndDoc();
  }

  DocumentPages& Pages() { return Find<DocumentView>(*preview, "VSPrinter1").Pages(); }
  QScrollBar& Bar() { return *Pages().verticalScrollBar(); }
  QRectF Sight() { return Pages().viewport()->rect(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    ASSERT_TRUE(Pages().hasFocus());
    Press(key, modifiers);
  }
  void Wheel(QPointF at, int angle, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event(at, Pages().viewport()->mapToGlobal(at), QPoint(), QPoint(0, angle),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Pages().viewport(), &event);
  }
  void ClickOn(const std::string& name) {
    QTest::mouseClick(&Find(*preview, name), Qt::LeftButton);
  }
  std::string Number() { return FromQt(Find<QLineEdit>(*preview, "txtPage").text()); }
  std::string Percent() { return FromQt(Find<QToolButton>(*preview, "cmdZoom").text()); }
  bool IsDown(const std::string& name) { return Find<QToolButton>(*preview, name).isChecked(); }
  bool Holds(int page) { return Sight().contains(Pages().PaperPlace(page)); }
  QImage Seen() {
    return Pages().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  // The picture has the pixels of the device, the place those of the toolkit.
  static QColor At(const QImage& image, QPointF at) {
    return image.pixelColor((at * image.devicePixelRatio()).toPoint());
  }
  static bool IsWhite(const QImage& image, QPointF at) {
    return At(image, at) == QColor(Qt::white);
  }

  std::unique_ptr<FrmPreview> preview;
};

}  // namespace orvane::test
