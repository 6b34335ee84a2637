#include "core/system_dates.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::test {

namespace {

TEST(SystemDates, The_systems_date_forms_become_patterns) {
  struct Case {
    std::string Form;
    std::string Pattern;
  };
  const std::vector<Case> cases = {
      {"%d/%m/%y", "dd/MM/yy"},       {"%m/%d/%Y", "MM/dd/yyyy"},    {"%d.%m.%Y", "dd.MM.yyyy"},
      {"%Y-%m-%d", "yyyy-MM-dd"},     {"%e.%m.%Y", "d.MM.yyyy"},     {"%-d.%-m.%Y", "d.M.yyyy"},
      {"%d.%m.%Yg", "dd.MM.yyyy'g'"}, {"%a %d %b %Y", "dd/MM/yyyy"}, {"%d/%m/%", "dd/MM/yyyy"},
      {"%d/%m/%Oy", "dd/MM/yyyy"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(PatternOfDateForm(each.Form), each.Pattern) << each.Form;
  }
}

}  // namespace

}  // namespace orvane::test
