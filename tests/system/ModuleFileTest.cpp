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
  constexpr WORD kWanted =
      IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT | IMAGE_DLLCHARACTERISTICS_NO_SEH;
  EXPECT_EQ(headers.OptionalHeader.DllCharacteristics & kWanted, kWanted);
  EXPECT_EQ(headers.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
  EXPECT_GT(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0u);
}

// Who registers a handler reads and writes fs:[0] (prefix 0x64, address 0); in a module without handlers the system
// would end the host at it.
TEST_F(ModuleFile, SetsNoHandlerOfItsOwn) {
  const IMAGE_OPTIONAL_HEADER32& header = Headers().OptionalHeader;
  const std::string_view code(&At<char>(header.BaseOfCode), header.SizeOfCode);
  using namespace std::string_view_literals;
  for (size_t at = code.find("\0\0\0\0"sv); at != code.npos; at = code.find("\0\0\0\0"sv, at + 1)) {
    const auto byte = [&](size_t back) { return at < back ? 0 : static_cast<uint8_t>(code[at - back]); };
    const bool isMove = byte(2) == 0x64 && (byte(1) & 0xFD) == 0xA1;
    EXPECT_FALSE(isMove || (byte(3) == 0x64 && (byte(1) & 0xC7) == 0x05)) << std::hex << at;
  }
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
