// The built file itself: what it exports, what it needs of Windows, what it says of itself.
#include <gmock/gmock.h>
#include <windows.h>
#include <winver.h>

#include "tests/support/FakeHost.h"

namespace {

// The file as it lies in memory; addresses count from its start.
class ModuleFile : public testing::Test {
 protected:
  template <class Record>
  [[nodiscard]] const Record& At(uint32_t address) const {
    return *reinterpret_cast<const Record*>(reinterpret_cast<const char*>(GetModuleHandleA("marlux3.dll")) + address);
  }
  [[nodiscard]] std::string TextAt(uint32_t address) const { return &At<char>(address); }
  [[nodiscard]] const IMAGE_NT_HEADERS32& Headers() const {
    return At<IMAGE_NT_HEADERS32>(static_cast<uint32_t>(At<IMAGE_DOS_HEADER>(0).e_lfanew));
  }
  [[nodiscard]] const IMAGE_DATA_DIRECTORY& Directory(uint32_t index) const {
    return Headers().OptionalHeader.DataDirectory[index];
  }

  FakeHost host_;
};

}  // namespace

TEST_F(ModuleFile, ExportsFourUndecoratedNames) {
  const auto& exports = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
  EXPECT_EQ(exports.NumberOfFunctions, 4u);
  EXPECT_EQ(TextAt(exports.Name), "marlux3.dll");
  std::vector<std::string> names;
  for (uint32_t i = 0; i < exports.NumberOfNames; ++i) {
    names.push_back(TextAt(At<uint32_t>(exports.AddressOfNames + i * 4)));
  }
  EXPECT_THAT(names, testing::ElementsAre("zqnPluginDone", "zqnPluginInit", "zqnPluginNotify", "zqnPluginStart"));
}

TEST_F(ModuleFile, NeedsNothingThatABareWindowsLacks) {
  std::vector<std::string> names;
  const auto* import = &At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
  for (; import->Name != 0; ++import) {
    names.push_back(TextAt(import->Name));
    CharUpperA(names.back().data());
  }
  const std::vector<std::string> kWindows = {"KERNEL32.DLL", "USER32.DLL",   "GDI32.DLL",    "ADVAPI32.DLL",
                                             "SHELL32.DLL",  "COMCTL32.DLL", "COMDLG32.DLL", "MSIMG32.DLL",
                                             "WS2_32.DLL",   "WINMM.DLL",    "MSVCRT.DLL"};
  EXPECT_THAT(names, testing::Each(testing::AnyOfArray(kWindows)));
  EXPECT_THAT(names, testing::Contains("KERNEL32.DLL"));
}

TEST_F(ModuleFile, MayBeMovedAndHasNoCodeInItsData) {
  const IMAGE_NT_HEADERS32& headers = Headers();
  constexpr WORD kWanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  EXPECT_EQ(headers.OptionalHeader.DllCharacteristics & kWanted, kWanted);
  EXPECT_EQ(headers.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
  EXPECT_GT(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0u);
}

TEST_F(ModuleFile, SaysItsVersion) {
  DWORD ignored = 0;
  const std::string path = FakeHost::ModulePath();
  std::string block(GetFileVersionInfoSizeA(path.c_str(), &ignored), '\0');
  ASSERT_TRUE(GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\", &found, &size));
  const auto* version = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(version->dwFileVersionMS, 0x30000u);
  for (const auto& [key, text] : {std::pair{"ProductName", "Marlux 3"}, std::pair{"FileVersion", "3.0.0.0"}}) {
    const std::string entry = std::string("\\StringFileInfo\\040904E4\\") + key;
    ASSERT_TRUE(VerQueryValueA(block.data(), entry.c_str(), &found, &size)) << key;
    EXPECT_STREQ(static_cast<const char*>(found), text);
  }
}
