#include "tests/support/FreshDocumentsFolder.h"

#include <windows.h>

FreshDocumentsFolder::FreshDocumentsFolder() {
  constexpr char kKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
  RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "Personal", REG_EXPAND_SZ, Path().c_str(),
                  static_cast<DWORD>(Path().size() + 1));
}
