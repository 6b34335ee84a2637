#include "output/factory_text.h"

#include "tests/output/output_test.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::ErrorOf;

class FactoryTextTest : public test::OutputTest {};

TEST_F(FactoryTextTest, Every_line_ends_in_carriage_return_and_line_feed) {
  FactoryWriter out;
  out.Line("one");
  out.Line();
  out.Text("t").Text("wo").EndLine();
  EXPECT_EQ(out.TakeLines(), "one\r\n\r\ntwo\r\n");
}

TEST_F(FactoryTextTest, A_column_is_filled_with_blanks_or_cut) {
  FactoryWriter out;
  out.Column("ab", 5).Column("", 3).Column("abcdef", 4).Text("|").EndLine();
  EXPECT_EQ(out.TakeLines(), "ab      abcd|\r\n");
}

TEST_F(FactoryTextTest, Fit_fills_or_cuts_the_present_line_only) {
  FactoryWriter out;
  out.Line("a line that is longer than six");
  out.Text("abc").Fit(6).Text("|").EndLine();
  out.Text("abcdefgh").Fit(6).EndLine();
  EXPECT_EQ(out.TakeLines(), "a line that is longer than six\r\nabc   |\r\nabcdef\r\n");
}

TEST_F(FactoryTextTest, Texts_are_one_byte_a_character_before_they_are_filled_and_cut) {
  FactoryWriter out;
  out.Column("Caf\u00e9", 6).Column("\u00e9\u00e9\u00e9", 2).Column("\u20ac", 3).Text("|");
  out.EndLine();
  EXPECT_EQ(out.TakeLines(),
            "Caf\xe9  "
            "\xe9\xe9"
            "\x80  |\r\n");
}

TEST_F(FactoryTextTest, A_character_outside_the_code_page_becomes_a_question_mark) {
  FactoryWriter out;
  out.Line("\u0416 \U0001F529");
  out.Column("\u0416\u0416", 3).Text("|").EndLine();
  EXPECT_EQ(out.TakeLines(), "? ?\r\n?? |\r\n");
}

TEST_F(FactoryTextTest, A_line_end_in_a_text_becomes_a_blank) {
  FactoryWriter out;
  out.Line("one\r\ntwo\nthree\rfour");
  EXPECT_EQ(out.TakeLines(), "one  two three four\r\n");
}

TEST_F(FactoryTextTest, BuildFactoryFile_keeps_the_whole_lines_before_an_error) {
  const FactoryFile file = BuildFactoryFile([](FactoryWriter& out) {
    out.Line("whole");
    out.Text("broken");
    throw RuntimeError(Failure::Overflow);
  });
  EXPECT_EQ(file.Text, "whole\r\n");
  ASSERT_TRUE(file.Error);
  EXPECT_EQ(file.Error->Description(), "Overflow");
}

TEST_F(FactoryTextTest, WriteFactoryFile_replaces_what_the_file_held) {
  const std::string path = TempFile("a.xov", "an old file that was longer than the new one");
  WriteFactoryFile(path, {"new\r\n", {}});
  EXPECT_EQ(BytesOf(path), "new\r\n");
}

TEST_F(FactoryTextTest, WriteFactoryFile_raises_the_error_and_leaves_the_former_file) {
  const std::string path = TempFile("a.xov", "former");
  const FactoryFile file{"part\r\n", RuntimeError(Failure::TypeMismatch)};
  EXPECT_EQ(ErrorOf([&] { WriteFactoryFile(path, file); }), "Type mismatch");
  EXPECT_EQ(BytesOf(path), "former");
}

TEST_F(FactoryTextTest, WriteFactoryFile_names_the_file_in_its_error) {
  for (const std::optional<RuntimeError>& error :
       {std::optional<RuntimeError>(), std::optional(RuntimeError(Failure::TypeMismatch))}) {
    try {
      WriteFactoryFile(TempPath("no such folder/a.xov"), {"part\r\n", error});
      FAIL();
    } catch (const RuntimeError& raised) {
      EXPECT_EQ(raised.Description(), error ? "Type mismatch" : "Path not found");
      EXPECT_EQ(raised.File(), TempPath("no such folder/a.xov"));
    }
  }
}

TEST_F(FactoryTextTest, Header_texts_stand_as_they_are_without_trimming) {
  txtProject = {"", " J1 ", "", "  two  words", "\u00c9. Reid\n"};
  DTPicker1 = {2024, 12, 31};
  FactoryWriter out;
  WriteJobLines(out, "* ");
  WriteCreatedLine(out, "* ", {{2025, 1, 1}, 0, 5, 0});
  EXPECT_EQ(out.TakeLines(),
            "* Job Number:  J1 \r\n"
            "* Customer:   \r\n"
            "* Project:      two  words\r\n"
            "* Designer:   \xc9. Reid \r\n"
            "* Date:       31/12/24\r\n"
            "* Created:    Wed Jan 01 2025 00:05:00\r\n");
}

}  // namespace

}  // namespace orvane
