// Runs the built companion as a process, on small jobs and catalogues of the test's own.
#pragma once

#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace orvane::test {

struct Outcome {
  int Code = -1;  // exit code; -1 when the process died otherwise
  std::string Out;
  std::string Err;
};

enum class RunAs { Self, OrdinaryUser };

// The lines, each with its carriage return and line feed.
std::string Lines(const std::vector<std::string>& lines);

// The lines of a section block of a project file: mark, letter, product, length, quantity and
// pattern as given, and nothing else: no note, no mitres, no notches, no holes saved.
std::vector<std::string> SectionLines(const std::string& mark, const std::string& letter,
                                      const std::string& product, const std::string& length,
                                      const std::string& quantity, const std::string& pattern);

// A project file of the date 5 March 2024 with these sections and without accessories.
std::string JobOf(const std::vector<std::vector<std::string>>& sections);
// The same with behind the sections all the lines as they are given, the count of the type 1
// accessory lines first.
std::string JobOf(const std::vector<std::vector<std::string>>& sections,
                  const std::vector<std::string>& tail);

// The one purlin of most jobs here: P1, five of 6000 mm, a pair of holes at the middle.
std::vector<std::string> Purlin();
// The type 2 lines of ten sleeves S1 of that purlin's product, with the lines around them.
std::vector<std::string> SleeveTail();

// The header of a CAM file of such a job, made at 14:07:09 on its date, and the purlin's block.
std::vector<std::string> CamHeader();
std::vector<std::string> PurlinBlock();
// The whole accessory list of a job with the sleeves above.
std::string SleeveList();

// The moment that those texts bear.
constexpr const char* CreatedMoment = "2024-03-05T14:07:09";

// Each test works in its own folder "desk", with the catalogues in "catalogue" beside it.
class CompanionTest : public SystemTest {
 protected:
  CompanionTest();

  // A path below "desk", with its folders made; and a file there.
  std::string Path(const std::string& name);
  std::string File(const std::string& name, std::string_view bytes);
  bool Exists(const std::string& name);

  // Runs the companion inside "desk", with "--catalogue" of the test's own in front of the
  // arguments.
  Outcome Run(const std::vector<std::string>& arguments);
  // Runs `program` inside "desk" with the arguments as they stand.
  Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                     RunAs user = RunAs::Self);
  // Whether the machine gives terminals: a folder made the root of all may have no /dev/pts.
  static bool HasTerminal();
  // Like Run, with a terminal as standard error; what came out on it, line feeds as they were
  // written.
  Outcome RunOnTerminal(const std::vector<std::string>& arguments);

  // What a program prints about a file of the desk; a program that fails fails the test.
  std::string Printed(const std::string& program, const std::string& file,
                      const std::string& behind = "");
  // The number of pages of a PDF of the desk, as it is printed; and the text of one of them,
  // counted from 1, in lines as on the page.
  std::string Pages(const std::string& pdf);
  std::string PageText(const std::string& pdf, int page);

  // Lays the companion and the catalogues into "installed" and gives the program's path; there it
  // works for any user. Where the house lies, another user may not even look.
  std::string Install(const std::string& catalogueFolder);

  std::string catalogue;  // folder of the test's own catalogues
};

}  // namespace orvane::test
