#include "core/settings_registry.h"

#include <windows.h>

#include <array>
#include <cstddef>

namespace orvane {

namespace {

// Access values and the value type as the registry's calls take them.
constexpr REGSAM QueryValueAccess = 1;
constexpr REGSAM AllAccess = 63;
constexpr DWORD StringType = 1;

constexpr std::size_t BufferLength = 255;

// The branches that a root is read in, the one that is written first. Only administrators may write
// the machine's, and people who share a machine share neither windows nor recent jobs: so the
// machine's holds what the office gives everybody, and each user's own goes before it.
std::array<HKEY, 2> BranchesOf(SettingsRoot root) {
  switch (root) {
    case SettingsRoot::LocalMachine:
      break;
  }
  return {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};
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

// An open key of the registry, which is closed when this goes.
class OpenKey {
 public:
  OpenKey() = default;
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY Get() const { return key_; }
  HKEY* Address() { return &key_; }  // for the call that opens it

 private:
  HKEY key_ = nullptr;
};

}  // namespace

namespace {

std::optional<std::string> QueryIn(HKEY branch, const std::string& key, const std::string& name) {
  const std::string keyName = ToSystemPage(key);
  const std::string valueName = ToSystemPage(name);
  std::string buffer(BufferLength, ' ');
  OpenKey opened;
  if (RegOpenKeyExA(branch, keyName.c_str(), 0, QueryValueAccess, opened.Address()) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  DWORD length = 0;
  const auto query = [&] {
    length = static_cast<DWORD>(buffer.size());
    return RegQueryValueExA(opened.Get(), valueName.c_str(), nullptr, nullptr,
                            reinterpret_cast<BYTE*>(buffer.data()), &length);
  };
  LSTATUS result = query();
  if (length > buffer.size()) {
    buffer.resize(length, ' ');
    result = query();
  }
  if (result != ERROR_SUCCESS) return std::nullopt;
  // The reported length counts the zero that ends the text; a value without any bytes has none.
  buffer.resize(length == 0 ? 0 : length - 1);
  return FromSystemPage(buffer);
}

}  // namespace

std::optional<std::string> RegistrySettings::Query(SettingsRoot root, const std::string& key,
                                                   const std::string& name) {
  for (const HKEY branch : BranchesOf(root)) {
    if (std::optional<std::string> found = QueryIn(branch, key, name)) return found;
  }
  return std::nullopt;
}

bool RegistrySettings::Store(SettingsRoot root, const std::string& key, const std::string& name,
                             const std::string& text) {
  const std::string keyName = ToSystemPage(key);
  const std::string valueName = ToSystemPage(name);
  const std::string stored = ToSystemPage(text);
  OpenKey opened;
  DWORD disposition = 0;
  if (RegCreateKeyExA(BranchesOf(root).front(), keyName.c_str(), 0, nullptr, 0, AllAccess, nullptr,
                      opened.Address(), &disposition) != ERROR_SUCCESS) {
    return false;
  }
  return RegSetValueExA(opened.Get(), valueName.c_str(), 0, StringType,
                        reinterpret_cast<const BYTE*>(stored.c_str()),
                        static_cast<DWORD>(stored.size() + 1)) == ERROR_SUCCESS;
}

}  // namespace orvane
