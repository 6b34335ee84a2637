// The settings: text values under keys of the store, each with a default.
#pragma once

#include <string>
#include <string_view>

#include "core/numbers.h"
#include "core/settings_store.h"

namespace orvane {

// The value's text, or the default for a missing key or value. An error raised inside shows a
// message box with "ERROR #", its number, " : " and its description, and gives empty text.
std::string GetRegValue(SettingsRoot root, const std::string& key, const std::string& name,
                        const std::string& defaultText);

// Stores the text; true when it was stored. An error raised inside shows the same message box and
// gives false.
bool SetRegValue(SettingsRoot root, const std::string& key, const std::string& name,
                 const std::string& text);

// The settings, by key.

// Each procedure reads or writes the values of one key in their fixed order. Numbers are stored in
// the form "0" and read back by number prefix, margins then rounded to 16 bits. A stored number
// that its field can't hold is told with its setting, and that setting alone gets its default: one
// bad margin must not take the others off the paper. MinHoleSep is typed in whole
// millimetres, so the form "0" takes no fraction from it that a person entered. What can't be
// stored is lost at the next start; that is told, once.

// It was told since the start.
extern Boolean SettingsLossTold;

// Raises "Overflow" where a stored number is more than its value can hold; the others are loaded
// then or not. For who works alone through the night: what the Load procedures below do, fall to
// the default and tell a person, would print a whole run on margins that nobody chose.
void RequireStoredNumbers();

void LoadPageSetup();
void SavePageSetup();
void LoadDrawingSettings();
void SaveDrawingSettings();
void LoadMaxDims();
void SaveMaxDims();
void LoadRegistration();  // CompanyName, CompanyDetails
void SaveRegistration();

// The folders that the file dialogs start in; they are held nowhere but in the store.
std::string ProjectDirectory();
void StoreProjectDirectory(const std::string& folder);
std::string CamDirectory();
void StoreCamDirectory(const std::string& folder);

// "Catalogue folder", the office's own; empty for the catalogue that ships.
std::string CatalogueFolder();
void StoreCatalogueFolder(const std::string& folder);

// The window: "State", which is "0" if it isn't stored, and "Width", "Height", "Top" and "Left",
// for which a missing value gives the present one. Another name is an error of the program.
std::string ScreenSetting(std::string_view name, const std::string& presentValue = {});
// The same as a number, by number prefix. One that is too large for a float is told, and gives the
// present value.
double ScreenNumber(std::string_view name, double presentValue);
void StoreScreenSetting(std::string_view name, const std::string& text);

// The place that a maximized window goes back to: "Width", "Height", "Top" and "Left" of the window
// within its frame; a missing value gives the present one. They have a key of their own, since the
// window's own measures are those of the maximized one then.
double NormalWindowNumber(std::string_view name, double presentValue);
void StoreNormalWindow(std::string_view name, const std::string& text);

// The bars between the window's areas: "GridPane", the width of what stands left of the drawing in
// device-independent pixels, and "GridShare" and "PanelShare", thousandths of its height that the
// grid and the panel take. 0 for a bar that nobody has moved yet.
double BarNumber(std::string_view name);
void StoreBar(std::string_view name, const std::string& text);

// The paths of the recent files, number 1 to 5; empty for none. Another number is an error of the
// program.
std::string RecentFile(int number);
void StoreRecentFile(int number, const std::string& path);

}  // namespace orvane
