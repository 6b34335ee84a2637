#include "core/settings.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <variant>
#include <vector>

#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"

namespace orvane {

Boolean SettingsLossTold = False;

namespace {

// The keys below the root.
constexpr std::string_view Registration = "\\Registration";
constexpr std::string_view General = "\\Settings";
constexpr std::string_view PageSetup = "\\Settings\\PageSetup";
constexpr std::string_view Drawings = "\\Settings\\Drawings";
constexpr std::string_view MaxLengths = "\\Settings\\MaxDims";
constexpr std::string_view Screen = "\\Settings\\Screen";
constexpr std::string_view NormalWindow = "\\Settings\\NormalWindow";
constexpr std::string_view Bars = "\\Settings\\Bars";
constexpr std::string_view RecentFiles = "\\Settings\\RecentFiles";

// Where a setting is held while the system runs: nowhere, in a value of the model, or in a row of
// MaxDims.
struct InMaxDims {
  int Row = 0;
};
using Holder = std::variant<std::monostate, std::string*, std::int16_t*, double*, InMaxDims>;

struct Setting {
  std::string_view Key;
  std::string_view Name;
  std::optional<std::string> Default;  // none: the caller has it
  Holder HeldIn;
};

// Every setting, in the order in which the values of a key are read and written.
const std::vector<Setting>& Settings() {
  static const std::vector<Setting> settings = [] {
    std::vector<Setting> all = {
        // clang-format off
        {Registration, "Company Name",     "",           &CompanyName},
        {Registration, "Company Details",  "",           &CompanyDetails},
        {General,      "ProjectDirectory", "",           {}},
        {General,      "CAMDirectory",     "",           {}},
        {General,      "Catalogue folder", "",           {}},
        {PageSetup,    "LeftMargin",       "10",         &LeftMargin},
        {PageSetup,    "RightMargin",      "10",         &RightMargin},
        {PageSetup,    "TopMargin",        "10",         &TopMargin},
        {PageSetup,    "BottomMargin",     "10",         &BottomMargin},
        {Drawings,     "MinHoleSep",       "4",          &MinHoleSep},
        {Screen,       "State",            "0",          {}},
        {Screen,       "Width",            std::nullopt, {}},
        {Screen,       "Height",           std::nullopt, {}},
        {Screen,       "Top",              std::nullopt, {}},
        {Screen,       "Left",             std::nullopt, {}},
        {NormalWindow, "Width",            std::nullopt, {}},
        {NormalWindow, "Height",           std::nullopt, {}},
        {NormalWindow, "Top",              std::nullopt, {}},
        {NormalWindow, "Left",             std::nullopt, {}},
        {Bars,         "GridPane",         "0",          {}},
        {Bars,         "GridShare",        "0",          {}},
        {Bars,         "PanelShare",       "0",          {}},
        {RecentFiles,  "Recent1",          "",           {}},
        {RecentFiles,  "Recent2",          "",           {}},
        {RecentFiles,  "Recent3",          "",           {}},
        {RecentFiles,  "Recent4",          "",           {}},
        {RecentFiles,  "Recent5",          "",           {}},
        // clang-format on
    };
    for (const SectionFamily& family : SectionFamilies) {
      all.push_back({MaxLengths, family.Letter, FormatNumber(family.DefaultMaxLength, 0),
                     InMaxDims{FamilyNumber(family.Letter)}});
    }
    return all;
  }();
  return settings;
}

// The number shown for an error that isn't one of the system's own, such as a lack of memory.
constexpr int ForeignErrorNumber = 900;

void ShowError(int number, const std::string& description) {
  TheDesktop().Message("ERROR #" + DecimalText(number) + " : " + description);
}

// Runs an action on the store; an error in it is shown, and gives `failed`.
template <class Result>
Result Guarded(const std::function<Result()>& action, Result failed) {
  try {
    return action();
  } catch (const RuntimeError& error) {
    ShowError(error.Number(), error.Description());
  } catch (const std::exception& error) {
    ShowError(ForeignErrorNumber, error.what());
  }
  return failed;
}

// A stored text into the place that holds the setting.
void Take(const Holder& holder, const std::string& text) {
  if (const auto* held = std::get_if<std::string*>(&holder)) {
    **held = text;
  } else if (const auto* margin = std::get_if<std::int16_t*>(&holder)) {
    **margin = Whole(Val(text));
  } else if (const auto* size = std::get_if<double*>(&holder)) {
    **size = Val(text);
  } else if (const auto* length = std::get_if<InMaxDims>(&holder)) {
    MaxDims.At(length->Row) = Val(text);
  }
}

// What is held as the text to store: numbers in the form "0".
std::string TextOf(const Holder& holder) {
  if (const auto* held = std::get_if<std::string*>(&holder)) return **held;
  if (const auto* margin = std::get_if<std::int16_t*>(&holder)) return DecimalText(**margin);
  if (const auto* size = std::get_if<double*>(&holder)) return FormatNumber(**size, 0);
  if (const auto* length = std::get_if<InMaxDims>(&holder)) {
    return FormatNumber(MaxDims.At(length->Row), 0);
  }
  return {};
}

// The stored text, else the setting's default, else the caller's.
std::string StoredText(const Setting& setting, const std::string& callersDefault = {}) {
  return GetRegValue(TheSettingsRoot, SettingsKey + std::string(setting.Key),
                     std::string(setting.Name), setting.Default.value_or(callersDefault));
}

void StoreText(const Setting& setting, const std::string& text) {
  const bool stored = SetRegValue(TheSettingsRoot, SettingsKey + std::string(setting.Key),
                                  std::string(setting.Name), text);
  if (stored || SettingsLossTold != False) return;
  SettingsLossTold = True;
  TheDesktop().Message(
      "The settings can't be stored.\rWhat is set now holds until the program ends.");
}

// A line on a stored number that can't be held: the setting, what is stored, what takes its place.
std::string Replaced(const Setting& setting, const std::string& stored, const std::string& by) {
  const std::size_t last = setting.Key.find_last_of('\\') + 1;
  return "\r" + std::string(setting.Key.substr(last)) + ", " + std::string(setting.Name) + ": " +
         stored + " becomes " + by;
}

void TellReplaced(const std::string& lines) {
  if (lines.empty()) return;
  TheDesktop().Message(std::string(DescriptionOf(Failure::Overflow)) + " in the settings" + lines);
}

// A stored number of a setting that its callers hold.
double StoredNumber(const Setting& setting, double callersDefault) {
  const std::string byDefault = ShortestText(callersDefault);
  const std::string text = StoredText(setting, byDefault);
  try {
    return Val(text);
  } catch (const RuntimeError&) {
    TellReplaced(Replaced(setting, text, byDefault));
    return callersDefault;
  }
}

void LoadKey(std::string_view key) {
  std::string replaced;
  for (const Setting& setting : Settings()) {
    if (setting.Key != key) continue;
    const std::string text = StoredText(setting);
    try {
      Take(setting.HeldIn, text);
    } catch (const RuntimeError&) {
      const std::string byDefault = setting.Default.value_or("");
      replaced += Replaced(setting, text, byDefault);
      Take(setting.HeldIn, byDefault);
    }
  }
  TellReplaced(replaced);
}

void SaveKey(std::string_view key) {
  for (const Setting& setting : Settings()) {
    if (setting.Key == key) StoreText(setting, TextOf(setting.HeldIn));
  }
}

// A setting that nothing holds, so that its callers name it.
const Setting& SettingOf(std::string_view key, std::string_view name) {
  for (const Setting& setting : Settings()) {
    if (setting.Key == key && setting.Name == name) return setting;
  }
  throw std::logic_error("no such setting");
}

const Setting& RecentSetting(int number) {
  return SettingOf(RecentFiles, "Recent" + DecimalText(number));
}

}  // namespace

std::string GetRegValue(SettingsRoot root, const std::string& key, const std::string& name,
                        const std::string& defaultText) {
  return Guarded<std::string>(
      [&] { return TheDesktop().Settings().Query(root, key, name).value_or(defaultText); }, "");
}

bool SetRegValue(SettingsRoot root, const std::string& key, const std::string& name,
                 const std::string& text) {
  return Guarded<bool>([&] { return TheDesktop().Settings().Store(root, key, name, text); }, false);
}

void RequireStoredNumbers() {
  for (const Setting& setting : Settings()) Take(setting.HeldIn, StoredText(setting));
}

void LoadPageSetup() {
  LoadKey(PageSetup);
}
void SavePageSetup() {
  SaveKey(PageSetup);
}

void LoadDrawingSettings() {
  LoadKey(Drawings);
}
void SaveDrawingSettings() {
  SaveKey(Drawings);
}

void LoadMaxDims() {
  MaxDims.Resize(static_cast<int>(SectionFamilies.size()));
  LoadKey(MaxLengths);
}
void SaveMaxDims() {
  SaveKey(MaxLengths);
}

void LoadRegistration() {
  LoadKey(Registration);
}
void SaveRegistration() {
  SaveKey(Registration);
}

std::string ProjectDirectory() {
  return StoredText(SettingOf(General, "ProjectDirectory"));
}
void StoreProjectDirectory(const std::string& folder) {
  StoreText(SettingOf(General, "ProjectDirectory"), folder);
}

std::string CamDirectory() {
  return StoredText(SettingOf(General, "CAMDirectory"));
}
void StoreCamDirectory(const std::string& folder) {
  StoreText(SettingOf(General, "CAMDirectory"), folder);
}

std::string CatalogueFolder() {
  return StoredText(SettingOf(General, "Catalogue folder"));
}
void StoreCatalogueFolder(const std::string& folder) {
  StoreText(SettingOf(General, "Catalogue folder"), folder);
}

std::string ScreenSetting(std::string_view name, const std::string& presentValue) {
  return StoredText(SettingOf(Screen, name), presentValue);
}
double ScreenNumber(std::string_view name, double presentValue) {
  return StoredNumber(SettingOf(Screen, name), presentValue);
}
void StoreScreenSetting(std::string_view name, const std::string& text) {
  StoreText(SettingOf(Screen, name), text);
}

double NormalWindowNumber(std::string_view name, double presentValue) {
  return StoredNumber(SettingOf(NormalWindow, name), presentValue);
}
void StoreNormalWindow(std::string_view name, const std::string& text) {
  StoreText(SettingOf(NormalWindow, name), text);
}

double BarNumber(std::string_view name) {
  return StoredNumber(SettingOf(Bars, name), 0);
}
void StoreBar(std::string_view name, const std::string& text) {
  StoreText(SettingOf(Bars, name), text);
}

std::string RecentFile(int number) {
  return StoredText(RecentSetting(number));
}
void StoreRecentFile(int number, const std::string& path) {
  StoreText(RecentSetting(number), path);
}

}  // namespace orvane
