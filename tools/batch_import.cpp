#include "tools/batch_import.h"
#include "output/design_check_rules.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "core/catalogue_folder.h"
#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "project/project_file.h"
#include "project/section_list/apply_plan.h"
#include "project/section_list/section_list.h"
#include "project/section_list/section_plan.h"
#include "project/sections.h"
#include "tools/batch_exit.h"
#include "tools/batch_job.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

bool AreSame(const std::string& one, const std::string& other) {
  std::error_code error;
  const bool same = fs::equivalent(NativePath(one), NativePath(other), error);
  return same && !error;
}

std::string CountOf(int count, std::string_view what) {
  return DecimalText(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

// A line for each row that isn't taken; how many there are.
int SayRefused(const SectionList& list, const SectionPlan& plan, const std::string& name,
               Console& console) {
  int refused = 0;
  for (std::size_t at = 0; at < plan.Rows.size(); ++at) {
    if (plan.Rows[at].What != PlannedSection::Result::Refused) continue;
    ++refused;
    console.SayFault(
        name, "row " + DecimalText(list.Rows.at(at).Number) + ": " + PlanText(plan.Rows[at]));
  }
  return refused;
}

void SayLeftOut(const SectionList& list, Console& console) {
  const std::string leftOut = LeftOutOf(list);
  if (!leftOut.empty()) console.Say(leftOut);
}

}  // namespace

std::string ImportFault(const BatchOptions& options) {
  const std::string& target = options.ImportTo;
  std::vector<std::string> kept = {options.Import};
  if (!options.SettingsFile.empty()) kept.push_back(options.SettingsFile);
  for (const std::string_view name : {DimsFile, PunchFile, Accs1File, Accs2File, CheckFile}) {
    kept.push_back(CataloguePath(name));
  }
  for (const std::string& file : kept) {
    if (AreSame(file, target)) return "--to would overwrite " + file;
  }
  // A save keeps the former file as its backup, which would be the list itself.
  if (AreSame(options.Import, target + ".bak")) {
    return "--to would overwrite " + options.Import + ", the backup of its file";
  }
  std::error_code error;
  const bool there = fs::exists(fs::symlink_status(NativePath(target), error));
  if (there && !options.Replace) return target + " is there already; --replace writes over it";
  return "";
}

int ImportList(const BatchOptions& options, const CatalogueTables& catalogues, Console& console) {
  const std::string& settings =
      options.SettingsFile.empty() ? options.ImportTo : options.SettingsFile;
  if (!console.Try(settings, [&] { StartAfresh(catalogues, options.DrawingWidth); })) {
    return ExitFault;
  }
  SectionList list;
  if (!console.Try(options.Import, [&] { list = ListOfFile(ReadWholeFile(options.Import)); })) {
    return ExitFault;
  }
  SayLeftOut(list, console);
  if (list.Rows.empty()) {
    console.SayFault(options.Import, "there are no sections in it");
    return ExitFault;
  }
  NewProjectTables(TheDesktop().Now().Day);
  const SectionPlan plan = PlanOf(list, {}, 0);
  const int refused = SayRefused(list, plan, options.Import, console);
  if (refused > 0 && !options.SkipRefused) {
    console.SayFault(options.Import, CountOf(refused, "row") +
                                         " refused, nothing written; --skip-refused takes the "
                                         "others");
    return ExitFault;
  }
  const auto imported = static_cast<int>(ApplyPlan(plan, ChangeKind::ImportSections).size());
  if (imported == 0) {
    console.SayFault(options.Import, "no row of it is taken, nothing written");
    return ExitFault;
  }
  std::string note;
  if (!console.Try(options.ImportTo,
                   [&] { note = WriteProjectFile(AbsolutePath(options.ImportTo)); })) {
    return ExitFault;
  }
  if (!note.empty()) console.Say(note);
  console.Say(CountOf(imported, "section") + " imported" +
              (refused > 0 ? ", " + CountOf(refused, "row") + " left out" : ""));
  return ExitDone;
}

}  // namespace orvane
