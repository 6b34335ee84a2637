#include "tools/batch_platform.h"

#include <filesystem>
#include <system_error>

#include "core/files.h"

#ifdef _WIN32
#include <windows.h>
// (after windows.h, which it needs)
#include <io.h>
#include <shellapi.h>

#include <array>
#else
#include <unistd.h>
#endif

namespace orvane {

#ifdef _WIN32

std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int at = 1; at < count; ++at) arguments.push_back(PathText(wide[at]));
  LocalFree(wide);
  return arguments;
}

std::string ExecutableFolder() {
  std::array<wchar_t, 32768> path{};
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return PathText(std::filesystem::path(path.data(), path.data() + length).parent_path());
}

bool ErrorsOnTerminal() {
  return _isatty(2) != 0;
}

void PrepareConsole() {
  SetConsoleOutputCP(CP_UTF8);
}

#else

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return argc < 1 ? std::vector<std::string>{} : std::vector<std::string>(argv + 1, argv + argc);
}

std::string ExecutableFolder() {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "" : PathText(path.parent_path());
}

bool ErrorsOnTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

void PrepareConsole() {}

#endif

}  // namespace orvane
