// Marlux 3. A documents folder and a registry of a test's own, for as long as the object lives.
//
//   FreshDocumentsFolder documents;   // SHGetFolderPathW(CSIDL_PERSONAL) leads to documents.Path() now
//
// The shell asks the registry at each call, so this works within the running process. Not for two programs at once.
#pragma once

#include "tests/support/FreshRegistry.h"
#include "tests/support/TestEnvironment.h"

class FreshDocumentsFolder {
 public:
  FreshDocumentsFolder() {
    constexpr char kKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
    RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "Personal", REG_EXPAND_SZ, Path().c_str(),
                    static_cast<DWORD>(Path().size()) + 1);
  }

  [[nodiscard]] const std::string& Path() const { return folder_.Path(); }  // without a backslash at the end
  [[nodiscard]] std::string DataFolder() const { return Path() + "\\Corvane\\Marlux3"; }  // not made by this class

 private:
  FreshRegistry registry_;  // which also tells where the folder is
  TemporaryFolder folder_;
};
