// The live sheet: what it shows, when it draws, and how it is zoomed and moved.
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "core/desktop.h"
#include "core/files.h"
#include "core/program_folder.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {

namespace {

class SheetViewTest : public SectionsTest {
 protected:
  void SetUp() override {
    SectionsTest::SetUp();
    main->resize(1200, 800);
    QCoreApplication::processEvents();
  }

  // A purlin with a pair of holes of a pattern, not yet shown.
  static Item& PutPurlin(const std::string& mark) {
    Item& item = Put("Z", mark, SectionDims.At(1).Product, 6000);
    item.PatternName = "Custom";
    PutHole(item, 100, std::string(CustomKind));
    PutHole(item, 3000, std::string(CustomKind));
    return item;
  }

  QImage Seen() {
    return Sheet().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  static QColor At(const QImage& image, QPointF point) {
    return image.pixelColor((point * image.devicePixelRatio()).toPoint());
  }
  QPoint Middle() { return Sheet().viewport()->rect().center(); }
  int Dark(const QImage& image) {
    int dark = 0;
    const QRect place = (QRectF(Sheet().PaperPlace().topLeft() * image.devicePixelRatio(),
                                Sheet().PaperPlace().size() * image.devicePixelRatio()))
                            .toRect()
                            .intersected(image.rect());
    for (int y = place.top(); y < place.bottom(); ++y) {
      for (int x = place.left(); x < place.right(); ++x) {
        if (qGray(image.pixel(x, y)) < 100) ++dark;
      }
    }
    return dark;
  }
  void Wheel(QPointF at, int angle, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event(at, Sheet().viewport()->mapToGlobal(at), QPoint(), QPoint(0, angle),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Sheet().viewport(), &event);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Sheet(), key, modifiers);
  }
};

}  // namespace

TEST_F(SheetViewTest, At_the_start_there_is_a_bare_desk_without_the_focus) {
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_TRUE(Sheet().PaperPlace().isEmpty());
  const QImage image = Seen();
  const QColor desk = image.pixelColor(0, 0);
  EXPECT_EQ(At(image, Middle()), desk);
  EXPECT_NE(desk, QColor(Qt::white));
  EXPECT_FALSE(Sheet().hasFocus());
  Key(Qt::Key_Plus);
  Wheel(Middle(), 120, Qt::ControlModifier);
  EXPECT_TRUE(Sheet().PaperPlace().isEmpty());
}

TEST_F(SheetViewTest, The_sheet_lies_whole_in_the_middle_of_the_pane) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const QRectF place = Sheet().PaperPlace();
  const QRectF pane = Sheet().viewport()->rect();
  EXPECT_TRUE(pane.contains(place));
  EXPECT_NEAR(place.width() / place.height(), 297.0 / 210, 1e-9);
  EXPECT_NEAR(place.center().x(), pane.center().x(), 0.01);
  EXPECT_NEAR(place.center().y(), pane.center().y(), 0.01);
  // It fills the pane one way, but for an edge of the desk.
  EXPECT_NEAR(std::min(pane.width() - place.width(), pane.height() - place.height()), 24, 0.01);
  EXPECT_EQ(At(Seen(), place.topLeft() + QPointF(5, 5)), QColor(Qt::white));
  EXPECT_GT(Dark(Seen()), 500);
}

TEST_F(SheetViewTest, The_paper_is_white_on_a_dark_desktop_too) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  QPalette dark = Sheet().palette();
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  Sheet().setPalette(dark);
  const QImage image = Seen();
  EXPECT_LT(qGray(image.pixel(0, 0)), 40);
  EXPECT_EQ(At(image, Sheet().PaperPlace().topLeft() + QPointF(5, 5)), QColor(Qt::white));
}

TEST_F(SheetViewTest, The_first_sheet_after_a_start_has_its_gaps) {
  // From the load of the window on, before anything is drawn.
  EXPECT_EQ(DrawingWidth, 228);
  // Also for a section whose gaps were never worked out.
  DrawingWidth = 0;
  const Item& item = PutPurlin("P1");
  Sheet().DrawSection(1);
  // 297 mm of paper, less 10 and 45 at the left and 10 and 4 at the right.
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_EQ(item.Holes.At(1).RelX, 100);
  EXPECT_EQ(item.Holes.At(2).RelX, 2900);
  EXPECT_EQ(item.Holes.At(0).XPos, 6000);
  EXPECT_EQ(item.Holes.At(0).RelX, 3000);
}

TEST_F(SheetViewTest, Other_margins_give_other_gaps_and_another_sheet) {
  MinHoleSep = 10;
  Item& item = PutPurlin("P1");
  DrawingWidth = 0;
  Sheet().DrawSection(1);
  // 100 mm of 6000 in 228 mm of paper are 3.8 mm, widened to 10.
  const double before = item.Holes.At(1).DrawGap;
  EXPECT_NEAR(before, 10 * 6000 / 228.0, 1e-9);
  const QImage former = Seen();
  LeftMargin = 30;
  Sheet().ApplyMargins();
  EXPECT_EQ(DrawingWidth, 208);
  EXPECT_NEAR(item.Holes.At(1).DrawGap, 10 * 6000 / 208.0, 1e-9);
  Sheet().DrawSection(1);
  EXPECT_NEAR(item.Holes.At(1).DrawGap, 10 * 6000 / 208.0, 1e-9);
  EXPECT_NE(Seen(), former);
}

TEST_F(SheetViewTest, Another_separation_alone_gives_all_sections_other_gaps) {
  PutPurlin("P1");
  PutPurlin("P2");
  MinHoleSep = 10;
  Sheet().ApplyMargins();
  MinHoleSep = 12;
  Sheet().ApplyMargins();
  EXPECT_EQ(DrawingWidth, 228);
  // 100 mm of 6000 in 228 mm of paper are 3.8 mm, widened to 12.
  for (const Item& item : Items) EXPECT_NEAR(item.Holes.At(1).DrawGap, 12 * 6000 / 228.0, 1e-9);
}

TEST_F(SheetViewTest, A_change_shows_and_the_same_sheet_looks_the_same) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const QImage first = Seen();
  Sheet().DrawSection(1);
  EXPECT_EQ(Seen(), first);
  Items.At(1).Mark = "P2";
  Sheet().DrawSection(1);
  EXPECT_NE(Seen(), first);
  const QImage marked = Seen();
  txtProject.at(2) = "Another customer";
  Sheet().DrawSection(1);
  EXPECT_NE(Seen(), marked);
}

TEST_F(SheetViewTest, Row_0_and_a_row_that_is_not_there_leave_the_sheet) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const QImage first = Seen();
  Sheet().DrawSection(0);
  EXPECT_EQ(Seen(), first);
  EXPECT_EQ(ErrorOf([&] { Sheet().DrawSection(2); }), "Subscript out of range");
  EXPECT_EQ(Sheet().ShownRow(), 0);
}

TEST_F(SheetViewTest, An_error_of_the_drawing_is_raised_and_no_other_sections_sheet_stays) {
  PutPurlin("P1");
  Put("R", "R1", "CLR", 3000);
  Sheet().DrawSection(1);
  const QImage first = Seen();
  ProgramFolder = TempPath("nowhere");
  const std::string missing = PathText(NativePath(ProgramFolder) / "drawings" / "drg015.wmf");
  EXPECT_EQ(ErrorOf([&] { Sheet().DrawSection(2); }), "File not found: " + missing);
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_TRUE(Sheet().PaperPlace().isEmpty());
  Sheet().DrawSection(1);
  EXPECT_EQ(Seen(), first);
}

TEST_F(SheetViewTest, A_section_that_cant_be_drawn_for_a_while_keeps_its_sheet) {
  Put("R", "R1", "CLR", 3000);
  Sheet().DrawSection(1);
  const QImage first = Seen();
  ProgramFolder = TempPath("nowhere");
  const std::string missing = PathText(NativePath(ProgramFolder) / "drawings" / "drg015.wmf");
  EXPECT_EQ(ErrorOf([&] { Sheet().DrawSection(1); }), "File not found: " + missing);
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_EQ(Seen(), first);
}

TEST_F(SheetViewTest, A_deleted_sections_sheet_goes_though_the_next_one_cant_be_drawn) {
  PutPurlin("P1");
  Put("R", "R1", "CLR", 3000);
  main->DisplayItems();
  main->SelectFirstItem();
  ASSERT_EQ(Sheet().ShownRow(), 1);
  ProgramFolder = TempPath("nowhere");
  const std::string missing = PathText(NativePath(ProgramFolder) / "drawings" / "drg015.wmf");
  dialogs.ExpectBox("Remove mark P1?", "", QMessageBox::Yes);
  dialogs.ExpectBox("R1: File not found: " + missing);
  main->Run(Command::Delete);
  Settle();
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_TRUE(Sheet().PaperPlace().isEmpty());
}

TEST_F(SheetViewTest, Clear_shows_nothing) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  Sheet().Clear();
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_TRUE(Sheet().PaperPlace().isEmpty());
  const QImage image = Seen();
  EXPECT_EQ(At(image, Middle()), image.pixelColor(0, 0));
}

TEST_F(SheetViewTest, A_sheet_is_painted_once_however_often_the_window_asks) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  QCoreApplication::processEvents();
  const int painted = Sheet().PaintCount();
  for (int i = 0; i < 5; ++i) Sheet().viewport()->repaint();
  EXPECT_EQ(Sheet().PaintCount(), painted);
  Sheet().DrawSection(1);
  Sheet().viewport()->repaint();
  EXPECT_EQ(Sheet().PaintCount(), painted + 1);
}

TEST_F(SheetViewTest, Rings_lie_over_the_sheet_and_leave_it_as_it_is) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const QImage before = Seen();
  const int painted = Sheet().PaintCount();
  // A blank place of the paper, 60 by 20 mm, whose ring passes 1.5 mm beside it.
  const QRectF place(170, 30, 60, 20);
  const double mm = Sheet().PixelsPerMm();
  const QPointF corner = Sheet().PaperPlace().topLeft();
  const QPointF beside = corner + QPointF(place.left() - 1.5, place.center().y()) * mm;
  const QPointF within = corner + place.center() * mm;
  ASSERT_EQ(At(before, beside), QColor(Qt::white));
  Sheet().ShowRings({{place, true}});
  const QImage ringed = Seen();
  EXPECT_GT(At(ringed, beside).red(), 150);
  EXPECT_LT(At(ringed, beside).green(), 100);
  EXPECT_EQ(At(ringed, within), QColor(Qt::white));
  EXPECT_EQ(Sheet().PaintCount(), painted);  // the page itself is not painted again
  // Quiet ones are told by a broken line too, not by their colour alone.
  Sheet().ShowRings({{place, false}});
  const QImage quiet = Seen();
  const auto painted_along = [&](const QImage& image) {
    int count = 0;
    for (double x = 20; x < 40; x += 0.5) {
      const QPointF point = corner + QPointF(place.left() + x, place.bottom() + 1.5) * mm;
      if (At(image, point) != QColor(Qt::white)) ++count;
    }
    return count;
  };
  EXPECT_EQ(painted_along(ringed), 40);
  EXPECT_GT(painted_along(quiet), 0);
  EXPECT_LT(painted_along(quiet), 40);
  Sheet().ShowRings({});
  EXPECT_EQ(Seen(), before);
}

// What waits may ask for a sheet itself: the former one is shown by then.
TEST_F(SheetViewTest, Pending_events_run_behind_a_sheet_that_is_shown) {
  PutPurlin("P1");
  PutPurlin("P2");
  std::vector<int> shown;
  QMetaObject::invokeMethod(
      &Sheet(),
      [&] {
        shown.push_back(Sheet().ShownRow());
        Sheet().DrawSection(2);
        shown.push_back(Sheet().ShownRow());
      },
      Qt::QueuedConnection);
  Sheet().DrawSection(1);
  EXPECT_EQ(shown, (std::vector<int>{1, 2}));
  EXPECT_EQ(Sheet().ShownRow(), 2);
}

TEST_F(SheetViewTest, Ctrl_and_the_wheel_zoom_around_the_pointer) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  for (int i = 0; i < 5; ++i) Wheel(Middle(), 120, Qt::ControlModifier);  // larger than the pane
  EXPECT_FALSE(Sheet().IsFitted());
  const QPointF at = Middle() + QPointF(60, 40);
  const auto onPaper = [&] {
    return (at - Sheet().PaperPlace().topLeft()) / Sheet().PixelsPerMm();
  };
  const double scale = Sheet().PixelsPerMm();
  const QPointF point = onPaper();
  Wheel(at, 240, Qt::ControlModifier);
  EXPECT_NEAR(Sheet().PixelsPerMm(), scale * 1.25 * 1.25, 1e-9);
  EXPECT_NEAR(onPaper().x(), point.x(), 1 / scale);
  EXPECT_NEAR(onPaper().y(), point.y(), 1 / scale);
  Wheel(at, -240, Qt::ControlModifier);
  EXPECT_NEAR(Sheet().PixelsPerMm(), scale, 1e-9);
  EXPECT_FALSE(Sheet().hasFocus());
}

TEST_F(SheetViewTest, Keys_zoom_show_the_true_size_and_fit) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const double fitted = Sheet().PixelsPerMm();
  Key(Qt::Key_Plus);
  EXPECT_NEAR(Sheet().PixelsPerMm(), fitted * 1.25, 1e-9);
  Key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_NEAR(Sheet().PixelsPerMm(), fitted * 1.25 * 1.25, 1e-9);
  Key(Qt::Key_Minus);
  EXPECT_NEAR(Sheet().PixelsPerMm(), fitted * 1.25, 1e-9);
  Key(Qt::Key_1);
  EXPECT_NEAR(Sheet().PixelsPerMm(), Sheet().logicalDpiX() / 25.4, 1e-9);
  Key(Qt::Key_0);
  EXPECT_TRUE(Sheet().IsFitted());
  EXPECT_NEAR(Sheet().PixelsPerMm(), fitted, 1e-9);
  EXPECT_EQ(Sheet().verticalScrollBar()->maximum(), 0);
}

TEST_F(SheetViewTest, Zoom_ends_at_both_ends) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Plus);
  EXPECT_EQ(Sheet().PixelsPerMm(), 100);
  EXPECT_FALSE(Seen().isNull());
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Minus);
  EXPECT_EQ(Sheet().PixelsPerMm(), 0.2);
  EXPECT_FALSE(Seen().isNull());
}

TEST_F(SheetViewTest, Dragging_moves_the_sheet_with_the_pointer) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  for (int i = 0; i < 6; ++i) Key(Qt::Key_Plus);
  const QPointF before = Sheet().PaperPlace().topLeft();
  QTest::mousePress(Sheet().viewport(), Qt::LeftButton, Qt::NoModifier, Middle());
  EXPECT_EQ(Sheet().viewport()->cursor().shape(), Qt::ClosedHandCursor);
  QTest::mouseMove(Sheet().viewport(), Middle() + QPoint(-30, 20));
  QTest::mouseRelease(Sheet().viewport(), Qt::LeftButton, Qt::NoModifier,
                      Middle() + QPoint(-30, 20));
  EXPECT_EQ(Sheet().PaperPlace().topLeft() - before, QPointF(-30, 20));
  EXPECT_EQ(Sheet().viewport()->cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(SheetViewTest, Wheel_and_keys_scroll_a_sheet_larger_than_the_pane) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  for (int i = 0; i < 6; ++i) Key(Qt::Key_Plus);
  QScrollBar& bar = *Sheet().verticalScrollBar();
  ASSERT_GT(bar.maximum(), 0);
  bar.setValue(0);
  Wheel(Middle(), -120, Qt::NoModifier);
  EXPECT_GT(bar.value(), 0);
  Key(Qt::Key_End);
  EXPECT_EQ(bar.value(), bar.maximum());
  Key(Qt::Key_PageUp);
  EXPECT_EQ(bar.value(), std::max(bar.maximum() - bar.pageStep(), 0));
  Key(Qt::Key_Home);
  EXPECT_EQ(bar.value(), 0);
  Key(Qt::Key_Down);
  EXPECT_EQ(bar.value(), bar.singleStep());
}

TEST_F(SheetViewTest, Zoom_and_place_stay_while_the_section_changes) {
  PutPurlin("P1");
  PutPurlin("P2");
  Sheet().DrawSection(1);
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Plus);
  Sheet().horizontalScrollBar()->setValue(33);
  const QRectF place = Sheet().PaperPlace();
  Sheet().DrawSection(2);
  EXPECT_EQ(Sheet().PaperPlace(), place);
  EXPECT_EQ(Sheet().ShownRow(), 2);
}

TEST_F(SheetViewTest, A_fitted_sheet_follows_the_pane) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  const double before = Sheet().PixelsPerMm();
  main->resize(1600, 1000);
  QCoreApplication::processEvents();
  EXPECT_GT(Sheet().PixelsPerMm(), before);
  EXPECT_TRUE(QRectF(Sheet().viewport()->rect()).contains(Sheet().PaperPlace()));
}

// Whatever was painted before leaves nothing behind.
TEST_F(SheetViewTest, The_desk_follows_the_pane_the_zoom_and_the_colours) {
  PutPurlin("P1");
  SheetView view;
  const auto seen = [](SheetView& one) { return one.viewport()->grab().toImage(); };
  // A new view's picture at that zoom; 0 without a sheet, 1 fitted.
  const auto seenFresh = [&](double zoom) {
    SheetView fresh;
    fresh.setPalette(view.palette());
    fresh.resize(view.size());
    fresh.show();
    if (zoom > 0) fresh.DrawSection(1);
    if (zoom > 0 && zoom != 1) fresh.ZoomBy(zoom, QPointF(100, 100));
    return seen(fresh);
  };
  view.resize(600, 500);
  view.show();
  view.DrawSection(1);
  const QImage first = seen(view);
  view.resize(600, 430);
  EXPECT_EQ(seen(view), seenFresh(1));
  EXPECT_NE(seen(view), first);
  view.ZoomBy(0.5, QPointF(100, 100));
  EXPECT_EQ(seen(view), seenFresh(0.5));
  view.Fit();
  QPalette dark = view.palette();
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  view.setPalette(dark);
  EXPECT_EQ(seen(view), seenFresh(1));
  view.Clear();
  EXPECT_EQ(seen(view), seenFresh(0));
}

TEST_F(SheetViewTest, It_takes_the_focus_by_a_click_alone) {
  PutPurlin("P1");
  Show(1, 1);
  ASSERT_EQ(Focus(), "txtEdit");
  Wheel(Middle(), 120, Qt::ControlModifier);
  Sheet().DrawSection(1);
  EXPECT_EQ(Focus(), "txtEdit");
  QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, Qt::NoModifier, Middle());
  EXPECT_EQ(Focus(), "VSPrinter1");
  Press(Qt::Key_0);
  EXPECT_TRUE(Sheet().IsFitted());
}

TEST_F(SheetViewTest, A_pane_of_no_size_does_no_harm) {
  PutPurlin("P1");
  Sheet().DrawSection(1);
  SheetView small;
  small.resize(1, 1);
  small.show();
  small.DrawSection(1);
  EXPECT_FALSE(small.viewport()->grab().isNull());
}

}  // namespace orvane::test
