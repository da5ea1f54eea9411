// The built file itself: how the system may load it.
#include "tests/support/FakeHost.h"
#include "tests/support/Test.h"

TEST(ModuleFile, MayBeMovedAndHasNoCodeInItsDataAndNoHandlers) {
  const FakeHost host;
  const auto* const base = reinterpret_cast<const char*>(GetModuleHandleA("marlux3.dll"));
  const auto at = reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew;
  const IMAGE_OPTIONAL_HEADER32& header = reinterpret_cast<const IMAGE_NT_HEADERS32*>(base + at)->OptionalHeader;
  constexpr WORD kWanted =
      IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT | IMAGE_DLLCHARACTERISTICS_NO_SEH;
  EXPECT_EQ(header.DllCharacteristics & kWanted, kWanted);
  EXPECT_GT(header.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0u);
  // Who registers a handler writes fs:[0], from a register, off the stack or a number. The system would end the host.
  std::vector<std::string> writes = {"\x64\xA3", "\x64\x8F\x05", "\x64\xC7\x05"};
  for (int reg = 0; reg < 8; ++reg) writes.push_back(std::string("\x64\x89") + static_cast<char>(reg << 3 | 5));
  for (const std::string& write : writes) {
    const std::string_view code(base + header.BaseOfCode, header.SizeOfCode);
    EXPECT_EQ(code.find(write + std::string(4, '\0')), std::string_view::npos);
  }
}
