#include "tests/system/PluginFixture.h"

#include <filesystem>

PluginFixture::PluginFixture(const std::string& modulePath) : host_(modulePath) {
  std::filesystem::create_directories(documents_.DataFolder());
  WriteSchedule(ThreeBroadcasts());
  EXPECT_TRUE(WriteFileBytes(ArchiveFile(), ""));
}

HWND PluginFixture::StartPlugin(uint32_t handle) {
  EXPECT_NE(host_.Start(handle), 0u);
  const HWND window = host_.WindowOf(handle);
  EXPECT_TRUE(IsWindowVisible(window));
  PumpFor(0);
  UpdateWindow(window);
  host_.Clear();
  return window;
}

// It takes the room that the panel above and the strip below leave.
HWND PluginFixture::Grid(HWND window) {
  RECT place;
  GetClientRect(window, &place);
  return ChildWindowFromPointEx(window, {place.right / 2, place.bottom * 2 / 3}, CWP_SKIPINVISIBLE);
}

void PluginFixture::Key(HWND window, WPARAM key) {
  PostMessageA(window, WM_KEYDOWN, key, 1);
  PumpFor(0);
}

void PluginFixture::SwitchAutoTuning(HWND window) {
  SetFocus(Grid(window));
  for (int i = 0; i < 9 && GetFocus() != Panel(window); ++i) KeyWhereTheFocusIs(VK_TAB);
  KeyWhereTheFocusIs(VK_TAB);
  KeyWhereTheFocusIs(VK_SPACE);
  SetFocus(Grid(window));
}

void PluginFixture::PressFirstMediaButton(HWND window) {
  SetFocus(Grid(window));
  KeyWhereTheFocusIs(VK_TAB);
  KeyWhereTheFocusIs(VK_SPACE);
}

void PluginFixture::Choose(HWND window, const std::string& item) {
  for (const MenuEntry& entry : Entries(GetMenu(window))) {
    if (entry.text == item && entry.id != static_cast<UINT>(-1)) PostMessageA(window, WM_COMMAND, entry.id, 0);
  }
  PumpFor(0);
}

void PluginFixture::ChooseInGrid(HWND window, char letter, const std::function<void()>& then) {
  const auto menu = [] { return FakeHost::Find("", "#32768"); };
  bool isChosen = false;
  host_.When([=] { return menu() != nullptr; },
             [&] {
               isChosen = PostMessageA(menu(), WM_CHAR, static_cast<WPARAM>(letter), 0);
               then();
             });
  PostMessageA(Grid(window), WM_CONTEXTMENU, 0, -1);
  EXPECT_TRUE(PumpUntil([&] { return isChosen && !menu(); }));
}

std::vector<uint32_t> PluginFixture::Codes() const {
  std::vector<uint32_t> codes;
  for (const HostCall& call : host_.Calls()) codes.push_back(call.code);
  return codes;
}

std::vector<MenuEntry> Entries(HMENU menu) {
  std::vector<MenuEntry> entries;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[128] = "";
    GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
    const bool isChecked = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_CHECKED) != 0;
    entries.push_back({text, isChecked, GetMenuItemID(menu, i)});
    std::ranges::copy(Entries(GetSubMenu(menu, i)), std::back_inserter(entries));
  }
  return entries;
}
