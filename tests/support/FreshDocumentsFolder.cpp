#include "tests/support/FreshDocumentsFolder.h"

#include <windows.h>

namespace {

constexpr char kKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr char kValue[] = "Personal";

std::string Setting() {
  char text[MAX_PATH] = "";
  DWORD size = sizeof text;
  const DWORD flags = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;
  return RegGetValueA(HKEY_CURRENT_USER, kKey, kValue, flags, nullptr, text, &size) == ERROR_SUCCESS ? text : "";
}

void SetSetting(const std::string& text) {
  if (text.empty()) {
    RegDeleteKeyValueA(HKEY_CURRENT_USER, kKey, kValue);
    return;
  }
  RegSetKeyValueA(HKEY_CURRENT_USER, kKey, kValue, REG_EXPAND_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
}

}  // namespace

FreshDocumentsFolder::FreshDocumentsFolder() : before_(Setting()) {
  SetSetting(Path());
}

FreshDocumentsFolder::~FreshDocumentsFolder() {
  SetSetting(before_);
}
