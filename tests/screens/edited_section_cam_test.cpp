// The CAM files of sections that went through all four editing dialogs, against files worked out by
// hand: the working stands beside them, in tests/goldens/cam.
#include "tests/screens/edited_section_fixture.h"
#include "tests/support/golden.h"

namespace orvane::test {
namespace {

class EditedSectionCam : public EditedSectionTest {
 protected:
  void SetUp() override {
    EditedSectionTest::SetUp();
    txtProject = {"OJ-7731", "J 2041", "Marsh & Field Ltd", "Barn at Low Farm", "K. Loom"};
    DTPicker1 = {2026, 9, 7};
  }

  // Exports by the menu and compares the file with its golden, byte by byte.
  void ExpectExport(const std::string& name) {
    const std::string path = TempPath("job.xov");
    platform.Chosen.push_back(path);
    // Both hands have holes where their mitres are cut.
    dialogs.ExpectBox("CAM export complete\n" + path + "\n2 sections can't be made: see Check");
    ChooseInMenu(Qt::Key_O, Qt::Key_E);
    ExpectGoldenBytes("cam/" + name, BytesOf(path));
  }
};

TEST_F(EditedSectionCam, A_purlin_edited_by_all_dialogs_and_its_opposite_hand_go_to_the_factory) {
  AddByHand("Z", "P1", "Z24520", "6501", "14");
  Choose("cboPattern", "Double Span 1 Sag Bar");
  ConvertToCustom();

  PlaceAbsolute(
      {{.X = "2344.5", .Picture = 10, .CounterSunk = true},
       {.X = "3290", .Picture = 13, .Ribbon = 0, .Y = "61", .Diameter = 14, .CounterSunk = false}});
  PlaceRelative({{.X = "8", .Picture = 13, .Ribbon = 1, .Y = "30", .Diameter = 18, .Slot = "30"}},
                {"9"});
  EditHole(3, {.X = "1700", .Picture = 8, .Slot = "22.5"});
  TypeNotches({{"TL1", "20", "45.5", ""},
               {"B2", "12.5", "60", "2000"},
               {"R3", "30", "25", "70.5"},
               {"BL1", "7.25", "33", "5"}});
  TypeMitres("12.34", "");
  CreateOppositeHand();

  ExpectExport("edited-purlin.xov");
}

TEST_F(EditedSectionCam, An_eaves_beam_edited_by_all_dialogs_and_its_opposite_hand_do_so_too) {
  AddByHand("E", "EB1", "E23020", "4800", "3");
  Choose("cboPattern", "Custom");
  Choose("cboPitch", "10");

  PlaceRelative({{.X = "40"},
                 {.X = "500.5", .Picture = 6, .Diameter = 14, .Slot = "25"},
                 {.X = "5", .Picture = 13, .Ribbon = 1, .Y = "037", .Diameter = 18, .Slot = ""}});
  PlaceAbsolute({{.X = "4776", .Picture = 12, .CounterSunk = true}}, {"4777"});
  PlaceAbsolute({{.X = "2400", .Picture = 9, .Diameter = 14}});
  EditHole(4, {.X = "545", .Picture = 4, .CounterSunk = true});
  TypeNotches({{"T2", "25", "80", "1200.5"},
               {"TR1", "15.5", "40", "8"},
               {"", "9", "9", "9"},
               {"L3", "18", "22", "60"},
               {"BR1", "10", "30", ""}});
  TypeMitres("-75", "0.25");
  CreateOppositeHand();

  ExpectExport("edited-eaves-beam.xov");
}

}  // namespace
}  // namespace orvane::test
