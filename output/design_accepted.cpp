#include "output/design_accepted.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "core/csv.h"
#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "output/design_content.h"
#include "project/content_mark.h"

namespace orvane {

namespace {

// What a finding is known by: rule, mark, content and words; the fields of a row of the file, in
// front of the word that it was accepted with.
using Key = std::vector<std::string>;
constexpr std::size_t KeyFields = 4;

struct Acceptance {
  Key Of;
  std::string Word;
};

std::string keptIn;                // the file; empty for none
std::vector<Acceptance> accepted;  // in the order in which they were
std::map<Key, std::string> words;  // of them
std::set<std::string> marks;       // that they bear

std::string ContentOf(const Item* section) {
  return MarkText(MarkOf(section == nullptr ? std::string() : ContentBesideMark(*section)));
}

// The place is a part of the words: of two holes that overlap others each is accepted by itself.
Key KeyOf(const Finding& finding, const std::string& content) {
  return {std::string(finding.Rule), finding.Mark, content,
          PlaceText(finding) + "|" + std::string(finding.Line) + "|" + finding.What};
}

Key KeyOf(const JobView& job, const Finding& finding) {
  return KeyOf(finding, ContentOf(finding.Row == 0 ? nullptr : &job.Items.At(finding.Row)));
}

void Use(std::vector<Acceptance> all) {
  accepted = std::move(all);
  words.clear();
  marks.clear();
  for (const Acceptance& one : accepted) {
    words[one.Of] = one.Word;
    marks.insert(one.Of.at(1));
  }
}

bool IsNotThere(const RuntimeError& error) {
  return error.Number() == static_cast<int>(Failure::FileNotFound) ||
         error.Number() == static_cast<int>(Failure::PathNotFound);
}

// What the file holds; nothing where there is none. Rows that aren't of this form, which only a
// hand can have made, are passed over.
std::vector<Acceptance> ReadAll() {
  std::string text;
  try {
    text = ReadWholeFile(keptIn);
  } catch (const RuntimeError& error) {
    if (!IsNotThere(error)) throw;
    return {};
  }
  std::vector<Acceptance> all;
  for (const CsvRow& row : ReadCsv(DecodeCsv(std::move(text)), ',')) {
    if (row.size() != KeyFields + 1) continue;
    all.push_back({Key(row.begin(), row.end() - 1), row.back()});
  }
  return all;
}

void WriteAll(const std::vector<Acceptance>& all) {
  std::vector<CsvRow> rows;
  for (const Acceptance& one : all) {
    rows.push_back(one.Of);
    rows.back().push_back(one.Word);
  }
  MakePrivateFolder(FolderOfPath(keptIn));
  ReplaceWholeFile(keptIn, CsvText(rows, ','));
}

// Puts the word, or none, in the place of the one that stands there.
void Change(const Key& key, const std::optional<std::string>& word) {
  if (keptIn.empty()) throw RuntimeError(Failure::PathNotFound);
  // Two programs that write at once would each take the other's word away. A lock that a computer
  // left behind is nobody's: the folder is the user's own.
  const LaidLock lock = TheDesktop().LayLock(keptIn + ".lock", LockOfOthers::Replaced);
  if (!lock.Lock && lock.Holder) {
    throw RuntimeError(Failure::PermissionDenied,
                       "Another program is just writing what was accepted: try again");
  }
  std::vector<Acceptance> all = ReadAll();
  std::erase_if(all, [&](const Acceptance& one) { return one.Of == key; });
  if (word) all.push_back({key, *word});
  if (all.size() > MostAccepted) {
    all.erase(all.begin(), all.end() - static_cast<std::ptrdiff_t>(MostAccepted));
  }
  WriteAll(all);
  Use(std::move(all));
}

}  // namespace

void KeepAcceptedIn(const std::string& dataFolder) {
  Use({});
  keptIn = dataFolder.empty() ? "" : PathText(NativePath(dataFolder) / "accepted.csv");
  if (!keptIn.empty()) Use(ReadAll());
}

void AcceptFinding(const JobView& job, const Finding& finding, std::string_view word) {
  if (Trim(word).empty()) throw RuntimeError(Failure::TypeMismatch);
  Change(KeyOf(job, finding), std::string(Trim(word)));
}

void ForgetAcceptance(const JobView& job, const Finding& finding) {
  Change(KeyOf(job, finding), std::nullopt);
}

void MarkAccepted(std::vector<Finding>& findings, const Item* section) {
  for (Finding& finding : findings) MarkAccepted(finding, section);
}

void MarkAccepted(Finding& finding, const Item* section) {
  // Hardly any section has one, and the content of a section isn't made for nothing.
  if (!marks.contains(finding.Mark)) return;
  const auto word = words.find(KeyOf(finding, ContentOf(section)));
  if (word != words.end()) finding.Accepted = word->second;
}

}  // namespace orvane
