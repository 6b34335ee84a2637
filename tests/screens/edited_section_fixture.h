// What the tests of sections edited by hand share: a person at the main window and in the four
// editing dialogs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/screens/hole_dialog_fixture.h"

namespace orvane::test {

// What is given to the hole dialog; what has no value stays as the dialog shows it.
struct HandHole {
  std::string X;                         // as typed
  std::optional<int> Picture = {};       // code of the button
  std::optional<int> Ribbon = {};        // of a hole off gauge: 0 web, 1 top, 2 bottom flange
  std::optional<std::string> Y = {};     // its distance, as typed
  std::optional<int> Diameter = {};      // 18 or 14
  std::optional<std::string> Slot = {};  // as typed
  std::optional<bool> CounterSunk = {};  // the tick
};

class EditedSectionTest : public HoleDialogTest {
 protected:
  // By the toolbar and the keys: the family's button, then a cell at a time.
  void AddByHand(const std::string& letter, const std::string& mark, const std::string& product,
                 const std::string& length, const std::string& quantity);

  // The dialog of the holes by the buttons of the hole list; `refused` are positions that are typed
  // before the last hole's own and told off.
  void PlaceAbsolute(const std::vector<HandHole>& holes,
                     const std::vector<std::string>& refused = {});
  void PlaceRelative(const std::vector<HandHole>& holes,
                     const std::vector<std::string>& refused = {});
  // By the pop-up of the hole list, on that row of it.
  void EditHole(int customRow, const HandHole& hole);

  // The cells of the notches as typed, code, depth, width, position; an empty text types nothing.
  void TypeNotches(const std::vector<std::vector<std::string>>& rows);
  // Both angles as typed; an empty text leaves the box alone.
  void TypeMitres(const std::string& left, const std::string& right);

  // The entry of a menu by its keys.
  void ChooseInMenu(Qt::Key menu, Qt::Key entry);
  void ConvertToCustom() { ChooseInMenu(Qt::Key_S, Qt::Key_P); }
  void CreateOppositeHand() { ChooseInMenu(Qt::Key_S, Qt::Key_O); }

 private:
  void Fill(FrmAddHoles& dialog, const HandHole& hole);
  void Place(FrmAddHoles& dialog, const std::vector<HandHole>& holes,
             const std::vector<std::string>& refused);
  // Foresees a dialog, opens it by its key in the section menu, runs the action in it and presses
  // OK.
  void InForm(const std::string& name, Qt::Key entry, const std::function<void(QWidget&)>& action);
};

}  // namespace orvane::test
