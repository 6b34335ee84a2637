#include "core/settings_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

// One line of the file, as its bytes stand and as what they mean.
struct Line {
  std::string Bytes;
  std::string End;  // CR LF, LF, CR, or empty for a last line without one

  enum class Kind { Section, Value, Other };
  Kind Meaning = Kind::Other;
  std::string Name;  // of a section its key, of a value its name
  std::string Text;  // of a value its text, not escaped
};

// Line ends and the backslash, which marks them, have a form of their own within a value.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\r':
        escaped += "\\r";
        break;
      case '\n':
        escaped += "\\n";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// A backslash before any other letter was put there by hand, and stands for itself.
std::string Unescaped(std::string_view escaped) {
  std::string text;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const char next = i + 1 < escaped.size() ? escaped[i + 1] : '\0';
    const bool mark = escaped[i] == '\\' && (next == '\\' || next == 'r' || next == 'n');
    text += !mark ? escaped[i] : next == 'r' ? '\r' : next == 'n' ? '\n' : '\\';
    if (mark) ++i;
  }
  return text;
}

// What a line means. Blanks around a section or a name don't count; those of a value's text do,
// since a text must come back as it was stored. Each line is decoded by itself, so that one that
// was typed in another encoding leaves the others readable.
void Interpret(Line& line) {
  const std::string text = DecodeText(line.Bytes);
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty() || trimmed.front() == '#' || trimmed.front() == ';') return;
  if (trimmed.front() == '[') {
    if (trimmed.size() < 2 || trimmed.back() != ']') return;
    line.Meaning = Line::Kind::Section;
    line.Name = trimmed.substr(1, trimmed.size() - 2);
    return;
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) return;
  line.Meaning = Line::Kind::Value;
  line.Name = Trim(std::string_view(text).substr(0, equals));
  line.Text = Unescaped(std::string_view(text).substr(equals + 1));
}

Line MakeLine(std::string bytes, std::string end) {
  Line line;
  line.Bytes = std::move(bytes);
  line.End = std::move(end);
  Interpret(line);
  return line;
}

std::vector<Line> LinesOf(std::string_view bytes) {
  std::vector<Line> lines;
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const std::string_view behind = bytes.substr(length);
    const std::size_t end =
        std::min<std::size_t>(behind.substr(0, 2) == "\r\n" ? 2 : 1, behind.size());
    lines.push_back(
        MakeLine(std::string(bytes.substr(0, length)), std::string(behind.substr(0, end))));
    bytes.remove_prefix(length + end);
  }
  return lines;
}

// Whether the key and the name would be read back from the file as they are.
bool CanHold(const std::string& key, const std::string& name) {
  if ((key + name).find_first_of("\r\n") != std::string::npos) return false;
  const Line section = MakeLine("[" + key + "]", "");
  const Line value = MakeLine(name + "=", "");
  return section.Meaning == Line::Kind::Section && section.Name == key &&
         value.Meaning == Line::Kind::Value && value.Name == name && value.Text.empty();
}

// Where a value stands, or would stand. Edited by hand, a file may hold a section or a value twice:
// the first value of the name counts, in whichever section of the key it stands.
struct Place {
  std::optional<std::size_t> Value;  // its line
  // The line behind the last value of the key's first section, or behind its heading.
  std::optional<std::size_t> Behind;
};

Place Find(const std::vector<Line>& lines, const std::string& key, const std::string& name) {
  Place place;
  bool inside = false;
  bool insideFirst = false;
  for (std::size_t i = 0; i < lines.size() && !place.Value; ++i) {
    const Line& line = lines.at(i);
    if (line.Meaning == Line::Kind::Section) {
      inside = line.Name == key;
      insideFirst = inside && !place.Behind;
    } else if (line.Meaning == Line::Kind::Other || !inside) {
      continue;
    } else if (line.Name == name) {
      place.Value = i;
    }
    if (insideFirst) place.Behind = i + 1;
  }
  return place;
}

// Puts the value in the place of the old one, else behind the others of its key, else into a new
// section at the end. New lines end as the file's first line does.
void Put(std::vector<Line>& lines, const std::string& key, const std::string& name,
         const std::string& text) {
  const std::string value = name + "=" + Escaped(text);
  const Place place = Find(lines, key, name);
  if (place.Value) {
    lines.at(*place.Value).Bytes = value;
    return;
  }
  const std::string end = lines.empty() || lines.front().End.empty() ? "\n" : lines.front().End;
  if (!lines.empty() && lines.back().End.empty()) lines.back().End = end;
  if (place.Behind) {
    const auto behind = lines.begin() + static_cast<std::ptrdiff_t>(*place.Behind);
    lines.insert(behind, MakeLine(value, end));
    return;
  }
  if (!lines.empty() && !lines.back().Bytes.empty()) lines.push_back(MakeLine("", end));
  lines.push_back(MakeLine("[" + key + "]", end));
  lines.push_back(MakeLine(value, end));
}

// The lines of the file; none when there is no file yet. Raises an error for a file that is there
// and can't be read.
std::vector<Line> ReadLines(const std::string& path) {
  try {
    return LinesOf(ReadWholeFile(path));
  } catch (const RuntimeError& error) {
    if (error.Number() != static_cast<int>(Failure::FileNotFound) &&
        error.Number() != static_cast<int>(Failure::PathNotFound)) {
      throw;
    }
  }
  return {};
}

}  // namespace

std::optional<std::string> MemorySettings::Query(SettingsRoot /*root*/, const std::string& key,
                                                 const std::string& name) {
  const auto found = values_.find({key, name});
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

bool MemorySettings::Store(SettingsRoot /*root*/, const std::string& key, const std::string& name,
                           const std::string& text) {
  values_[{key, name}] = text;
  return true;
}

std::optional<std::string> FileSettings::Query(SettingsRoot /*root*/, const std::string& key,
                                               const std::string& name) {
  try {
    const std::vector<Line> lines = ReadLines(path_);
    const Place place = Find(lines, key, name);
    if (place.Value) return lines.at(*place.Value).Text;
  } catch (const RuntimeError&) {
    // A store that can't be read is one without the value.
  }
  return std::nullopt;
}

bool FileSettings::Store(SettingsRoot /*root*/, const std::string& key, const std::string& name,
                         const std::string& text) {
  if (path_.empty() || !CanHold(key, name)) return false;
  try {
    std::vector<Line> lines = ReadLines(path_);
    Put(lines, key, name, text);
    std::string bytes;
    for (const Line& line : lines) bytes.append(line.Bytes).append(line.End);

    std::error_code ignored;  // a folder that can't be made shows when the file is written
    const std::filesystem::path folder = NativePath(path_).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    ReplaceWholeFile(path_, bytes);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

std::string UserSettingsPath() {
  const auto variable = [](const char* name) {
    const char* value = std::getenv(name);
    return NativePath(value == nullptr ? "" : value);
  };
  std::filesystem::path folder = variable("XDG_CONFIG_HOME");
  if (!folder.is_absolute()) {
    folder = variable("HOME");
    if (folder.empty()) return "";
    folder /= ".config";
  }
  return PathText(folder / "Lintaro" / "settings.txt");
}

}  // namespace orvane
