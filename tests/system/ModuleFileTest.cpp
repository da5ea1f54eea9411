// The built file itself: what it exports, what it needs of Windows, what it says of itself.
#include <gmock/gmock.h>
#include <windows.h>
#include <winver.h>

#include <algorithm>
#include <cstring>

#include "tests/support/FakeHost.h"
#include "tests/support/TestEnvironment.h"

namespace {

// The file as it lies on the disk; addresses are those that its headers speak of.
class ModuleFile {
 public:
  ModuleFile() : bytes_(ReadFileBytes(FakeHost::ModulePath())) {}

  [[nodiscard]] IMAGE_NT_HEADERS32 Headers() const {
    return Read<IMAGE_NT_HEADERS32>(static_cast<size_t>(Read<IMAGE_DOS_HEADER>(0).e_lfanew));
  }
  [[nodiscard]] IMAGE_DATA_DIRECTORY Directory(uint32_t index) const {
    return Headers().OptionalHeader.DataDirectory[index];
  }
  template <class Record>
  [[nodiscard]] Record At(uint32_t address) const {
    return Read<Record>(OffsetOf(address));
  }
  [[nodiscard]] std::string TextAt(uint32_t address) const {
    const size_t offset = OffsetOf(address);
    return offset < bytes_.size() ? bytes_.c_str() + offset : "";
  }

 private:
  template <class Record>
  [[nodiscard]] Record Read(size_t offset) const {
    Record record = {};
    if (offset + sizeof record <= bytes_.size()) std::memcpy(&record, bytes_.data() + offset, sizeof record);
    return record;
  }
  [[nodiscard]] size_t OffsetOf(uint32_t address) const {
    const IMAGE_NT_HEADERS32 headers = Headers();
    const size_t first = static_cast<size_t>(Read<IMAGE_DOS_HEADER>(0).e_lfanew) + sizeof headers;
    for (size_t i = 0; i < headers.FileHeader.NumberOfSections; ++i) {
      const auto section = Read<IMAGE_SECTION_HEADER>(first + i * sizeof(IMAGE_SECTION_HEADER));
      const uint32_t inside = address - section.VirtualAddress;
      if (inside < section.SizeOfRawData) return section.PointerToRawData + inside;
    }
    return bytes_.size();
  }

  std::string bytes_;
};

}  // namespace

TEST(ModuleFile, ExportsFourUndecoratedNames) {
  const ModuleFile file;
  const auto exports = file.At<IMAGE_EXPORT_DIRECTORY>(file.Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
  EXPECT_EQ(exports.NumberOfFunctions, 4u);
  EXPECT_EQ(file.TextAt(exports.Name), "marlux3.dll");
  std::vector<std::string> names;
  for (uint32_t i = 0; i < exports.NumberOfNames; ++i) {
    names.push_back(file.TextAt(file.At<uint32_t>(exports.AddressOfNames + i * 4)));
  }
  EXPECT_THAT(names, testing::ElementsAre("zqnPluginDone", "zqnPluginInit", "zqnPluginNotify", "zqnPluginStart"));
}

TEST(ModuleFile, NeedsNothingThatABareWindowsLacks) {
  const ModuleFile file;
  std::vector<std::string> names;
  uint32_t at = file.Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress;
  for (;; at += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
    const auto import = file.At<IMAGE_IMPORT_DESCRIPTOR>(at);
    if (import.Name == 0) break;
    std::string name = file.TextAt(import.Name);
    std::transform(name.begin(), name.end(), name.begin(), [](char c) { return static_cast<char>(std::toupper(c)); });
    names.push_back(name);
  }
  const std::vector<std::string> kWindows = {"KERNEL32.DLL", "USER32.DLL",   "GDI32.DLL",    "ADVAPI32.DLL",
                                             "SHELL32.DLL",  "COMCTL32.DLL", "COMDLG32.DLL", "MSIMG32.DLL",
                                             "WS2_32.DLL",   "WINMM.DLL",    "MSVCRT.DLL"};
  EXPECT_THAT(names, testing::Each(testing::AnyOfArray(kWindows)));
  EXPECT_THAT(names, testing::IsSupersetOf({"KERNEL32.DLL", "USER32.DLL"}));
}

TEST(ModuleFile, MayBeMovedAndHasNoCodeInItsData) {
  const ModuleFile file;
  const IMAGE_NT_HEADERS32 headers = file.Headers();
  EXPECT_EQ(headers.FileHeader.Machine, IMAGE_FILE_MACHINE_I386);
  constexpr WORD kWanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  EXPECT_EQ(headers.OptionalHeader.DllCharacteristics & kWanted, kWanted);
  EXPECT_EQ(headers.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
  EXPECT_GT(file.Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0u);
}

TEST(ModuleFile, SaysItsVersion) {
  DWORD ignored = 0;
  const std::string path = FakeHost::ModulePath();
  std::string block(GetFileVersionInfoSizeA(path.c_str(), &ignored), '\0');
  ASSERT_TRUE(GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\", &found, &size));
  const auto* version = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(version->dwFileVersionMS, 0x30000u);
  EXPECT_EQ(version->dwFileVersionLS, 0u);
  for (const auto& [key, text] : {std::pair{"ProductName", "Marlux 3"}, std::pair{"FileVersion", "3.0.0.0"}}) {
    const std::string entry = std::string("\\StringFileInfo\\040904E4\\") + key;
    ASSERT_TRUE(VerQueryValueA(block.data(), entry.c_str(), &found, &size)) << key;
    EXPECT_STREQ(static_cast<const char*>(found), text);
  }
}
