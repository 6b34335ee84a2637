// "Print Preview": its zoom, and what it paints.
#include "tests/screens/preview_window_fixture.h"

namespace orvane::test {

namespace {

class PreviewZoom : public Preview {};

}  // namespace

TEST_F(PreviewZoom, Keys_zoom_and_fit) {
  Open(3);
  const double fitted = Pages().PixelsPerMm();
  EXPECT_TRUE(IsDown("cmdFitPage"));
  Key(Qt::Key_Plus);
  EXPECT_NEAR(Pages().PixelsPerMm(), fitted * 1.25, 1e-9);
  EXPECT_FALSE(IsDown("cmdFitPage"));
  Key(Qt::Key_Minus);
  EXPECT_NEAR(Pages().PixelsPerMm(), fitted, 1e-9);
  EXPECT_EQ(Pages().Zoom(), PageZoom::Free);
  Key(Qt::Key_2);
  EXPECT_EQ(Pages().Zoom(), PageZoom::FitWidth);
  EXPECT_TRUE(IsDown("cmdFitWidth"));
  EXPECT_NEAR(Pages().PaperPlace(1).width(), Sight().width() - 2 * Edge, 1e-6);
  EXPECT_EQ(Pages().horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(Pages().CurrentPage(), 1);
  Key(Qt::Key_1);
  EXPECT_NEAR(Pages().PixelsPerMm(), Pages().logicalDpiX() / 25.4, 1e-9);
  EXPECT_EQ(Percent(), "100 %");
  Key(Qt::Key_0);
  EXPECT_NEAR(Pages().PixelsPerMm(), fitted, 1e-9);
  EXPECT_TRUE(IsDown("cmdFitPage"));
}

TEST_F(PreviewZoom, The_keys_of_the_pages_work_from_the_bar_too) {
  Open(3);
  auto& number = Find<QLineEdit>(*preview, "txtPage");
  number.setFocus();
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Pages().CurrentPage(), 2);
  EXPECT_TRUE(number.hasFocus());
  auto& button = Find<QToolButton>(*preview, "cmdZoomOut");
  button.setFocus();
  Press(Qt::Key_2);
  EXPECT_EQ(Pages().Zoom(), PageZoom::FitWidth);
  Press(Qt::Key_End);
  EXPECT_EQ(Pages().CurrentPage(), 3);
  EXPECT_TRUE(button.hasFocus());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(preview->isVisible());
}

TEST_F(PreviewZoom, Buttons_zoom_and_fit) {
  Open(3, PageOrientation::Portrait);
  const double fitted = Pages().PixelsPerMm();
  ClickOn("cmdZoomIn");
  EXPECT_NEAR(Pages().PixelsPerMm(), fitted * 1.25, 1e-9);
  ClickOn("cmdZoomOut");
  EXPECT_NEAR(Pages().PixelsPerMm(), fitted, 1e-9);
  ClickOn("cmdFitWidth");
  EXPECT_NEAR(Pages().PaperPlace(1).width(), Sight().width() - 2 * Edge, 1e-6);
  ClickOn("cmdFitWidth");
  EXPECT_TRUE(IsDown("cmdFitWidth"));
  ClickOn("cmdZoom");
  EXPECT_EQ(Percent(), "100 %");
  ClickOn("cmdFitPage");
  EXPECT_TRUE(Holds(1));
  EXPECT_EQ(Percent(), DecimalText(Whole(fitted * 25.4 / Pages().logicalDpiX() * 100)) + " %");
}

TEST_F(PreviewZoom, The_wheel_zooms_with_Ctrl_around_the_pointer_and_scrolls_without) {
  Open(5);
  Pages().GoTo(3);
  Key(Qt::Key_Plus);
  const QPointF at(500, 300);
  const auto under = [&] { return (at - Pages().PaperPlace(3).topLeft()) / Pages().PixelsPerMm(); };
  const QPointF before = under();
  const double scale = Pages().PixelsPerMm();
  Wheel(at, 240, Qt::ControlModifier);
  EXPECT_NEAR(Pages().PixelsPerMm(), scale * 1.25 * 1.25, 1e-9);
  EXPECT_NEAR(under().x(), before.x(), 0.5);
  EXPECT_NEAR(under().y(), before.y(), 0.5);
  const int value = Bar().value();
  Wheel(at, -120, Qt::NoModifier);
  EXPECT_GT(Bar().value(), value);
  EXPECT_NEAR(Pages().PixelsPerMm(), scale * 1.25 * 1.25, 1e-9);
}

// Fingers put on a touchpad, or moved sideways on it.
TEST_F(PreviewZoom, A_wheel_with_Ctrl_that_does_not_turn_keeps_the_page_fitted) {
  Open(2);
  Wheel(Sight().center(), 0, Qt::ControlModifier);
  EXPECT_EQ(Pages().Zoom(), PageZoom::FitPage);
  EXPECT_TRUE(IsDown("cmdFitPage"));
}

TEST_F(PreviewZoom, A_page_fitted_by_its_width_begins_at_its_top) {
  Open(5, PageOrientation::Portrait);
  Pages().GoTo(3);
  Key(Qt::Key_2);
  EXPECT_EQ(Pages().CurrentPage(), 3);
  EXPECT_NEAR(Pages().PaperPlace(3).top(), Edge, 1);
}

TEST_F(PreviewZoom, Zooming_ends_somewhere_both_ways) {
  Open(2);
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Minus);
  EXPECT_NEAR(Pages().PixelsPerMm(), 0.2, 1e-9);
  EXPECT_FALSE(Seen().isNull());
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Plus);
  EXPECT_NEAR(Pages().PixelsPerMm(), 100, 1e-9);
  Pages().horizontalScrollBar()->setValue(3000);
  Pages().GoTo(2);
  Bar().setValue(Bar().value() + 5900);
  // 60 mm down the page, in the middle of the view's height, the line of 0.1 mm is 10 pixels thick.
  const QRectF place = Pages().PaperPlace(2);
  const QImage image = Seen();
  const double line = place.top() + 6000;
  ASSERT_TRUE(Sight().contains(QPointF(50, line)));
  const double inside = std::max(place.left() + 3100, 20.0);
  EXPECT_EQ(At(image, QPointF(inside, line)), QColor(Qt::black));
  EXPECT_TRUE(IsWhite(image, QPointF(inside, line + 30)));
}

TEST_F(PreviewZoom, The_page_stays_while_the_window_changes_its_size) {
  Open(9);
  Pages().GoTo(6);
  preview->resize(1300, 620);
  QCoreApplication::processEvents();
  EXPECT_EQ(Pages().CurrentPage(), 6);
  EXPECT_TRUE(Holds(6));
  EXPECT_EQ(Pages().Zoom(), PageZoom::FitPage);
  Key(Qt::Key_2);
  Pages().GoTo(4);
  preview->resize(700, 600);
  QCoreApplication::processEvents();
  EXPECT_EQ(Pages().CurrentPage(), 4);
  EXPECT_NEAR(Pages().PaperPlace(4).top(), Edge, 2);
  EXPECT_NEAR(Pages().PaperPlace(4).width(), Sight().width() - 2 * Edge, 1e-6);
}

TEST_F(PreviewZoom, Pages_of_both_ways_up_lie_on_one_middle_line) {
  Open(1);
  Document mixed{{NumberedPage(1, 210, 297), NumberedPage(2, 297, 210)}};
  Pages().ShowDocument(&mixed);
  Key(Qt::Key_Minus);
  Key(Qt::Key_Minus);
  const QRectF first = Pages().PaperPlace(1);
  const QRectF second = Pages().PaperPlace(2);
  EXPECT_NEAR(first.center().x(), second.center().x(), 1e-6);
  EXPECT_NEAR(first.height(), second.width(), 1e-6);
  EXPECT_NEAR(first.width(), second.height(), 1e-6);
  Pages().ShowDocument(nullptr);
}

TEST_F(PreviewZoom, The_mouse_moves_pages_that_are_larger_than_the_view) {
  Open(3);
  Key(Qt::Key_1);
  for (int i = 0; i < 3; ++i) Key(Qt::Key_Plus);
  const QPoint before(Pages().horizontalScrollBar()->value(), Bar().value());
  QWidget* view = Pages().viewport();
  QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, QPoint(300, 300));
  QTest::mouseMove(view, QPoint(260, 230));
  QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, QPoint(260, 230));
  EXPECT_EQ(QPoint(Pages().horizontalScrollBar()->value(), Bar().value()), before + QPoint(40, 70));
}

// Painting.

TEST_F(PreviewZoom, Only_what_is_in_sight_is_painted_and_once) {
  Open(3000);
  Seen();
  EXPECT_LE(Pages().PaintCount(), 2);
  const int opened = Pages().PaintCount();
  Seen();
  EXPECT_EQ(Pages().PaintCount(), opened);
  Key(Qt::Key_End);
  Seen();
  EXPECT_EQ(Pages().CurrentPage(), 3000);
  EXPECT_LE(Pages().PaintCount(), opened + 2);
  const int atTheEnd = Pages().PaintCount();
  Key(Qt::Key_Up);
  Seen();
  EXPECT_LE(Pages().PaintCount(), atTheEnd + 1);
}

TEST_F(PreviewZoom, A_thin_line_is_one_black_row_of_pixels) {
  Open(1);
  const QImage image = Seen();
  const QRectF paper = Pages().PaperPlace(1);
  const double ratio = image.devicePixelRatio();
  const int x = qRound((paper.left() + 100 * Pages().PixelsPerMm()) * ratio);
  const int middle = qRound((paper.top() + 60 * Pages().PixelsPerMm()) * ratio);
  int black = 0;
  for (int y = middle - 4; y <= middle + 4; ++y) {
    const QColor color = image.pixelColor(x, y);
    if (color == QColor(Qt::black)) {
      ++black;
    } else {
      EXPECT_EQ(color, QColor(Qt::white)) << y - middle;
    }
  }
  EXPECT_EQ(black, 1);
}

TEST_F(PreviewZoom, The_desk_follows_the_colours_and_the_paper_stays_white) {
  Open(2);
  const QColor light = Seen().pixelColor(1, 1);
  QPalette dark = preview->palette();
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  preview->setPalette(dark);
  QCoreApplication::processEvents();
  const QImage image = Seen();
  EXPECT_NE(image.pixelColor(1, 1), light);
  EXPECT_LT(qGray(image.pixel(1, 1)), 40);
  EXPECT_TRUE(IsWhite(image, Pages().PaperPlace(1).center()));
}

TEST_F(PreviewZoom, Without_a_page_nothing_does_harm) {
  preview = std::make_unique<FrmPreview>();
  ShowActive(*preview);
  EXPECT_EQ(Pages().PageCount(), 0);
  EXPECT_EQ(Number(), "");
  EXPECT_EQ(FromQt(Find<QLabel>(*preview, "lblPages").text()), "of 0");
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End,
                            Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0, Qt::Key_1, Qt::Key_2}) {
    Key(key);
  }
  EXPECT_EQ(Pages().CurrentPage(), 0);
  EXPECT_FALSE(Seen().isNull());
  ChooseFile(Pdf());
  Find<QAction>(*preview, "mnuFile(0)").trigger();
  EXPECT_EQ(asked, 0);
}

}  // namespace orvane::test
