// "Print Preview": its menu, its pages, and the ways through them by keys, mouse and bar.
#include "tests/screens/preview_window_fixture.h"

namespace orvane::test {

TEST_F(Preview, It_bears_its_name_and_the_menu_of_three_entries) {
  Open(1);
  EXPECT_EQ(FromQt(preview->objectName()), "frmPreview");
  EXPECT_EQ(FromQt(preview->windowTitle()), "Print Preview");
  auto& menu = Find<QMenu>(*preview, "mnuFile");
  const QList<QAction*> entries = menu.actions();
  ASSERT_EQ(entries.size(), 3);
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"mnuFile(0)", "&Print"}, {"mnuFile(1)", ""}, {"mnuFile(2)", "&Close"}};
  for (int i = 0; i < 3; ++i) {
    const QAction* entry = entries.at(i);
    EXPECT_EQ(FromQt(entry->objectName()), expected.at(static_cast<std::size_t>(i)).first);
    EXPECT_EQ(entry->isSeparator(), i == 1);
    if (i != 1) {
      EXPECT_EQ(FromQt(entry->text()), expected.at(static_cast<std::size_t>(i)).second);
    }
    EXPECT_TRUE(entry->isEnabled());
  }
  EXPECT_EQ(entries.at(0)->shortcut(), QKeySequence("Ctrl+P"));
}

TEST_F(Preview, The_print_surface_takes_all_of_the_inside_whatever_the_size) {
  Open(2);
  auto& surface = Find(*preview, "VSPrinter1");
  const auto* menu = preview->findChild<QMenuBar*>();
  for (const QSize size : {QSize(900, 700), QSize(1500, 900), QSize(640, 480)}) {
    preview->resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(surface.geometry(),
              QRect(0, menu->height(), size.width(), size.height() - menu->height()));
  }
  // As small as it gets does no harm.
  preview->resize(1, 1);
  QCoreApplication::processEvents();
  EXPECT_FALSE(preview->grab().isNull());
}

TEST_F(Preview, Close_and_Escape_and_the_frame_close_it) {
  const std::vector<std::function<void()>> ways = {
      [&] { Find<QAction>(*preview, "mnuFile(2)").trigger(); },
      [&] { Press(Qt::Key_Escape); },
      [&] { preview->close(); },
      [&] {
        QTest::keyClick(preview.get(), Qt::Key_F, Qt::AltModifier);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
      },
  };
  for (const auto& way : ways) {
    Open(1);
    way();
    WaitUntilHidden(*preview);
  }
}

// Pages.

TEST_F(Preview, A_whole_page_is_in_sight_at_first) {
  Open(3);
  EXPECT_EQ(Pages().PageCount(), 3);
  EXPECT_EQ(Pages().CurrentPage(), 1);
  EXPECT_EQ(Number(), "1");
  EXPECT_EQ(FromQt(Find<QLabel>(*preview, "lblPages").text()), "of 3");
  EXPECT_TRUE(Holds(1));
  EXPECT_EQ(Pages().Zoom(), PageZoom::FitPage);
  const QRectF paper = Pages().PaperPlace(1);
  EXPECT_NEAR(paper.width() / paper.height(), 297.0 / 210, 1e-9);
  // As large as there is room for.
  EXPECT_NEAR(std::min(Sight().width() - paper.width(), Sight().height() - paper.height()),
              2 * Edge, 1e-6);
  EXPECT_TRUE(IsWhite(Seen(), paper.center()));
}

TEST_F(Preview, Pages_lie_below_one_another_with_desk_between_them) {
  Open(3);
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Minus);
  const QRectF first = Pages().PaperPlace(1);
  const QRectF second = Pages().PaperPlace(2);
  EXPECT_TRUE(Holds(1) && Holds(2));
  EXPECT_DOUBLE_EQ(first.left(), second.left());
  EXPECT_NEAR(second.top() - first.bottom(), 16, 1e-6);
  EXPECT_NEAR(first.center().x(), Sight().center().x(), 0.01);
  const QImage image = Seen();
  EXPECT_TRUE(IsWhite(image, first.center()));
  EXPECT_TRUE(IsWhite(image, second.center()));
  EXPECT_FALSE(IsWhite(image, QPointF(first.center().x(), first.bottom() + 8)));
  EXPECT_FALSE(IsWhite(image, QPointF(2, 2)));
}

TEST_F(Preview, The_page_keys_go_page_by_page_while_a_page_is_fitted) {
  Open(5);
  const std::vector<std::pair<Qt::Key, int>> steps = {
      {Qt::Key_PageDown, 2}, {Qt::Key_PageDown, 3}, {Qt::Key_PageUp, 2}, {Qt::Key_Space, 3},
      {Qt::Key_End, 5},      {Qt::Key_PageDown, 5}, {Qt::Key_Home, 1},   {Qt::Key_PageUp, 1},
  };
  for (const auto& [key, page] : steps) {
    Key(key);
    EXPECT_EQ(Pages().CurrentPage(), page);
    EXPECT_EQ(Number(), std::to_string(page));
    EXPECT_TRUE(Holds(page)) << page;
  }
  Key(Qt::Key_End);
  Key(Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(Pages().CurrentPage(), 4);
}

TEST_F(Preview, With_Ctrl_they_go_by_pages_at_any_zoom_and_by_views_without) {
  Open(5);
  Key(Qt::Key_2);
  Key(Qt::Key_Plus);
  Key(Qt::Key_Plus);
  Key(Qt::Key_Home);
  const int view = Pages().viewport()->height();
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Bar().value(), view);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(Bar().value(), 0);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Pages().CurrentPage(), 2);
  EXPECT_NEAR(Pages().PaperPlace(2).top(), Edge, 1);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Number(), "2");
  Key(Qt::Key_Down);
  EXPECT_NEAR(Pages().PaperPlace(2).top(), Edge - Bar().singleStep(), 1);
}

TEST_F(Preview, Each_page_has_its_turn_while_the_bar_goes_down) {
  for (const int zoomOut : {0, 2, 5}) {
    Open(6);
    for (int i = 0; i < zoomOut; ++i) Key(Qt::Key_Minus);
    std::vector<int> turns;
    for (int value = 0; value <= Bar().maximum(); ++value) {
      Bar().setValue(value);
      if (turns.empty() || turns.back() != Pages().CurrentPage()) {
        turns.push_back(Pages().CurrentPage());
      }
    }
    EXPECT_EQ(turns, (std::vector<int>{1, 2, 3, 4, 5, 6})) << zoomOut;
  }
}

TEST_F(Preview, A_page_number_is_typed_and_kept_within_the_pages) {
  Open(12);
  auto& field = Find<QLineEdit>(*preview, "txtPage");
  const std::vector<std::pair<std::string, int>> entries = {
      {"7", 7}, {"12", 12}, {"99", 12}, {"0", 12}, {"x", 12}, {"99999", 12}, {"3", 3}};
  for (const auto& [typed, page] : entries) {
    QTest::mouseClick(&field, Qt::LeftButton);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(typed);
    Press(Qt::Key_Return);
    EXPECT_EQ(Pages().CurrentPage(), page) << typed;
    EXPECT_EQ(Number(), std::to_string(page)) << typed;
    EXPECT_TRUE(Pages().hasFocus());
    EXPECT_TRUE(preview->isVisible());
  }
}

TEST_F(Preview, A_number_that_is_left_without_Enter_goes_back) {
  Open(12);
  QTest::mouseClick(&Find(*preview, "txtPage"), Qt::LeftButton);
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("5");
  QTest::mouseClick(Pages().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
  EXPECT_EQ(Number(), "1");
  EXPECT_EQ(Pages().CurrentPage(), 1);
}

TEST_F(Preview, The_buttons_of_the_bar_turn_the_pages) {
  Open(3);
  EXPECT_FALSE(Find(*preview, "cmdPrevious").isEnabled());
  ClickOn("cmdNext");
  ClickOn("cmdNext");
  EXPECT_EQ(Number(), "3");
  EXPECT_FALSE(Find(*preview, "cmdNext").isEnabled());
  ClickOn("cmdPrevious");
  EXPECT_EQ(Number(), "2");
  EXPECT_TRUE(Find(*preview, "cmdPrevious").isEnabled());
  EXPECT_TRUE(Find(*preview, "cmdNext").isEnabled());
}

// Printing.

TEST_F(Preview, Print_prints_the_document_from_entry_button_and_key) {
  Open(3);
  const std::string path = Pdf();
  ProjectFileName = "/jobs/hall seven.ovd";
  std::string title;
  Choose([&](QPrinter& printer) {
    title = FromQt(printer.docName());
    printer.setOutputFileName(ToQt(path));
    return true;
  });
  QToolButton* button = nullptr;
  for (auto* each : preview->findChildren<QToolButton*>()) {
    if (each->defaultAction() == &Find<QAction>(*preview, "mnuFile(0)")) button = each;
  }
  ASSERT_NE(button, nullptr);
  const std::vector<std::function<void()>> ways = {
      [&] { Find<QAction>(*preview, "mnuFile(0)").trigger(); },
      [&] { QTest::mouseClick(button, Qt::LeftButton); },
      [&] { Key(Qt::Key_P, Qt::ControlModifier); },
  };
  for (const auto& way : ways) {
    std::filesystem::remove(path);
    way();
    EXPECT_EQ(TextsOf(path), "Page 1|Page 2|Page 3");
    EXPECT_TRUE(preview->isVisible());
  }
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(title, "hall seven");
}

TEST_F(Preview, The_key_that_opened_it_may_be_held_without_printing) {
  Open(1);
  Choose([](QPrinter&) { return false; });
  constexpr bool repeats = true;
  QTest::simulateEvent(&Pages(), true, Qt::Key_P, Qt::ControlModifier, "", repeats);
  EXPECT_EQ(asked, 0);
  QTest::simulateEvent(&Pages(), true, Qt::Key_P, Qt::ControlModifier, "", !repeats);
  EXPECT_EQ(asked, 1);
}

TEST_F(Preview, A_job_without_a_file_bears_the_systems_name) {
  Open(1);
  std::string title;
  Choose([&](QPrinter& printer) {
    title = FromQt(printer.docName());
    return false;
  });
  Find<QAction>(*preview, "mnuFile(0)").trigger();
  EXPECT_EQ(title, "Orvane Detail System");
  EXPECT_TRUE(preview->isVisible());
}

TEST_F(Preview, An_error_of_printing_is_told_and_the_preview_stays) {
  Open(2);
  ReplacePrintDialog([](QPrinter&, QWidget*) -> bool {
    throw RuntimeError(SystemErrorBase, "No printer is installed");
  });
  dialogs.ExpectBox("No printer is installed");
  Find<QAction>(*preview, "mnuFile(0)").trigger();
  EXPECT_TRUE(preview->isVisible());
  ChooseFile(TempPath("no/such/folder/a.pdf"));
  dialogs.ExpectBox("Path not found");
  Find<QAction>(*preview, "mnuFile(0)").trigger();
  EXPECT_TRUE(preview->isVisible());
  EXPECT_EQ(dialogs.Boxes().size(), 2U);
}

}  // namespace orvane::test
