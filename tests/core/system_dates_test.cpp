#include "core/system_dates.h"

#include <gtest/gtest.h>

#include <cstdlib>
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

// The forms are those that the countries' entries of the system itself have, with four digits of
// year.
TEST(SystemDates, A_country_has_its_form_whether_it_is_installed_or_not) {
  struct Case {
    std::string Name;
    std::string Form;
  };
  for (const Case& each : std::vector<Case>{
           {"de_DE.UTF-8", "dd.MM.yyyy"},
           {"de_DE", "dd.MM.yyyy"},
           {"de_DE@euro", "dd.MM.yyyy"},
           {"fr_CH.UTF-8", "dd.MM.yyyy"},
           {"en_GB.UTF-8", "dd/MM/yyyy"},
           {"en_US.UTF-8", "MM/dd/yyyy"},
           {"sv_SE.UTF-8", "yyyy-MM-dd"},
           {"da_DK.UTF-8", "dd-MM-yyyy"},
           {"en_DK.UTF-8", "yyyy-MM-dd"},
           {"nl_NL.UTF-8", "dd-MM-yyyy"},
           {"nl_BE.UTF-8", "dd-MM-yyyy"},
           {"fr_BE.UTF-8", "dd/MM/yyyy"},
           {"cs_CZ.UTF-8", "d.M.yyyy"},
           {"hr_HR.UTF-8", "dd.MM.yyyy."},
           {"hu_HU.UTF-8", "yyyy-MM-dd"},
           {"lv_LV.UTF-8", "yyyy.MM.dd."},
           {"ja_JP.UTF-8", "yyyy年MM月dd日"},
           {"pl_PL.ISO8859-2", "dd.MM.yyyy"},
           {"C", "dd/MM/yyyy"},
           {"de", "dd/MM/yyyy"},
           {"xx_XX.UTF-8", "dd/MM/yyyy"},
           {"", "dd/MM/yyyy"},
           {"no_SUCH.UTF-8", "dd/MM/yyyy"},
       }) {
    EXPECT_EQ(DateFormOfCountry(each.Name), each.Form) << each.Name;
    EXPECT_TRUE(CanBeProjectDateForm(DateFormOfCountry(each.Name))) << each.Name;
  }
}

TEST(SystemDates, The_country_that_is_set_gives_its_form_although_it_isnt_installed) {
  const char* before = std::getenv("LC_ALL");
  const std::string kept = before == nullptr ? "" : before;
  setenv("LC_ALL", "sv_SE.no-such-page", 1);
  EXPECT_EQ(SystemShortDateForm(), "yyyy-MM-dd");
  setenv("LC_ALL", "de_DE.no-such-page", 1);
  EXPECT_EQ(SystemShortDateForm(), "dd.MM.yyyy");
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(SystemShortDateForm(), "dd/MM/yyyy");
  before == nullptr ? unsetenv("LC_ALL") : setenv("LC_ALL", kept.c_str(), 1);
}

}  // namespace

}  // namespace orvane::test
