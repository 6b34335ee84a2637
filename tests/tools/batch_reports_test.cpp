// The accessory sheets and the contract summary as PDFs, read back by other programs.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::JobOf;
using test::Outcome;
using test::Purlin;
using test::SectionLines;

using TextList = std::vector<std::string>;

// The flags of the six accessories of the catalogue.
TextList Flags(const std::vector<int>& used) {
  TextList lines(6, " 0 ");
  for (const int accessory : used) lines.at(static_cast<std::size_t>(accessory) - 1) = "-1 ";
  return lines;
}

TextList Type1Line(int accessory, int size, int quantity) {
  TextList line;
  for (const int number : {accessory, size, quantity, 0}) {
    line.push_back(" " + std::to_string(number) + " ");
  }
  return line;
}

TextList SleeveLine(const std::string& mark, int quantity) {
  return {" 6 ", mark, " " + std::to_string(quantity) + " ", " 1 ", "\"Z20015\""};
}

// The end of a project file with those lines, number in front.
TextList Tail(const std::vector<TextList>& lines1, const std::vector<TextList>& lines2,
              const std::vector<int>& used) {
  TextList tail;
  for (const std::vector<TextList>* lines : {&lines1, &lines2}) {
    tail.push_back(" " + std::to_string(lines->size()) + " ");
    for (const TextList& line : *lines) tail.insert(tail.end(), line.begin(), line.end());
  }
  const TextList flags = Flags(used);
  tail.insert(tail.end(), flags.begin(), flags.end());
  return tail;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

class BatchReports : public test::CompanionTest {
 protected:
  // The sizes of the pages in points, as they are printed, joined by blanks.
  std::string PaperOf(const std::string& pdf) {
    const std::string info = Printed("pdfinfo -f 1 -l 99", pdf);
    static const std::regex size("size: +([0-9.]+ x [0-9.]+) pts");
    std::string all;
    for (std::sregex_iterator found(info.begin(), info.end(), size), end; found != end; ++found) {
      all += (all.empty() ? "" : ", ") + (*found)[1].str();
    }
    return all;
  }
};

}  // namespace

TEST_F(BatchReports, The_summary_of_many_sections_has_each_of_them_once_under_header_and_footer) {
  std::vector<TextList> sections;
  std::vector<TextList> sleeves;
  std::vector<TextList> bolts;
  for (int row = 1; row <= 150; ++row) {
    sections.push_back(SectionLines("K" + std::to_string(1000 + row), "Z", "Z20015",
                                    std::to_string(3000 + row), std::to_string(row), "Pair"));
  }
  for (int line = 1; line <= 90; ++line) {
    sleeves.push_back(SleeveLine("L" + std::to_string(1000 + line), line % 3));
  }
  for (int line = 1; line <= 20; ++line) bolts.push_back(Type1Line(1, 1, line));
  File("barn.ovd", JobOf(sections, Tail(bolts, sleeves, {1, 6})));
  const Outcome outcome = Run({"--summary", "barn.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "Contract summary complete\n");

  const int pages = std::stoi(Pages("barn-summary.pdf"));
  EXPECT_GE(pages, 4);
  std::string all;
  std::string paper;
  for (int page = 1; page <= pages; ++page) {
    const std::string text = PageText("barn-summary.pdf", page);
    EXPECT_EQ(CountOf(text, "Orvane Detail System"), 1U) << page;
    EXPECT_EQ(CountOf(text, "Contract Summary (J100)"), 1U) << page;
    static const std::regex number("Page ([0-9]+)\n");
    std::smatch found;
    ASSERT_TRUE(std::regex_search(text, found, number)) << page;
    EXPECT_EQ(found[1].str(), std::to_string(page));
    EXPECT_EQ(CountOf(text, "E-mail: sales@lintaro.example"), 1U) << page;
    all += text;
    paper += page == 1 ? "595 x 842" : ", 595 x 842";
  }
  EXPECT_EQ(PaperOf("barn-summary.pdf"), paper);

  // Mark, product, length and quantity in one line, in the order of the list.
  std::size_t behind = 0;
  for (int row = 1; row <= 150; ++row) {
    const std::string mark = "K" + std::to_string(1000 + row);
    EXPECT_EQ(CountOf(all, mark), 1U) << mark;
    const std::size_t at = all.find(mark);
    EXPECT_GT(at, behind) << mark;
    behind = at;
    const std::regex whole(mark + " +Z20015 +" + std::to_string(3000 + row) + " +" +
                           std::to_string(row) + "\n");
    EXPECT_TRUE(std::regex_search(all, whole)) << mark;
  }
  for (int line = 1; line <= 90; ++line) {
    const std::string mark = "L" + std::to_string(1000 + line);
    EXPECT_EQ(CountOf(all, mark), 1U) << mark;
    const std::regex whole("Sleeves +" + mark + " +" + std::to_string(line % 3) + " +Z20015\n");
    EXPECT_TRUE(std::regex_search(all, whole)) << mark;
  }
  EXPECT_EQ(CountOf(all, "M12 x 30"), 20U);
  EXPECT_EQ(CountOf(all, "Sections:"), 1U);
  EXPECT_EQ(CountOf(all, "Accessories:"), 1U);
}

TEST_F(BatchReports, Viewers_tell_the_documents_of_a_job_apart_by_their_titles) {
  File("barn.ovd", JobOf({Purlin()}, Tail({Type1Line(1, 1, 4)}, {}, {1})));
  EXPECT_EQ(Run({"--sheets", "--accessory-sheets", "--summary", "barn.ovd"}).Code, 0);
  const auto titleOf = [&](const std::string& pdf) {
    static const std::regex title("Title: +(.*)\n");
    const std::string info = Printed("pdfinfo", pdf);
    std::smatch found;
    return std::regex_search(info, found, title) ? found[1].str() : "";
  };
  EXPECT_EQ(titleOf("barn-sheets.pdf"), "barn: sheets");
  EXPECT_EQ(titleOf("barn-accessories.pdf"), "barn: accessory sheets");
  EXPECT_EQ(titleOf("barn-summary.pdf"), "barn: contract summary");
}

TEST_F(BatchReports, The_summary_begins_with_the_project) {
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--summary", "a.ovd"}).Code, 0);
  const std::string text = PageText("a-summary.pdf", 1);
  for (const char* line :
       {"Job No\\.: +J100\n", "Customer: +Hill Farm\n", "Project/Site: +Barn\n",
        "Designer: +K\\. Ash\n", "Project Date: +05/03/2024\n", "Orvane Job No\\.: +1001\n",
        "Mark +Product +Length +Quantity +Notes\n", "P1 +Z20015 +6000 +5\n"}) {
    EXPECT_TRUE(std::regex_search(text, std::regex(line))) << line << " in " << text;
  }
}

TEST_F(BatchReports, A_job_without_sections_has_a_summary_of_its_accessories) {
  File("a.ovd", JobOf({}, Tail({}, {SleeveLine("S1", 4)}, {6})));
  const Outcome outcome = Run({"--summary", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Contract summary complete\n");
  EXPECT_EQ(PaperOf("a-summary.pdf"), "842 x 595");
  const std::string text = PageText("a-summary.pdf", 1);
  EXPECT_EQ(CountOf(text, "Accessories:"), 1U);
  EXPECT_EQ(CountOf(text, "S1 "), 1U);
  EXPECT_EQ(CountOf(text, "Contract Summary"), 0U);
}

TEST_F(BatchReports, The_summary_shows_what_was_entered_with_an_export_and_without) {
  // The accessory list takes the two last values of row 9 for 0 where they were never set.
  std::string accessories = BytesOf(TempPath("catalogue/accs2.csv"));
  for (const char* name : {"Seven", "Eight", "Joined"}) {
    accessories += std::string("A,") + name + ",None,0,0,0,Text\r\nP,One\r\nP,Two\r\nP,Three\r\n";
  }
  TempFile("catalogue/accs2.csv", accessories);
  TextList tail = {" 0 ", " 1 ", " 9 ", "B1", " 7 ", " 3 ", "\"4711\"", "\"\"", "\"\""};
  for (int flag = 1; flag <= 9; ++flag) tail.emplace_back(flag == 9 ? "-1 " : " 0 ");
  File("a.ovd", JobOf({Purlin()}, tail));
  EXPECT_EQ(Run({"--out", "x", "--summary", "a.ovd"}).Code, 0);
  EXPECT_EQ(Run({"--out", "y", "--cam", "--summary", "a.ovd"}).Code, 0);
  const std::string text = PageText("x/a-summary.pdf", 1);
  EXPECT_TRUE(std::regex_search(text, std::regex("Joined +B1 +7 +4711\n"))) << text;
  EXPECT_EQ(PageText("y/a-summary.pdf", 1), text);
}

TEST_F(BatchReports, Each_accessory_in_use_has_its_page) {
  File("a.ovd", JobOf({Purlin()}, Tail({Type1Line(1, 1, 600)},
                                       {SleeveLine("S1", 10), SleeveLine("S2", 0)}, {1, 3, 6})));
  const Outcome outcome = Run({"--accessory-sheets", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Accessory sheets complete\n");
  EXPECT_EQ(PaperOf("a-accessories.pdf"), "842 x 595, 842 x 595, 842 x 595");
  const TextList titles = {"Bolts", "Cleats", "Sleeves"};
  for (int page = 1; page <= 3; ++page) {
    const std::string text = PageText("a-accessories.pdf", page);
    EXPECT_EQ(CountOf(text, titles.at(static_cast<std::size_t>(page) - 1)), 1U) << text;
    EXPECT_EQ(CountOf(text, "Detail System"), 1U);
    EXPECT_EQ(CountOf(text, "E-mail: sales@lintaro.example"), 1U);
    EXPECT_EQ(CountOf(text, "Hill Farm"), 1U);
  }
  const std::string bolts = PageText("a-accessories.pdf", 1);
  EXPECT_TRUE(std::regex_search(bolts, std::regex("M12 x 30 +M12 +600\n"))) << bolts;
  const std::string sleeves = PageText("a-accessories.pdf", 3);
  EXPECT_TRUE(std::regex_search(sleeves, std::regex("S1 +10 +Z20015\n"))) << sleeves;
  EXPECT_TRUE(std::regex_search(sleeves, std::regex("S2 +0 +Z20015\n"))) << sleeves;
}

TEST_F(BatchReports, Without_accessories_in_use_there_are_no_accessory_sheets) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--accessory-sheets", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "No accessory sheets: none of the job's accessories is marked as used\n");
  EXPECT_FALSE(Exists("a-accessories.pdf"));
}

TEST_F(BatchReports, A_cutting_list_is_figures_and_a_document) {
  File("a.ovd", JobOf({Purlin()}, Tail({Type1Line(1, 1, 600)}, {SleeveLine("S1", 10)}, {1, 6})));
  const Outcome outcome = Run({"--cutting-list", "--out", "to", "a.ovd"});
  EXPECT_EQ(outcome.Err, "Cutting list complete\n");
  EXPECT_EQ(outcome.Code, 0);
  // Five purlins, each with a pair of 18 mm holes in both rows of the web.
  EXPECT_EQ(BytesOf(Path("to/a-cutting-list.csv")),
            "\xEF\xBB\xBF"
            "Section,Product,Length (mm),Quantity,Metres,Marks\r\n"
            "Z,Z20015,6000,5,30.000,P1 (5)\r\n"
            "Total,,,5,30.000,\r\n"
            "\r\n"
            "Diameter (mm),Slot (mm),Countersunk,Holes\r\n"
            "18,,,20\r\n"
            "Total,,,20\r\n"
            "\r\n"
            "Accessory,Description,Code or marks,No.Off\r\n"
            "Bolts,M12 x 30,M12,600\r\n"
            "Sleeves,,S1 (10),10\r\n");
  EXPECT_EQ(Pages("to/a-cutting-list.pdf"), "1");
  const std::string text = PageText("to/a-cutting-list.pdf", 1);
  EXPECT_NE(text.find("Cutting List"), std::string::npos) << text;
  EXPECT_NE(text.find("30.000"), std::string::npos) << text;
}

TEST_F(BatchReports, A_job_of_nothing_has_no_cutting_list) {
  File("a.ovd", JobOf({}));
  const Outcome outcome = Run({"--cutting-list", "a.ovd"});
  EXPECT_EQ(outcome.Err, "No cutting list: the job has neither sections nor accessories\n");
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_FALSE(Exists("a-cutting-list.csv"));
}

TEST_F(BatchReports, All_documents_come_in_one_run) {
  File("a.ovd", JobOf({Purlin()}, test::SleeveTail()));
  const Outcome outcome = Run(
      {"--out", "to", "--summary", "--accessory-sheets", "--svg", "--sheets", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err,
            "CAM export complete\n" + Path("to/a.xov") + "\n" + Path("to/a.xac") +
                "\nSheets complete\nAccessory sheets complete\nContract summary complete\n");
  for (const char* name : {"to/a.xov", "to/a.xac", "to/a-sheets.pdf", "to/a-sheet-001.svg",
                           "to/a-accessories.pdf", "to/a-summary.pdf"}) {
    EXPECT_TRUE(Exists(name)) << name;
  }
  EXPECT_FALSE(Exists("to/a-sheet-002.svg"));
}

TEST_F(BatchReports, A_missing_picture_leaves_no_accessory_PDF_and_the_summary_is_made) {
  std::string accessories = BytesOf(TempPath("catalogue/accs1.csv"));
  accessories.replace(accessories.find("None"), 4, "bolt");
  TempFile("catalogue/accs1.csv", accessories);
  File("a.ovd", JobOf({Purlin()}, Tail({Type1Line(1, 1, 600)}, {}, {1})));
  File("a-accessories.pdf", "former");
  const Outcome outcome = Run({"--accessory-sheets", "--summary", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Bolts: File not found: " + catalogue +
                             "/Drawings/bolt.wmf\nContract summary complete\n");
  EXPECT_EQ(BytesOf(Path("a-accessories.pdf")), "former");
  EXPECT_EQ(Pages("a-summary.pdf"), "1");
}

TEST_F(BatchReports, A_missing_picture_of_several_sheets_is_crossed_out_and_an_error) {
  std::string accessories = BytesOf(TempPath("catalogue/accs1.csv"));
  const std::string none = "None,0,";
  ASSERT_NE(accessories.find(none), std::string::npos) << accessories;
  accessories.replace(accessories.find(none), none.size(), "bolt,100,");
  TempFile("catalogue/accs1.csv", accessories);
  File("a.ovd", JobOf({Purlin()}, Tail({Type1Line(1, 1, 600)}, {SleeveLine("S1", 10)}, {1, 6})));
  const Outcome outcome = Run({"--accessory-sheets", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Bolts: File not found: " + catalogue +
                             "/Drawings/bolt.wmf\n"
                             "Accessory sheets complete, but for the missing pictures\n");
  EXPECT_EQ(Pages("a-accessories.pdf"), "2");
  EXPECT_NE(PageText("a-accessories.pdf", 1).find("bolt.wmf"), std::string::npos);
}

TEST_F(BatchReports, A_summary_that_cannot_be_written_is_a_fault) {
  File("a.ovd", JobOf({Purlin()}));
  std::filesystem::create_directories(Path("a-summary.pdf"));
  const Outcome outcome = Run({"--summary", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, Path("a-summary.pdf") + ": Is a directory\n");
}

}  // namespace orvane
