#include "core/settings_registry.h"

#include <windows.h>

#include <cstddef>

namespace orvane {

namespace {

// Access values and the value type as the registry's calls take them.
constexpr REGSAM QueryValueAccess = 1;
constexpr REGSAM AllAccess = 63;
constexpr DWORD StringType = 1;

constexpr std::size_t BufferLength = 255;

HKEY HiveOf(SettingsRoot root) {
  switch (root) {
    case SettingsRoot::LocalMachine:
      break;
  }
  return HKEY_LOCAL_MACHINE;
}

// Text from one code page into another. The 8-bit calls take and give the system's own, while the
// system's texts are UTF-8.
std::string Converted(const std::string& text, UINT from, UINT to) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int wideLength = MultiByteToWideChar(from, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
  MultiByteToWideChar(from, 0, text.data(), length, wide.data(), wideLength);

  const int bytes =
      WideCharToMultiByte(to, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
  std::string converted(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(to, 0, wide.data(), wideLength, converted.data(), bytes, nullptr, nullptr);
  return converted;
}

std::string ToSystemPage(const std::string& text) {
  return Converted(text, CP_UTF8, CP_ACP);
}
std::string FromSystemPage(const std::string& text) {
  return Converted(text, CP_ACP, CP_UTF8);
}

}  // namespace

std::optional<std::string> RegistrySettings::Query(SettingsRoot root, const std::string& key,
                                                   const std::string& name) {
  std::string buffer(BufferLength, ' ');
  HKEY opened = nullptr;
  if (RegOpenKeyExA(HiveOf(root), ToSystemPage(key).c_str(), 0, QueryValueAccess, &opened) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  const std::string valueName = ToSystemPage(name);
  DWORD length = 0;
  const auto query = [&] {
    length = static_cast<DWORD>(buffer.size());
    return RegQueryValueExA(opened, valueName.c_str(), nullptr, nullptr,
                            reinterpret_cast<BYTE*>(buffer.data()), &length);
  };
  LSTATUS result = query();
  if (length > buffer.size()) {
    buffer.resize(length, ' ');
    result = query();
  }
  RegCloseKey(opened);
  if (result != ERROR_SUCCESS) return std::nullopt;
  // The reported length counts the zero that ends the text; a value without any bytes has none.
  buffer.resize(length == 0 ? 0 : length - 1);
  return FromSystemPage(buffer);
}

bool RegistrySettings::Store(SettingsRoot root, const std::string& key, const std::string& name,
                             const std::string& text) {
  HKEY opened = nullptr;
  DWORD disposition = 0;
  if (RegCreateKeyExA(HiveOf(root), ToSystemPage(key).c_str(), 0, nullptr, 0, AllAccess, nullptr,
                      &opened, &disposition) != ERROR_SUCCESS) {
    return false;
  }
  const std::string stored = ToSystemPage(text);
  const LSTATUS result = RegSetValueExA(opened, ToSystemPage(name).c_str(), 0, StringType,
                                        reinterpret_cast<const BYTE*>(stored.c_str()),
                                        static_cast<DWORD>(stored.size() + 1));
  RegCloseKey(opened);
  return result == ERROR_SUCCESS;
}

}  // namespace orvane
