#include "tests/screens/sections_fixture.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QBrush>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QToolTip>
#include <QWindow>
#include <map>

#include "core/numbers.h"
#include "project/rules/section_columns.h"
#include "tests/support/patience.h"

namespace orvane::test {

namespace {

constexpr int Stayed = 77;     // exit code of a program that nobody ended
constexpr int LastTurns = 10;  // of the loop, in which a queued end of the program would come

const std::map<std::string, std::string> AddButtons = {
    {"Z", "SSCommand1(6)"}, {"E", "SSCommand1(7)"},  {"C", "SSCommand1(8)"},
    {"V", "SSCommand1(9)"}, {"R", "SSCommand1(10)"}, {"T", "SSCommand1(11)"},
};

// Collects what differs.
class Differences {
 public:
  void Compare(const std::string& what, const std::string& actual, const std::string& expected) {
    if (actual != expected)
      text_ += "\n  " + what + " is \"" + actual + "\", not \"" + expected + "\"";
  }
  void Compare(const std::string& what, long long actual, long long expected) {
    Compare(what, DecimalText(actual), DecimalText(expected));
  }
  void Compare(const std::string& what, const QRect& actual, const QRect& expected) {
    Compare(what, PlaceText(actual), PlaceText(expected));
  }
  void Add(const std::string& text) { text_ += text; }
  ::testing::AssertionResult Result() const {
    if (text_.empty()) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << text_;
  }

 private:
  static std::string PlaceText(const QRect& place) {
    return DecimalText(place.x()) + "," + DecimalText(place.y()) + " " +
           DecimalText(place.width()) + "x" + DecimalText(place.height());
  }

  std::string text_;
};

}  // namespace

void SectionsTest::Add(const std::string& letter) {
  Click(AddButtons.at(letter));
  Settle();
}

Item& SectionsTest::Put(const std::string& letter, const std::string& mark,
                        const std::string& product, std::int16_t length, std::int16_t quantity) {
  Item item;
  item.SectionType = letter;
  item.Mark = mark;
  item.Product = product;
  item.Length = length;
  item.Quantity = quantity;
  return Items.Append(std::move(item));
}

void SectionsTest::Show(int row, int column) {
  main->DisplayItems();
  main->SelectFirstItem();
  Settle();
  if (row != 1 || column != 1) {
    // The first row may hold what would be refused.
    main->ForgetEditors();
    ClickCell(Sections(), row, column);
  }
  Settle();
  ProjectDirty = False;
}

void SectionsTest::PutHole(Item& item, std::int16_t x, const std::string& kind) {
  Hole hole;
  hole.XPos = x;
  hole.Kind = kind;
  hole.BF = "n";
  hole.W1 = "y";
  hole.W2 = "y";
  hole.TF = "n";
  hole.Diameter = 18;
  item.Holes.Append(hole);
  if (kind == CustomKind) ++item.CustomHoleCount;
}

std::vector<int> SectionsTest::HolesOf(int row) {
  std::vector<int> positions;
  for (const Hole& hole : Items.At(row).Holes) positions.push_back(hole.XPos);
  EXPECT_EQ(positions.size(), static_cast<std::size_t>(Items.At(row).HoleCount()));
  return positions;
}

std::vector<std::string> SectionsTest::Marks() {
  std::vector<std::string> marks;
  for (const Item& item : Items) marks.push_back(item.Mark);
  return marks;
}

std::string SectionsTest::CellUnder(const std::string& heading, int row) {
  for (int column = 0; column < Sections().Cols(); ++column) {
    if (Cell(0, column) == heading) return Cell(row, column);
  }
  throw std::runtime_error("no column is headed \"" + heading + "\"");
}

::testing::AssertionResult SectionsTest::RowShows(int row, const SectionRow& expected) {
  Differences wrong;
  const std::vector<std::pair<std::string, std::string>> cells = {
      {"", expected.Letter},         {"Mark", expected.Mark},
      {"Product", expected.Product}, {"Length (mm)", expected.Length},
      {"Qty", expected.Quantity},    {"Notes", expected.Notes}};
  for (const auto& [heading, text] : cells) {
    const std::string column = heading.empty() ? "the letter" : heading;
    wrong.Compare(column + " of row " + DecimalText(row), CellUnder(heading, row), text);
  }
  return wrong.Result();
}

::testing::AssertionResult SectionsTest::GridShowsItems() {
  Differences wrong;
  wrong.Compare("the number of rows", Sections().Rows(), Items.UBound() + 1);
  for (int row = 1; row <= Items.UBound(); ++row) {
    const Item& item = Items.At(row);
    const ::testing::AssertionResult shows =
        RowShows(row, {item.SectionType, item.Mark, item.Product, DecimalText(item.Length),
                       DecimalText(item.Quantity), item.Notes});
    if (!shows) wrong.Add(shows.message());
  }
  return wrong.Result();
}

::testing::AssertionResult SectionsTest::CursorAt(int row, int column, const std::string& text) {
  const bool product = column == ProductColumn;
  const std::string panel = product ? "sspEditCombo" : "sspEditText";
  Differences wrong;
  wrong.Compare("the current row", Sections().Row(), row);
  wrong.Compare("the current column", Sections().Col(), column);
  wrong.Compare("the focus", Focus(), product ? "cboEdit" : "txtEdit");
  wrong.Compare("showing of " + panel, Shown(panel), true);
  if (!product) wrong.Compare("showing of sspEditCombo", Shown("sspEditCombo"), false);
  wrong.Compare("the editor's text", FromQt(product ? ProductBox().currentText() : Editor().text()),
                text);
  wrong.Compare("the cell's text", Cell(row, column),
                product && text.empty() ? Cell(row, column) : text);
  wrong.Compare("the place of " + panel, OnScreen(panel), CellOnScreen(row, column));
  wrong.Compare("the grey row", Sections().Model().GreyRow(), row);
  wrong.Compare("CurrentItem", CurrentItem, row);
  return wrong.Result();
}

::testing::AssertionResult SectionsTest::NoEditor() {
  Differences wrong;
  wrong.Compare("showing of sspEditText", Shown("sspEditText"), false);
  wrong.Compare("showing of sspEditCombo", Shown("sspEditCombo"), false);
  if (Focus() == "txtEdit" || Focus() == "cboEdit")
    wrong.Compare("the focus", Focus(), "elsewhere");
  // Nor may the focus have wandered to where it counts as a change of the project.
  if (Focus() == "lstAccessories") wrong.Compare("the focus", Focus(), "elsewhere");
  return wrong.Result();
}

QRect SectionsTest::CellOnScreen(int row, int column) {
  QWidget* viewport = Sections().viewport();
  const QRect cell = Sections().CellRect(row, column) & viewport->rect();
  return {viewport->mapToGlobal(cell.topLeft()), cell.size()};
}

QRect SectionsTest::OnScreen(const std::string& name) {
  auto& widget = Find(name);
  return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

::testing::AssertionResult SectionsTest::IsWhole(FlexGrid& grid, int row, int column) {
  // Painted without an editor over it, in a place where all of it is in sight.
  const auto painted = [&](Qt::TextElideMode mode) {
    const QRect place(QPoint(0, 0), QSize(grid.columnWidth(column), grid.rowHeight(row - 1)));
    QStyleOptionViewItem option;
    option.initFrom(&grid);
    option.rect = place.adjusted(0, 0, -1, -1);
    option.font = grid.font();
    option.textElideMode = mode;
    option.state = QStyle::State_Enabled;
    option.widget = &grid;
    QPixmap picture(place.size());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    grid.itemDelegate()->paint(&painter, option, grid.model()->index(row - 1, column));
    return picture.toImage();
  };
  if (painted(Qt::ElideRight) == painted(Qt::ElideNone)) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << grid.TextMatrix(row, column) << " is cut off in "
                                       << grid.columnWidth(column) << " pixels";
}

std::string SectionsTest::Tip(FlexGrid& grid, int row, int column) {
  const QPoint place = grid.CellRect(row, column).center();
  // The toolkit lets a former tip fade behind the mouse.
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->inherits("QTipLabel")) window->hide();
  }
  QHelpEvent rest(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
  QCoreApplication::sendEvent(grid.viewport(), &rest);
  return QToolTip::isVisible() ? FromQt(QToolTip::text()) : "";
}

std::uint32_t SectionsTest::Colour(int row, int column) {
  // The grid's own view has no heading row.
  const QAbstractItemModel& model = *Sections().model();
  const QVariant brush = model.data(model.index(row - 1, column), Qt::BackgroundRole);
  EXPECT_TRUE(brush.isValid()) << "no background at " << row << "," << column;
  return qvariant_cast<QBrush>(brush).color().rgb() & 0xFFFFFF;
}

void SectionsTest::Retype(const std::string& text) {
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  Type(text);
}

void SectionsTest::Paste(const std::string& text) {
  QApplication::clipboard()->setText(ToQt(text));
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier);
}

void SectionsTest::RightClickCell(int row, int column) {
  QWidget* viewport = Sections().viewport();
  const QPoint at = Sections().CellRect(row, column).center();
  QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, at);
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
  QCoreApplication::sendEvent(viewport, &event);
  QTest::mouseRelease(viewport, Qt::RightButton, Qt::NoModifier, at);
}

std::vector<std::vector<std::string>> SectionsTest::MenusOpenedBy(
    const std::function<void()>& action) {
  std::vector<std::vector<std::string>> menus;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&menus] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    // Not before it is on the screen: a menu that is closed sooner takes the activation with it.
    if (menu == nullptr || !menu->windowHandle()->isExposed()) return;
    std::vector<std::string> captions;
    for (const QAction* entry : menu->actions()) {
      if (entry->isVisible()) captions.push_back(FromQt(entry->text()));
    }
    menus.push_back(captions);
    QTest::keyClick(menu, Qt::Key_Escape);
  });
  look.start(2);
  action();
  // One that is queued comes now or never; it goes when it has been looked at.
  RunQueued();
  EXPECT_TRUE(
      QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }, Patience));
  return menus;
}

QAbstractItemView& SectionsTest::OpenedProducts() {
  QAbstractItemView* list = ProductBox().view();
  if (!QTest::qWaitForWindowExposed(list->window(), Patience)) {
    throw std::runtime_error("the list of products didn't open");
  }
  return *list;
}

void SectionsTest::BackToMain() {
  main->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
  Settle();
}

bool SectionsTest::EndsProgram(const std::function<void()>& action) {
  // Nobody ended the program if its loop goes on turning.
  QTimer patience;
  int turns = 0;
  QObject::connect(&patience, &QTimer::timeout, [&turns] {
    if (++turns == LastTurns) QCoreApplication::exit(Stayed);
  });
  QTimer::singleShot(0, &patience, [&] {
    action();
    Settle();
    patience.start(0);
  });
  const bool ended = QApplication::exec() != Stayed;
  // A second end that the window queued behind its closing must not reach the next loop.
  turns = 0;
  patience.start(0);
  QApplication::exec();
  return ended;
}

void SectionsTest::ExpectDetails(const std::function<void()>& look) {
  dialogs.ExpectDialog("frmProjectDetails", [look](QWidget& dialog) {
    look();
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
      if (button->text() != "&Close") continue;
      QTest::mouseClick(button, Qt::LeftButton);
      return;
    }
    ADD_FAILURE() << "no button to close the project details";
    dialog.close();
  });
}

}  // namespace orvane::test
