#include "plugin/DataFolders.h"

#include <filesystem>

#include "foundation/TmyRegistry.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/Test.h"

namespace fs = std::filesystem;

TEST(DataFolders, AreMadeBelowTheDocumentsFolderWithEachMissingParent) {
  const FreshDocumentsFolder documents;
  fs::remove_all(documents.Path());
  EXPECT_EQ(RecordingsFolder().Chars(), documents.DataFolder() + "\\Recordings");
  EXPECT_TRUE(fs::is_directory(documents.DataFolder() + "\\Recordings"));
}

TEST(DataFolders, AreThereForUsersWhoseNamesTheCodePageLacks) {
  const FreshDocumentsFolder documents;
  const std::wstring name = fs::path(documents.Path()).wstring() + L"\\\x0141ukasz \x6587";
  ASSERT_TRUE(fs::create_directory(name));
  const std::wstring key = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
  RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Personal", REG_EXPAND_SZ, name.c_str(),
                  static_cast<DWORD>(2 * name.size() + 2));
  EXPECT_FALSE(DataFolder().IsEmpty());
  EXPECT_TRUE(fs::is_directory(name + L"\\Corvane\\Marlux3"));
}

TEST(DataFolders, PluginFolderPrefersTheEnvironment) {
  const FreshRegistry machine(HKEY_LOCAL_MACHINE);
  TmyRegistry key;
  ASSERT_TRUE(key.Open(HKEY_LOCAL_MACHINE, "Software\\ZQN", KEY_ALL_ACCESS, true));
  const std::string longPath(3000, 'p');
  const std::tuple<const char*, const char*, std::string> kCases[] = {{nullptr, "C:\\registered", "C:\\registered"},
                                                                      {"C:\\set", "C:\\registered", "C:\\set"},
                                                                      {longPath.c_str(), nullptr, longPath},
                                                                      {nullptr, nullptr, ""}};
  for (const auto& [environment, registry, folder] : kCases) {
    SetEnvironmentVariableA("ZQN_PLUGIN_PATH", environment);
    key.DeleteValue("SearchPath");
    if (registry) key.WriteString("SearchPath", registry);
    EXPECT_EQ(PluginFolder().Chars(), folder);
    EXPECT_EQ(HelpFile().Chars(), folder.empty() ? "" : folder + "\\marlux3.chm");
  }
  SetEnvironmentVariableA("ZQN_PLUGIN_PATH", nullptr);
}
