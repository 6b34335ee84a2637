// The program's own desktop but for its file dialogs and the help, and the guard of the handlers.
#include <QtTest/QTest>

#include <QAbstractButton>
#include <QDateTime>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include "core/settings_file.h"
#include "tests/screens/dialog_fixture.h"
#include "tests/support/patience.h"
#include "ui/platform/guard.h"

namespace orvane {

namespace {

using test::DialogTest;

// What a box looked like when it stood on the screen.
struct Look {
  std::string Text;
  std::string Title;
  std::vector<std::string> Buttons;
  std::string Default;
  std::string Escape;
  QMessageBox::Icon Icon = QMessageBox::NoIcon;
  Qt::TextFormat Format = Qt::AutoText;
  QWidget* Parent = nullptr;
};

std::string TextOf(const QAbstractButton* button) {
  return button == nullptr ? "" : FromQt(button->text());
}

Look LookOf(QWidget& window) {
  const auto& box = dynamic_cast<QMessageBox&>(window);
  Look look{FromQt(box.text()),
            FromQt(box.windowTitle()),
            {},
            TextOf(box.defaultButton()),
            TextOf(box.escapeButton()),
            box.icon(),
            box.textFormat(),
            box.parentWidget()};
  for (const auto button :
       {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
    if (box.button(button) != nullptr) look.Buttons.push_back(TextOf(box.button(button)));
  }
  return look;
}

class MessageBoxTest : public DialogTest {
 protected:
  // Shows the box and answers it by the action.
  Answer Ask(const std::string& text, const std::string& title, Buttons buttons, Icon icon,
             std::function<void(QWidget&)> answer) {
    dialogs.ExpectDialog("MessageBox", [this, answer = std::move(answer)](QWidget& window) {
      look = LookOf(window);
      answer(window);
    });
    return platform.ShowMessageBox(text, title, buttons, icon);
  }

  static void Escape(QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }
  static void Enter(QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); }
  static void Frame(QWidget& window) { window.close(); }
  static std::function<void(QWidget&)> Button(QMessageBox::StandardButton button) {
    return [button](QWidget& window) {
      QTest::mouseClick(dynamic_cast<QMessageBox&>(window).button(button), Qt::LeftButton);
    };
  }

  Look look;
};

TEST_F(MessageBoxTest, A_plain_box_has_the_applications_name_no_icon_and_one_button) {
  EXPECT_EQ(Ask("Invalid length", "", Buttons::Ok, Icon::None, Enter), Answer::Ok);
  EXPECT_EQ(look.Text, "Invalid length");
  EXPECT_EQ(look.Title, "Orvane Detailing System");
  EXPECT_EQ(look.Icon, QMessageBox::NoIcon);
  EXPECT_EQ(look.Buttons.size(), 1U);
}

TEST_F(MessageBoxTest, A_title_of_its_own_and_the_stop_icon_are_shown) {
  Ask("Text", "Checking Data", Buttons::Ok, Icon::Stop, Enter);
  EXPECT_EQ(look.Title, "Checking Data");
  EXPECT_EQ(look.Icon, QMessageBox::Critical);
}

TEST_F(MessageBoxTest, A_carriage_return_ends_a_line) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"one\rtwo", "one\ntwo"},
      {"one\r\ntwo", "one\ntwo"},
      {"one\ntwo", "one\ntwo"},
      {"one\r\rthree\r", "one\n\nthree\n"},
  };
  for (const auto& [text, shown] : cases) {
    Ask(text, "", Buttons::Ok, Icon::None, Enter);
    EXPECT_EQ(look.Text, shown);
  }
}

TEST_F(MessageBoxTest, A_text_that_looks_like_markup_is_shown_as_it_stands) {
  Ask("<b>P1</b> & <i>P2</i>", "", Buttons::Ok, Icon::None, Enter);
  EXPECT_EQ(look.Text, "<b>P1</b> & <i>P2</i>");
  EXPECT_EQ(look.Format, Qt::PlainText);
}

TEST_F(MessageBoxTest, A_box_is_as_wide_as_its_title_in_a_frame_needs) {
  for (const std::string title :
       {"", "Sag bars (screw fix)", "A title that is longer than any text"}) {
    Ask("?", title, Buttons::Ok, Icon::None, [](QWidget& box) {
      // Frames write the title in bold, with an icon and up to three buttons as high as a line or
      // so.
      QFont font = box.font();
      font.setBold(true);
      const int text = QFontMetrics(font).horizontalAdvance(box.windowTitle());
      EXPECT_GE(box.width(), text + 5 * box.fontMetrics().height()) << FromQt(box.windowTitle());
      Enter(box);
    });
  }
}

TEST_F(MessageBoxTest, A_long_text_is_broken_within_a_word_where_it_must_be) {
  const std::vector<std::string> texts = {
      "File not found: /srv/jobs/" + std::string(300, 'n') + "/shed.ovd", std::string(1000, 'W'),
      "Item 3: " + std::string(90, 'M') + " Zero length", []() {
        std::string words;
        for (int word = 0; word < 120; ++word) words += "purlin ";
        return words;
      }()};
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  for (const std::string& text : texts) {
    Ask(text, "", Buttons::Ok, Icon::None, [&](QWidget& window) {
      auto& box = dynamic_cast<QMessageBox&>(window);
      // Where a word may be broken stands a sign without a width.
      EXPECT_EQ(FromQt(box.text().remove(QChar(0x200B))), text);
      EXPECT_LE(box.width(), 500 + 4 * box.fontMetrics().height());
      EXPECT_TRUE(room.contains(box.frameGeometry()));
      // All of the text has its room: as many lines as its whole length fills.
      auto* label = box.findChild<QLabel*>("qt_msgbox_label");
      ASSERT_NE(label, nullptr);
      const int length = box.fontMetrics().horizontalAdvance(ToQt(text));
      const int lines = length / label->width();
      EXPECT_GE(label->height(), lines * box.fontMetrics().lineSpacing());
      EXPECT_GE(lines, 1);
      Enter(box);
    });
  }
}

TEST_F(MessageBoxTest, A_short_text_stays_in_one_line) {
  Ask("Invalid length", "", Buttons::Ok, Icon::None, [](QWidget& window) {
    auto* label = window.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(label, nullptr);
    EXPECT_LT(label->height(), 2 * window.fontMetrics().lineSpacing());
    Enter(window);
  });
}

TEST_F(MessageBoxTest, Each_answer_of_each_set_of_buttons_comes_back) {
  struct Case {
    Buttons Set;
    std::function<void(QWidget&)> Action;
    Answer Expected;
  };
  const std::vector<Case> cases = {
      {Buttons::Ok, Button(QMessageBox::Ok), Answer::Ok},
      {Buttons::Ok, Enter, Answer::Ok},
      {Buttons::Ok, Escape, Answer::Ok},
      {Buttons::Ok, Frame, Answer::Ok},
      {Buttons::YesNo, Button(QMessageBox::Yes), Answer::Yes},
      {Buttons::YesNo, Button(QMessageBox::No), Answer::No},
      {Buttons::YesNo, Enter, Answer::No},
      {Buttons::YesNo, Escape, Answer::No},
      {Buttons::YesNo, Frame, Answer::No},
      {Buttons::YesNoCancel, Button(QMessageBox::Yes), Answer::Yes},
      {Buttons::YesNoCancel, Button(QMessageBox::No), Answer::No},
      {Buttons::YesNoCancel, Button(QMessageBox::Cancel), Answer::Cancel},
      {Buttons::YesNoCancel, Enter, Answer::Yes},
      {Buttons::YesNoCancel, Escape, Answer::Cancel},
      {Buttons::YesNoCancel, Frame, Answer::Cancel},
  };
  for (std::size_t at = 0; at < cases.size(); ++at) {
    SCOPED_TRACE(at);
    EXPECT_EQ(Ask("?", "", cases.at(at).Set, Icon::None, cases.at(at).Action),
              cases.at(at).Expected);
  }
}

TEST_F(MessageBoxTest, Answers_of_its_own_stand_in_their_order_and_come_back_by_number) {
  const std::vector<std::string> answers = {"Go there", "Save all the same", "Cancel"};
  const auto ask = [&](const std::function<void(QWidget&)>& answer) {
    dialogs.ExpectDialog("MessageBox", [&](QWidget& window) {
      std::vector<std::pair<int, std::string>> shown;
      for (QAbstractButton* each : dynamic_cast<QMessageBox&>(window).buttons()) {
        shown.emplace_back(each->x(), FromQt(each->text()));
      }
      std::sort(shown.begin(), shown.end());
      ASSERT_EQ(shown.size(), answers.size());
      EXPECT_EQ(shown.back().second, "Cancel");
      answer(window);
    });
    return platform.Choose("?", "Title", answers);
  };
  for (int at = 0; at < 3; ++at) {
    const std::string caption = answers.at(static_cast<std::size_t>(at));
    EXPECT_EQ(ask([&](QWidget& window) {
                for (QAbstractButton* each : dynamic_cast<QMessageBox&>(window).buttons()) {
                  if (FromQt(each->text()) == caption)
                    return QTest::mouseClick(each, Qt::LeftButton);
                }
              }),
              at);
  }
  EXPECT_EQ(ask(Enter), 0);
  EXPECT_EQ(ask(Escape), 2);
  EXPECT_EQ(ask(Frame), 2);
}

TEST_F(MessageBoxTest, Each_set_of_buttons_shows_its_own) {
  const std::vector<std::pair<Buttons, std::size_t>> sets = {
      {Buttons::Ok, 1}, {Buttons::YesNo, 2}, {Buttons::YesNoCancel, 3}};
  for (const auto& [set, count] : sets) {
    Ask("?", "", set, Icon::None, Escape);
    EXPECT_EQ(look.Buttons.size(), count);
  }
}

TEST_F(MessageBoxTest, The_box_belongs_to_the_window_in_front_and_gives_the_focus_back) {
  QWidget window;
  QVBoxLayout layout(&window);
  QLineEdit first;
  QLineEdit second;
  layout.addWidget(&first);
  layout.addWidget(&second);
  ShowActive(window);
  second.setFocus();
  Ask("?", "", Buttons::YesNo, Icon::None, Escape);
  EXPECT_EQ(look.Parent, &window);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window, test::Patience));
  EXPECT_EQ(QApplication::focusWidget(), &second);
}

TEST_F(MessageBoxTest, A_box_over_a_dialog_belongs_to_the_dialog) {
  QWidget window;
  ShowActive(window);
  QDialog dialog(&window);
  dialog.setObjectName("Outer");
  dialogs.ExpectDialog("Outer", [this](QWidget& outer) {
    Ask("?", "", Buttons::Ok, Icon::None, Enter);
    EXPECT_EQ(look.Parent, &outer);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&outer, test::Patience));
    outer.close();
  });
  dialog.exec();
}

TEST_F(MessageBoxTest, An_open_list_is_closed_before_the_box_comes) {
  QWidget window;
  ShowActive(window);
  QMenu menu(&window);
  menu.addAction("Entry");
  menu.popup(window.mapToGlobal(QPoint(0, 0)));
  ASSERT_EQ(QApplication::activePopupWidget(), &menu);
  Ask("?", "", Buttons::Ok, Icon::None, [](QWidget& box) {
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    Enter(box);
  });
  EXPECT_FALSE(menu.isVisible());
}

TEST_F(MessageBoxTest, No_pop_up_owns_a_box_so_that_one_may_go_while_the_box_stands) {
  QWidget window;
  ShowActive(window);
  auto* list = new QMenu(&window);
  list->addAction("Entry");
  list->popup(window.mapToGlobal(QPoint(0, 0)));
  QApplication::setActiveWindow(list);  // as it happens while one goes
  const QPointer<QMenu> kept = list;
  const Answer answer = Ask("?", "", Buttons::YesNo, Icon::None, [&](QWidget& box) {
    EXPECT_EQ(box.parentWidget(), &window);
    list->setParent(nullptr);
    delete list;
    Button(QMessageBox::Yes)(box);
  });
  EXPECT_EQ(answer, Answer::Yes);
  EXPECT_FALSE(kept);
}

TEST_F(MessageBoxTest, The_box_over_a_submenu_belongs_to_the_window_of_the_menu) {
  QWidget window;
  ShowActive(window);
  QMenu menu(&window);
  QMenu* sub = menu.addMenu("More");
  sub->addAction("Entry");
  menu.popup(window.mapToGlobal(QPoint(0, 0)));
  sub->popup(window.mapToGlobal(QPoint(40, 0)));
  QApplication::setActiveWindow(sub);  // as it happens while one goes
  Ask("?", "", Buttons::Ok, Icon::None, [](QWidget& box) {
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    Enter(box);
  });
  EXPECT_EQ(look.Parent, &window);
  EXPECT_FALSE(menu.isVisible());
}

TEST_F(MessageBoxTest, A_pop_up_that_belongs_to_nobody_owns_no_box_either) {
  QMenu alone;
  alone.addAction("Entry");
  alone.popup(QPoint(0, 0));
  QApplication::setActiveWindow(&alone);  // as it happens while one goes
  Ask("?", "", Buttons::Ok, Icon::None, Enter);
  EXPECT_EQ(look.Parent, nullptr);
}

TEST_F(MessageBoxTest, The_guard_shows_the_description_of_an_error_and_nothing_without_one) {
  bool ran = false;
  Guard([&] { ran = true; });
  EXPECT_TRUE(ran);
  dialogs.ExpectBox("Subscript out of range");
  Guard([] { throw RuntimeError(Failure::SubscriptOutOfRange); });
  EXPECT_TRUE(dialogs.Done());
  dialogs.ExpectBox("no memory for that");
  Guard([] { throw std::runtime_error("no memory for that"); });
  EXPECT_TRUE(dialogs.Done());
}

TEST_F(MessageBoxTest, The_guard_of_a_change_of_focus_shows_it_when_the_change_is_over) {
  GuardFocusChange([] { throw RuntimeError(Failure::Overflow); });
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  dialogs.ExpectBox("Overflow");
  Settle();
}

TEST_F(MessageBoxTest, Pending_events_run_in_between) {
  bool ran = false;
  QMetaObject::invokeMethod(
      qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
  EXPECT_FALSE(ran);
  platform.ProcessEvents();
  EXPECT_TRUE(ran);
}

TEST_F(MessageBoxTest, What_is_to_be_deleted_later_outlives_the_events_in_between) {
  // A field's pop-up goes while the entry that it has chosen is still drawing.
  const QPointer<QObject> popup = new QObject;
  QEventLoop deeper;
  QMetaObject::invokeMethod(
      qApp,
      [&] {
        popup->deleteLater();
        deeper.quit();
      },
      Qt::QueuedConnection);
  deeper.exec();
  ASSERT_TRUE(popup);
  platform.ProcessEvents();
  EXPECT_TRUE(popup);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(popup);
}

// The rest of the desktop, as the program has it.

class PlatformTest : public DialogTest {
 protected:
  QtDesktop desktop{std::make_unique<MemorySettings>()};
};

TEST_F(PlatformTest, The_present_moment_is_the_local_time) {
  const auto ofClock = [] {
    const QDateTime now = QDateTime::currentDateTime();
    return FromQt(now.toString("yyyy-MM-ddTHH:mm:ss"));
  };
  const std::string before = ofClock();
  const Moment now = desktop.Now();
  const std::string after = ofClock();
  const auto given = ParseMoment(before);
  const auto later = ParseMoment(after);
  ASSERT_TRUE(given && later);
  const auto order = [](const Moment& moment) {
    return std::tuple(moment.Day.Year, moment.Day.Month, moment.Day.Day, moment.Hour, moment.Minute,
                      moment.Second);
  };
  EXPECT_LE(order(*given), order(now));
  EXPECT_LE(order(now), order(*later));
}

TEST_F(PlatformTest, The_users_data_folder_is_made_when_it_is_asked_for) {
  const std::string base = TempPath("share");
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", QByteArray::fromStdString(base));
  EXPECT_FALSE(std::filesystem::exists(base));
  EXPECT_EQ(desktop.UserDataFolder(), base + "/Lintaro");
  EXPECT_TRUE(std::filesystem::is_directory(base + "/Lintaro"));
  EXPECT_EQ(desktop.UserDataFolder(), base + "/Lintaro");
  if (before.isNull()) {
    qunsetenv("XDG_DATA_HOME");
  } else {
    qputenv("XDG_DATA_HOME", before);
  }
}

TEST_F(PlatformTest, The_users_settings_lie_in_the_settings_file) {
  const std::string base = TempPath("config");
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(base));
  EXPECT_TRUE(UserSettings()->Store(SettingsRoot::LocalMachine, SettingsKey + "\\Settings\\MaxDims",
                                    "Z", "12000"));
  EXPECT_EQ(test::BytesOf(base + "/Lintaro/settings.txt"),
            "[SOFTWARE\\Lintaro\\Settings\\MaxDims]\nZ=12000\n");
  if (before.isNull()) {
    qunsetenv("XDG_CONFIG_HOME");
  } else {
    qputenv("XDG_CONFIG_HOME", before);
  }
}

}  // namespace

}  // namespace orvane
