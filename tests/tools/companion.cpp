#include "tests/tools/companion.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>

namespace orvane::test {

namespace {

namespace fs = std::filesystem;

constexpr unsigned NobodyId = 65534;

constexpr const char* Dims =
    "Type,Product,Depth\r\n"
    "Z,Z20015,200,65,60,0,18,18,45,110,45,0,75,0\r\n";

constexpr const char* Punch =
    "Type,Name,Codes\r\n"
    "Z,Pair,C3,,\r\n"
    "Z,Sleeved,C3,,\r\n"
    "Z,Close,B0 B6 B6,,\r\n";

// Row 6 of the accessories, the first of the second file, is the sleeves.
constexpr const char* Accs1 =
    "A,Bolts,None,0,0,0,Y\r\n"
    "I,M12 x 30,M12\r\n"
    "A,Anti-sag rods,None,0,0,0,Y\r\n"
    "A,Cleats,None,0,0,0,Y\r\n"
    "A,Sleeves 3,None,0,0,0,Y\r\n"
    "A,Sleeves 2,None,0,0,0,Y\r\n";

constexpr const char* Accs2 =
    "A,Sleeves,None,0,0,0,Sleeve\r\n"
    "P,Product\r\n";

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Runs the program in a child process; `prepare` runs there first and may fail.
int RunChild(const std::string& program, const std::vector<std::string>& arguments,
             const std::function<bool()>& prepare, const std::function<void()>& whileRunning) {
  std::vector<std::string> all = arguments;
  all.insert(all.begin(), program);
  std::vector<char*> argv = Pointers(all);
  const pid_t child = fork();
  if (child == 0) {
    // Dates are written as where no country is set, whatever the machine's is.
    if (setenv("LC_ALL", "C", 1) == 0 && prepare()) execv(program.c_str(), argv.data());
    _exit(126);
  }
  whileRunning();
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool Redirect(int stream, const std::string& file) {
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  return opened >= 0 && dup2(opened, stream) == stream;
}

bool BecomeOrdinary(RunAs user) {
  return user == RunAs::Self || getuid() != 0 || (setgid(NobodyId) == 0 && setuid(NobodyId) == 0);
}

std::vector<std::string> WithCatalogue(const std::string& folder,
                                       const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"--catalogue", folder};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

void Extend(std::vector<std::string>& lines, const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

// Blanks up to a column.
std::string Cell(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// The two ends of a pseudo-terminal; -1 without one.
struct Terminal {
  int Keeper = -1;
  int Program = -1;
};

Terminal OpenTerminal() {
  const int keeper = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (keeper < 0) return {};
  std::array<char, 256> name{};
  if (grantpt(keeper) == 0 && unlockpt(keeper) == 0 &&
      ptsname_r(keeper, name.data(), name.size()) == 0) {
    const int program = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (program >= 0) return {keeper, program};
  }
  close(keeper);
  return {};
}

}  // namespace

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::vector<std::string> SectionLines(const std::string& mark, const std::string& letter,
                                      const std::string& product, const std::string& length,
                                      const std::string& quantity, const std::string& pattern) {
  return {
      "\"" + mark + "\"",
      letter,
      product,
      " " + length + " ",
      " " + quantity + " ",
      " 0 ",   // left mitre
      " 0 ",   // right mitre
      "\"\"",  // note
      "",      // date text
      " 0 ",   // holes
      " 0 ",   // notches
      "\"" + pattern + "\"",
      " 0 ",  // custom holes
      "",     // pitch
      " 0 ",  // jointing pieces
      " 0 ",  // sag bars
  };
}

std::string JobOf(const std::vector<std::vector<std::string>>& sections,
                  const std::vector<std::string>& tail) {
  std::vector<std::string> lines = {"v1.07:1001",
                                    "\"J100\"",
                                    "\"Hill Farm\"",
                                    "\"Barn\"",
                                    "\"K. Ash\"",
                                    "05/03/2024",
                                    " " + std::to_string(sections.size()) + " "};
  for (const std::vector<std::string>& section : sections) Extend(lines, section);
  Extend(lines, tail);
  return Lines(lines);
}

std::string JobOf(const std::vector<std::vector<std::string>>& sections) {
  return JobOf(sections, {" 0 ", " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", " 0 "});
}

std::vector<std::string> Purlin() {
  return SectionLines("P1", "Z", "Z20015", "6000", "5", "Pair");
}

std::vector<std::string> SleeveTail() {
  return {" 0 ",                                             // type 1 lines
          " 1 ", " 6 ", "S1",  " 10 ", " 1 ", "\"Z20015\"",  // one type 2 line
          " 0 ", " 0 ", " 0 ", " 0 ",  " 0 ", "-1 "};        // the flags of the six accessories
}

std::vector<std::string> CamHeader() {
  return {"COLDCAM 5.3",
          "* Job Number: J100",
          "* Customer:   Hill Farm",
          "* Project:    Barn",
          "* Designer:   K. Ash",
          "* Date:       05/03/24",
          "*",
          "* Created:    Tue Mar 05 2024 14:07:09",
          ""};
}

std::vector<std::string> PurlinBlock() {
  // Holes at 6000 / 2 - 35 = 2965 and + 35 = 3035, mirrored end for end.
  return {"PURLIN",
          "P1",
          "Z20015",
          "5",
          "6000",
          "2",
          Cell("3035      n y y n 18", 41),
          Cell("2965      n y y n 18", 41),
          "0.0 0.0",
          "0",
          ""};
}

std::string SleeveList() {
  const std::string dashes = "----------------------------------------------------------";
  return Lines({"ACCLIST 5.3", dashes, "", "Job Number: J100", "Customer:   Hill Farm",
                "Project:    Barn", "Designer:   K. Ash", "Date:       05/03/24", "",
                "Created:    Tue Mar 05 2024 14:07:09", "", dashes, "", "",
                Cell("Sleeves", 35) + Cell("Mark", 12) + Cell("Quantity", 12) + Cell("Product", 12),
                Cell("Sleeve", 35) + Cell("S1", 12) + Cell("10", 12) + Cell("Z20015", 12)});
}

CompanionTest::CompanionTest() : catalogue(TempPath("catalogue")) {
  fs::create_directories(TempPath("desk"));
  fs::create_directories(catalogue);
  TempFile("catalogue/dims.csv", Dims);
  TempFile("catalogue/punch.csv", Punch);
  TempFile("catalogue/accs1.csv", Accs1);
  TempFile("catalogue/accs2.csv", Accs2);
}

std::string CompanionTest::Path(const std::string& name) {
  std::string path = TempPath("desk/" + name);
  fs::create_directories(fs::path(path).parent_path());
  return path;
}

std::string CompanionTest::File(const std::string& name, std::string_view bytes) {
  Path(name);
  return TempFile("desk/" + name, bytes);
}

bool CompanionTest::Exists(const std::string& name) {
  return fs::exists(TempPath("desk/" + name));
}

Outcome CompanionTest::Run(const std::vector<std::string>& arguments) {
  return RunProgram(ORVANE_BATCH, WithCatalogue(catalogue, arguments));
}

Outcome CompanionTest::RunProgram(const std::string& program,
                                  const std::vector<std::string>& arguments, RunAs user) {
  const std::string out = TempPath("stdout.txt");
  const std::string err = TempPath("stderr.txt");
  const std::string folder = TempPath("desk");
  Outcome outcome;
  outcome.Code = RunChild(
      program, arguments,
      [&] {
        return Redirect(STDOUT_FILENO, out) && Redirect(STDERR_FILENO, err) &&
               BecomeOrdinary(user) && chdir(folder.c_str()) == 0;
      },
      [] {});
  outcome.Out = BytesOf(out);
  outcome.Err = BytesOf(err);
  return outcome;
}

bool CompanionTest::HasTerminal() {
  const Terminal ends = OpenTerminal();
  if (ends.Keeper < 0) return false;
  close(ends.Program);
  close(ends.Keeper);
  return true;
}

Outcome CompanionTest::RunOnTerminal(const std::vector<std::string>& arguments) {
  const Terminal ends = OpenTerminal();
  if (ends.Keeper < 0) throw std::runtime_error("no terminal");
  const int keeper = ends.Keeper;
  const int terminal = ends.Program;
  termios form{};
  tcgetattr(terminal, &form);
  cfmakeraw(&form);
  tcsetattr(terminal, TCSANOW, &form);

  const std::string folder = TempPath("desk");
  Outcome outcome;
  outcome.Code = RunChild(
      ORVANE_BATCH, WithCatalogue(catalogue, arguments),
      [&] { return dup2(terminal, STDERR_FILENO) == STDERR_FILENO && chdir(folder.c_str()) == 0; },
      [&] {
        close(terminal);
        // The terminal ends with an error once the last process has left it.
        std::array<char, 4096> buffer{};
        for (ssize_t got = 0; (got = read(keeper, buffer.data(), buffer.size())) > 0;) {
          outcome.Err.append(buffer.data(), static_cast<std::size_t>(got));
        }
      });
  close(keeper);
  return outcome;
}

std::string CompanionTest::Printed(const std::string& program, const std::string& file,
                                   const std::string& behind) {
  const std::string command = program + " '" + Path(file) + "' " + behind;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("no pipe");
  std::string text;
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    text.append(buffer.data(), got);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

std::string CompanionTest::Pages(const std::string& pdf) {
  const std::string info = Printed("pdfinfo", pdf);
  const std::size_t label = info.find("Pages:");
  if (label == std::string::npos) return "";
  const std::size_t at = info.find_first_not_of(' ', label + 6);
  return info.substr(at, info.find('\n', at) - at);
}

std::string CompanionTest::PageText(const std::string& pdf, int page) {
  const std::string number = std::to_string(page);
  return Printed("pdftotext -layout -f " + number + " -l " + number, pdf, "-");
}

std::string CompanionTest::Install(const std::string& catalogueFolder) {
  std::string program = TempPath("installed/orvane-batch");
  fs::create_directories(TempPath("installed"));
  fs::copy_file(ORVANE_BATCH, program);
  fs::create_directories(TempPath("installed/" + catalogueFolder));
  fs::copy(catalogue, TempPath("installed/" + catalogueFolder), fs::copy_options::recursive);
  return program;
}

}  // namespace orvane::test
