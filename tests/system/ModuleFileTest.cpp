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
  // Who registers a handler writes fs:[0]: from EAX, from ESP, off the stack. The system would end the host at it.
  using namespace std::string_view_literals;
  for (const auto write : {"\x64\xA3\0\0\0\0"sv, "\x64\x89\x25\0\0\0\0"sv, "\x64\x8F\x05\0\0\0\0"sv}) {
    EXPECT_EQ(std::string_view(base + header.BaseOfCode, header.SizeOfCode).find(write), std::string_view::npos);
  }
}
