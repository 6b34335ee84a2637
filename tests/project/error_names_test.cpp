#include "project/error_names.h"

#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace orvane::test {
namespace {

class ErrorNames : public SystemTest {
 protected:
  ErrorNames() {
    Item item;
    item.Mark = " P4 ";
    Items.Append(item);
    item.Mark = " ";
    Items.Append(item);
    AccDef accessory;
    accessory.Name = "Purlin sleeves";
    AccDefs.Append(accessory);
  }
  [[noreturn]] static void Fail() { throw RuntimeError(Failure::DivisionByZero); }
};

TEST_F(ErrorNames, A_section_is_named_by_its_mark_and_without_one_by_its_row) {
  EXPECT_EQ(NameOfSection(1), "P4");
  EXPECT_EQ(NameOfSection(2), "Item 2");
  EXPECT_EQ(NameOfSection(3), "Item 3");
}

TEST_F(ErrorNames, An_accessory_is_named_by_the_catalogue_and_by_the_mark_of_its_line) {
  EXPECT_EQ(NameOfAccessory(1), "Purlin sleeves");
  EXPECT_EQ(NameOfAccessory(1, " S1 "), "Purlin sleeves S1");
  EXPECT_EQ(NameOfAccessory(2), "Accessory 2");
  EXPECT_EQ(NameOfAccessory(-1, "S1"), "Accessory -1 S1");
}

TEST_F(ErrorNames, An_error_keeps_its_number_behind_the_name) {
  try {
    InNameOfSection(1, Fail);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), static_cast<int>(Failure::DivisionByZero));
    EXPECT_EQ(error.Description(), "P4: Division by zero");
  }
  EXPECT_EQ(ErrorOf([] { InNameOfAccessory(1, "S1", Fail); }),
            "Purlin sleeves S1: Division by zero");
  int runs = 0;
  InNameOfSection(1, [&runs] { ++runs; });
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace orvane::test
