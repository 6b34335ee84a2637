// The page of messages holds every message of the program, in its exact words, and no other.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/help/help_page.h"

namespace orvane {

namespace {

using test::ElementsOf;
using test::PageSource;
using test::TextOf;

constexpr const char* SleeveQuestion =
    "Item 2: P2 requires sleeves and none were found\n"
    "Do you wish to continue with the export?";

// With the example values that the page gives: mark, number, path.
const std::multiset<std::string> Messages = {
    // What a cell of the sections grid refuses, and the question before a section is deleted.
    "Error - Duplicate Mark",
    "Invalid length",
    "Length exceeds maximum for section (15000)",
    "Remove mark P1?",
    "Remove 12 sections?",
    // Several rows.
    "P4: Division by zero\nNothing was added.",
    "Not in this program's catalogue, and left as pasted:\nproduct Z99999 (P1, P2)",
    "The sections on the clipboard can't be read: they were copied by another version of the "
    "program, or not copied whole",
    // Detail panel.
    "Selecting a standard pattern will remove custom holes, continue?",
    "Punching pattern must be 'Custom'",
    // Holes by hand.
    "Please enter a valid value for the X position (too close to edge or too close to existing "
    "hole)",
    // What the accessory dialogs refuse.
    "'No. Rqd' should equal 'No. As Drawn' + 'No. Opp. Hand'",
    "Maximum length for VCR section is 3050",
    "Tubular apex ties only suitable if pitch <= 25deg",
    "Please enter EITHER purlin OR rail centres",
    "This line's accessory isn't in the catalogue. It is kept, but can't be edited.",
    // Leaving them, or the notches, by Escape or the frame.
    "Discard the changes?",
    // New, open, exit.
    "Save changes to current project?",
    "shed.ovd is open already, for 2 hours now.\n\nUser: anna\nComputer: OFFICE-7\nProgram: "
    "orvane\n\nTwo people who save one job lose each other's changes. A copy has no file until you "
    "save it.",
    "shed.ovd is open already, for 2 hours now.\n\nUser: anna\nComputer: OFFICE-7\nProgram: "
    "orvane\n\nSaving puts this project in its place.",
    "shed.ovd was changed on the disk after you opened it or saved it last.\nIt differs from this "
    "project by 2 sections changed.\nIf you overwrite it, what stands there now goes to "
    "shed.ovd.bak.",
    "shed.ovd was changed on the disk after you opened it or saved it last.\nIf you overwrite it, "
    "what stands there now makes no backup: it goes to the earlier versions alone.",
    "shed.ovd was changed on the disk after you opened it or saved it last.\nIf you overwrite it, "
    "what stands there now is lost: it makes no backup.",
    "What was changed since the last save could not be kept: Disk full.\nLeave it all the same?",
    "The project file can't hold these texts as they are:\n\nP4, Notes: 12\" deep\ncomes back as: "
    "12",
    "With these texts the project could not be opened again. It isn't saved.\n\nP4, Notes: 12\" x "
    "3\", see drawing\ncomes back as: 12",
    "The project isn't saved, and no copy that opens could be put into your data folder either.\n"
    "Leave it all the same? What was changed in it is lost then.",
    "Permission denied. It can only be written in its place, and what it holds now is not kept "
    "first: Disk full.\nSave under another name.",
    "Disk full\nshed.ovd is only half written. What it held before stands in /jobs/shed.ovd.bak",
    "P1 : Z24520 Length shorter than last hole position \nQuit anyway?",
    // File dialogs.
    "shed.ovd already exists.\nDo you want to replace it?",
    "The folder /jobs/north doesn't exist.",
    "north.ovd is a folder.",
    "shed.ovd doesn't exist.",
    // Section lists.
    "2 rows are refused and are left out. Go on?",
    "There are no sections in that list",
    "A quote in row 2 is not closed",
    "The list has more than 32767 rows",
    "Row 2 has more than 256 columns",
    "The list is longer than 64 MB",
    // Export, the lines of the validation errors among it.
    SleeveQuestion,
    "Item 3:  No mark",
    "Item 3: P3 Zero length",
    "Item 3: P3 Zero quantity",
    "Item 3: P3 No sleeves",
    "CAM export complete\n/jobs/north/shed.xov\n/jobs/north/shed.xac",
    "CAM export complete\n/jobs/north/shed.xov\n3 sections can't be made: see Check",
    "CAM file written, accessory list failed\n/jobs/north/shed.xov",
    "Accessory list failed",
    "VCR Assembly VA1: unknown cleat code \"KT50\"",
    // Sheets.
    "File not found: /opt/lintaro/Drawings/drg015.wmf",
    "Invalid picture: /opt/lintaro/Drawings/drg015.wmf",
    "Nothing of the picture can be drawn: /opt/lintaro/Drawings/acc13.wmf",
    "Picture outside the program's folder: \\Drawings\\..\\acc13.wmf",
    // Print.
    "Nothing to print",
    "There are no such pages",
    "Can't print on Office",
    "No printer is installed",
    // Catalogues and settings.
    "Error loading data from /opt/lintaro/dims.csv\nFile not found",
    "The catalogue folder can't be found: /srv/steel\nThe catalogue that ships with the program is "
    "used until the next start. The setting stays.",
    "There is no folder /srv/steel",
    "ERROR #3 : Permission denied",
    "The settings can't be stored.\nWhat is set now holds until the program ends.",
    "Overflow in the settings\nPageSetup, LeftMargin: 40000 becomes 10",
    "The help can't be shown: no viewer for /opt/lintaro/Lintaro.chm was found",
    // The system's descriptions.
    "File not found",
    "Path not found",
    "Permission denied",
    "Disk full",
    "Input past end of file",
    "Type mismatch",
    "Overflow",
    "Division by zero",
    "Subscript out of range",
    "Not a regular file",
    "The PDF can't be written",
};

// Titles of boxes that have one of their own.
struct TitledBox {
  std::string_view Text;
  std::string_view Title;
};
constexpr TitledBox Titles[] = {
    {"Selecting a standard pattern", "Punching Pattern"},
    {"'No. Rqd' should equal", "VCR Assembly"},
    {"Maximum length for VCR section", "VCR Assembly"},
    {"Tubular apex ties only suitable", "Tubular apex ties"},
    {"Please enter EITHER purlin", "Sag bars (screw fix)"},
    {"Save changes to current project?", "New Project, or Exit"},
    {"P1 : Z24520 Length shorter", "Warning"},
    {"Item 2: P2 requires sleeves", "Checking Data"},
    {"Error loading data from", "Orvane Detailing System"},
    {"The catalogue folder can't be found", "Orvane Detailing System"},
};

std::string MessagesPage() {
  return PageSource("messages.html");
}

TEST(HelpMessages, The_page_holds_each_message_in_its_exact_words_and_no_other) {
  std::multiset<std::string> found;
  for (const std::string& heading : ElementsOf(MessagesPage(), "h3 class=\"message\"")) {
    found.insert(TextOf(heading));
  }
  EXPECT_EQ(found, Messages);
}

TEST(HelpMessages, Each_message_says_what_it_means_and_what_to_do) {
  const std::string page = MessagesPage();
  std::size_t at = page.find("<h3 class=\"message\">");
  ASSERT_NE(at, std::string::npos);
  while (at != std::string::npos) {
    const std::size_t next = page.find("<h3 class=\"message\">", at + 1);
    const std::string entry = page.substr(at, next == std::string::npos ? next : next - at);
    const std::vector<std::string> paragraphs = ElementsOf(entry, "p");
    EXPECT_GE(paragraphs.size(), 2U) << entry;
    EXPECT_NE(entry.find("<b>What to do:</b> "), std::string::npos) << entry;
    at = next;
  }
}

TEST(HelpMessages, Titles_of_boxes_stand_below_their_messages) {
  const std::string page = MessagesPage();
  for (const TitledBox& box : Titles) {
    bool found = false;
    std::size_t at = page.find("<h3 class=\"message\">");
    while (at != std::string::npos) {
      const std::size_t end = page.find("</p>", at);
      const std::string text = TextOf(page.substr(at, end - at));
      found = found ||
              (text.rfind(box.Text, 0) == 0 &&
               text.find("\nTitle of the box: " + std::string(box.Title)) != std::string::npos);
      at = page.find("<h3 class=\"message\">", end);
    }
    EXPECT_TRUE(found) << box.Text;
  }
}

TEST(HelpMessages, The_page_of_validation_errors_names_the_four_words) {
  std::multiset<std::string> words;
  for (const auto& row : test::TableRows(PageSource("validation-errors.html"))) {
    words.insert(row.at(0));
  }
  EXPECT_EQ(words, (std::multiset<std::string>{"Word", "No mark", "Zero length", "Zero quantity",
                                               "No sleeves"}));
}

}  // namespace

}  // namespace orvane
