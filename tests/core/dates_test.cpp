#include "core/dates.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace {

using namespace orvane;

constexpr Date FifthOfMarch{2024, 3, 5};
constexpr Date EndOfNovember{2025, 11, 30};

// Forms as the systems of several countries have them, with the project's date line for the fifth
// of March 2024 and the thirtieth of November 2025.
struct FormCase {
  const char* Country;
  const char* ShortForm;
  const char* March;
  const char* November;
};
const std::vector<FormCase> Forms = {
    {"Britain", "dd/MM/yyyy", "05/03/2024", "30/11/2025"},
    {"Germany", "dd.MM.yy", "05.03.2024", "30.11.2025"},
    {"United States", "M/d/yy", "3/5/2024", "11/30/2025"},
    {"Sweden", "yyyy-MM-dd", "2024-03-05", "2025-11-30"},
    {"Hungary", "yyyy. MM. dd.", "2024. 03. 05.", "2025. 11. 30."},
    {"Bulgaria", "d.MM.yy '\xD0\xB3'.", "5.03.2024 \xD0\xB3.", "30.11.2025 \xD0\xB3."},
    {"Finland", "d.M.yyyy", "5.3.2024", "30.11.2025"},
    {"Canada", "y-MM-dd", "2024-03-05", "2025-11-30"},
    {"Netherlands", "dd-MM-yyyy", "05-03-2024", "30-11-2025"},
    {"Croatia", "dd. MM. yyyy.", "05. 03. 2024.", "30. 11. 2025."},
    {"Japan", "yyyy/MM/dd", "2024/03/05", "2025/11/30"},
    {"basic", "yyyyMMdd", "20240305", "20251130"},
    {"quoted letters", "dd'd'MM'y'yy", "05d03y2024", "30d11y2025"},
    {"an apostrophe", "dd''MM''yy", "05'03'2024", "30'11'2025"},
    // Forms that can't serve: names, commas, a missing part, numbers run together, blanks at an
    // end, quotes, digits of their own, nothing.
    {"no country", "d MMM yyyy", "05/03/2024", "30/11/2025"},
    {"long", "dddd, d MMMM yyyy", "05/03/2024", "30/11/2025"},
    {"comma", "d,M,yyyy", "05/03/2024", "30/11/2025"},
    {"quoted comma", "dd'.,'MM.yyyy", "05/03/2024", "30/11/2025"},
    {"day missing", "MM/yyyy", "05/03/2024", "30/11/2025"},
    {"day twice", "dd/MM/yyyy dd", "05/03/2024", "30/11/2025"},
    {"run together", "dMyyyy", "05/03/2024", "30/11/2025"},
    {"run together from the year", "yyyyMd", "05/03/2024", "30/11/2025"},
    {"blank in front", " dd/MM/yyyy", "05/03/2024", "30/11/2025"},
    {"quoted blank in front", "' 'dd/MM/yyyy", "05/03/2024", "30/11/2025"},
    {"blank behind", "dd/MM/yyyy ", "05/03/2024", "30/11/2025"},
    {"quote", "dd\"MM\"yyyy", "05/03/2024", "30/11/2025"},
    {"digits", "'20'yy-MM-dd", "05/03/2024", "30/11/2025"},
    {"empty", "", "05/03/2024", "30/11/2025"},
};

TEST(Dates, The_project_date_has_the_systems_form_with_four_digits_of_year) {
  for (const FormCase& c : Forms) {
    EXPECT_EQ(ProjectDateText(FifthOfMarch, c.ShortForm), c.March) << c.Country;
    EXPECT_EQ(ProjectDateText(EndOfNovember, c.ShortForm), c.November) << c.Country;
  }
}

TEST(Dates, Every_date_is_read_back_in_every_form) {
  const std::vector<Date> dates = {FifthOfMarch,   EndOfNovember,  {2024, 2, 29}, {2000, 2, 29},
                                   {1999, 12, 31}, {1899, 12, 30}, {2001, 1, 1},  {2012, 11, 10},
                                   {1925, 3, 4},   {9999, 12, 31}, {9, 8, 7}};
  for (const FormCase& c : Forms) {
    for (const Date& date : dates) {
      const std::string text = ProjectDateText(date, c.ShortForm);
      EXPECT_EQ(ParseProjectDate(text, c.ShortForm), date) << c.Country << ' ' << text;
    }
  }
}

TEST(Dates, The_date_line_holds_nothing_that_its_reader_would_stumble_over) {
  for (const FormCase& c : Forms) {
    const std::string text = ProjectDateText(FifthOfMarch, c.ShortForm);
    EXPECT_EQ(text.find_first_of(",\"\r\n"), std::string::npos) << c.Country;
    EXPECT_NE(text.front(), ' ') << c.Country;
  }
}

struct ReadCase {
  const char* Text;
  const char* ShortForm;
  Date Expected;
};

TEST(Dates, Two_digits_of_year_are_of_this_century) {
  for (const ReadCase& c : std::vector<ReadCase>{{"04.03.25", "dd.MM.yy", {2025, 3, 4}},
                                                 {"3/4/25", "M/d/yy", {2025, 3, 4}},
                                                 {"04.03.00", "dd.MM.yy", {2000, 3, 4}},
                                                 {"04.03.99", "dd.MM.yy", {2099, 3, 4}},
                                                 {"25-03-04", "y-MM-dd", {2025, 3, 4}}}) {
    EXPECT_EQ(ParseProjectDate(c.Text, c.ShortForm), c.Expected) << c.Text;
  }
}

TEST(Dates, A_date_line_is_read_in_the_systems_form_first_then_in_the_fixed_ones) {
  for (const ReadCase& c : std::vector<ReadCase>{
           {"03/04/2025", "dd/MM/yyyy", {2025, 4, 3}},
           {"03/04/2025", "M/d/yy", {2025, 3, 4}},
           {"2025-03-04", "dd.MM.yy", {2025, 3, 4}},
           {"2025-03-04", "M/d/yy", {2025, 3, 4}},
           {"04/03/2025", "dd.MM.yy", {2025, 3, 4}},
           // No month 25, so the American form gives way to the last one.
           {"25/03/2025", "M/d/yy", {2025, 3, 25}},
           {"4 Mar 2025", "d MMM yyyy", {2025, 3, 4}},
           {"04/03/2025", "d MMM yyyy", {2025, 3, 4}},
           {"5.3.2024", "dd.MM.yyyy", {2024, 3, 5}},
           {"  05.03.2024  ", "dd.MM.yy", {2024, 3, 5}},
       }) {
    EXPECT_EQ(ParseProjectDate(c.Text, c.ShortForm), c.Expected) << c.Text << ' ' << c.ShortForm;
  }
}

TEST(Dates, A_date_of_another_office_is_read_in_the_first_form_that_gives_a_day) {
  for (const ReadCase& c : std::vector<ReadCase>{
           {"2024-03-05", "dd/MM/yyyy", {2024, 3, 5}},
           {"05.03.2024", "dd/MM/yyyy", {2024, 3, 5}},
           {"5.3.2024", "dd/MM/yyyy", {2024, 3, 5}},
           {"05/03/2024", "yyyy-MM-dd", {2024, 3, 5}},
           // No month 13, so it is the American form.
           {"05/13/2024", "dd/MM/yyyy", {2024, 5, 13}},
           {"05/13/2024", "dd.MM.yyyy", {2024, 5, 13}},
           {"02/29/2024", "dd/MM/yyyy", {2024, 2, 29}},
           // Two digits of year, in the same order.
           {"24-03-05", "dd/MM/yyyy", {2024, 3, 5}},
           {"05.03.24", "dd/MM/yyyy", {2024, 3, 5}},
           {"05/03/24", "dd/MM/yyyy", {2024, 3, 5}},
           {"05/13/24", "dd/MM/yyyy", {2024, 5, 13}},
           {"3/5/24", "yyyy-MM-dd", {2024, 5, 3}},
           // The machine's own form goes before all of them, with two digits too.
           {"05/03/2024", "MM/dd/yyyy", {2024, 5, 3}},
           {"05/03/24", "MM/dd/yy", {2024, 5, 3}},
           {"05/06/26", "MM/dd/yyyy", {2026, 5, 6}},
           {"05-06-26", "dd-MM-yyyy", {2026, 6, 5}},
           {"05-06-26", "yyyy-MM-dd", {2005, 6, 26}},
       }) {
    EXPECT_EQ(ParseProjectDate(c.Text, c.ShortForm), c.Expected) << c.Text << ' ' << c.ShortForm;
  }
}

TEST(Dates, What_no_form_fits_is_no_date) {
  for (const char* text : {"",
                           "   ",
                           "x",
                           "05/03",
                           "05/03/",
                           "05/03/2024x",
                           "05/03/2024 12:00",
                           "2024",
                           "2024-03-05T00:00:00",
                           "05-03-2024",
                           "0/03/2024",
                           "32/03/2024",
                           "31/04/2024",
                           "13/13/2024",
                           "05/00/2024",
                           "29/02/2023",
                           "29/02/1900",
                           "30/02/2024",
                           "05/03/0000",
                           "05/03/20240",
                           "-5/03/2024",
                           "5 Mar 2024"}) {
    EXPECT_EQ(ParseProjectDate(text, "dd/MM/yyyy"), std::nullopt) << text;
  }
}

TEST(Dates, A_short_form_that_lacks_a_part_reads_no_date) {
  EXPECT_EQ(ParseProjectDate("", ""), std::nullopt);
  EXPECT_EQ(ParseProjectDate("05/03", "dd/MM"), std::nullopt);
  EXPECT_EQ(ParseProjectDate("2024", "yyyy"), std::nullopt);
}

TEST(Dates, A_form_of_dates_is_one_that_reads_back_what_it_writes) {
  for (const char* form : {"dd/MM/yyyy", "dd.MM.yy", "M/d/yy", "yyyyMMdd", "dd'd'MM'y'yy"}) {
    EXPECT_TRUE(CanBeProjectDateForm(form)) << form;
  }
  for (const char* form : {"", "dd/MM", "d MMM yyyy", "dMyyyy", "d,M,yyyy", "DD.MM.YYYY", "x"}) {
    EXPECT_FALSE(CanBeProjectDateForm(form)) << form;
  }
  EXPECT_EQ(ProjectDateForm("dd.MM.yy"), "dd.MM.yyyy");
  EXPECT_EQ(ProjectDateForm("d MMM yyyy"), "dd/MM/yyyy");
}

TEST(Dates, IsDate_knows_the_calendar) {
  for (const Date& date : std::vector<Date>{{2024, 2, 29},
                                            {2000, 2, 29},
                                            {2023, 2, 28},
                                            {2024, 1, 31},
                                            {2024, 4, 30},
                                            {2024, 12, 31},
                                            {1, 1, 1},
                                            {9999, 12, 31},
                                            Date{}}) {
    EXPECT_TRUE(IsDate(date)) << date.Year << '-' << date.Month << '-' << date.Day;
  }
  for (const Date& date : std::vector<Date>{{2023, 2, 29},
                                            {1900, 2, 29},
                                            {2024, 2, 30},
                                            {2024, 4, 31},
                                            {2024, 6, 31},
                                            {2024, 9, 31},
                                            {2024, 11, 31},
                                            {2024, 0, 1},
                                            {2024, 13, 1},
                                            {2024, 1, 0},
                                            {2024, 1, 32},
                                            {0, 1, 1},
                                            {10000, 1, 1},
                                            {2024, -1, 1}}) {
    EXPECT_FALSE(IsDate(date)) << date.Year << '-' << date.Month << '-' << date.Day;
  }
}

TEST(Dates, A_date_that_was_never_set_is_the_thirtieth_of_December_1899) {
  EXPECT_EQ(Date{}, (Date{1899, 12, 30}));
}

TEST(Dates, The_factory_forms_have_two_or_four_digits_of_year) {
  EXPECT_EQ(ShortYearText(FifthOfMarch), "05/03/24");
  EXPECT_EQ(ShortYearText({2009, 12, 31}), "31/12/09");
  EXPECT_EQ(ShortYearText(Date{}), "30/12/99");
  EXPECT_EQ(FullYearText(FifthOfMarch), "05/03/2024");
  EXPECT_EQ(FullYearText(Date{}), "30/12/1899");
}

TEST(Dates, A_moment_is_shown_in_the_form_of_the_system) {
  EXPECT_EQ(MomentText({FifthOfMarch, 14, 7, 9}, "dd/MM/yyyy"), "05/03/2024  14:07:09");
  EXPECT_EQ(MomentText({{2026, 11, 22}, 0, 5, 0}, "d.M.yyyy"), "22.11.2026  00:05:00");
}

TEST(Dates, The_moment_of_creation_is_English_and_of_24_hours) {
  // Days of the week as a calendar shows them.
  EXPECT_EQ(CreatedText({FifthOfMarch, 14, 7, 9}), "Tue Mar 05 2024 14:07:09");
  EXPECT_EQ(CreatedText({{2024, 1, 1}, 0, 0, 0}), "Mon Jan 01 2024 00:00:00");
  EXPECT_EQ(CreatedText({{2024, 2, 29}, 23, 59, 59}), "Thu Feb 29 2024 23:59:59");
  EXPECT_EQ(CreatedText({{2000, 1, 1}, 12, 0, 0}), "Sat Jan 01 2000 12:00:00");
  EXPECT_EQ(CreatedText({{1999, 12, 31}, 12, 0, 0}), "Fri Dec 31 1999 12:00:00");
  EXPECT_EQ(CreatedText({{2025, 3, 2}, 1, 2, 3}), "Sun Mar 02 2025 01:02:03");
  EXPECT_EQ(CreatedText({{2025, 8, 13}, 1, 2, 3}), "Wed Aug 13 2025 01:02:03");
}

TEST(Dates, Every_month_has_its_English_name) {
  const std::vector<std::string> names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(CreatedText({{2024, month, 1}, 0, 0, 0}).substr(4, 3),
              names[static_cast<std::size_t>(month - 1)]);
  }
}

TEST(Dates, ParseMoment_reads_one_form_only) {
  const std::optional<Moment> moment = ParseMoment("2024-03-05T14:07:09");
  ASSERT_TRUE(moment.has_value());
  EXPECT_EQ(moment->Day, FifthOfMarch);
  EXPECT_EQ(moment->Hour, 14);
  EXPECT_EQ(moment->Minute, 7);
  EXPECT_EQ(moment->Second, 9);
  EXPECT_TRUE(ParseMoment("2024-02-29T00:00:00").has_value());
  EXPECT_TRUE(ParseMoment("2024-12-31T23:59:59").has_value());
  for (const char* text :
       {"", "2024-03-05", "2024-03-05 14:07:09", "2024-03-05T14:07", "2024-03-05T14:07:09Z",
        " 2024-03-05T14:07:09", "2024-3-05T14:07:009", "2024-03-05T24:00:00", "2024-03-05T14:60:00",
        "2024-03-05T14:07:60", "2023-02-29T00:00:00", "2024-03-05T1 :07:09", "2024-03-05T-1:07:09",
        "2024-03-05T14:0x:09", "2024/03/05T14:07:09", "24-03-0005T14:07:09",
        "2024-003-5T14:07:09"}) {
    EXPECT_FALSE(ParseMoment(text).has_value()) << text;
  }
}

}  // namespace
