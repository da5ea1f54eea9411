#include "tests/system/PluginFixture.h"

#include <filesystem>

PluginFixture::PluginFixture(const std::string& modulePath) : host_(modulePath) {
  std::filesystem::create_directories(documents_.DataFolder());
  WriteSchedule(ThreeBroadcasts());
  EXPECT_TRUE(WriteFileBytes(ArchiveFile(), ""));
}

void PluginFixture::WriteSchedule(const std::string& content) {
  ASSERT_TRUE(WriteFileBytes(DataFile(), content));
}

std::string PluginFixture::ThreeBroadcasts() {
  return Header() + Line("9420", "Middle") + Line("6005", "Low") + Line("15770.5", "High");
}

HWND PluginFixture::StartPlugin(uint32_t handle) {
  EXPECT_NE(host_.Start(handle), 0u);
  const HWND window = host_.WindowOf(handle);
  EXPECT_TRUE(IsWindowVisible(window));
  host_.PumpFor(0);
  UpdateWindow(window);
  host_.Clear();
  return window;
}

// The grid takes the room that panel and strip leave; the strip is the child with a text.
HWND PluginFixture::Grid(HWND window) {
  HWND largest = nullptr;
  LONG area = 0;
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    RECT place;
    GetClientRect(child, &place);
    if (IsWindowVisible(child) && place.right * place.bottom > area) largest = child, area = place.right * place.bottom;
  }
  return largest;
}

HWND PluginFixture::Panel(HWND window) {
  const POINT inside = {1, 1};
  return ChildWindowFromPoint(window, inside);
}

std::string PluginFixture::Counts(HWND window) {
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (TextOf(child).ends_with(" broadcasts")) return TextOf(child);
  }
  return "";
}

void PluginFixture::Key(HWND window, WPARAM key, LPARAM flags) {
  PostMessageA(window, WM_KEYDOWN, key, flags);
  host_.PumpFor(0);
}

uint32_t PluginFixture::DoubleClickLastRow(HWND grid) {
  host_.Clear();
  for (int y = 200; y > 40 && host_.Calls().empty(); y -= 6) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDOWN, WM_LBUTTONUP}) {
      PostMessageA(grid, message, 0, MAKELPARAM(20, y));
    }
    host_.PumpFor(0);
  }
  const std::vector<uint32_t> tuned = TunedFrequencies();
  return tuned.empty() ? 0 : tuned.front();
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
  host_.PumpFor(0);
}

void PluginFixture::ChooseInGrid(HWND window, char letter, LPARAM at) {
  const auto menu = [] { return FakeHost::Find("", "#32768"); };
  bool isChosen = false;
  host_.When([=] { return menu() != nullptr; },
             [&] {
               PostMessageA(menu(), WM_CHAR, static_cast<WPARAM>(letter), 0);
               isChosen = true;
             });
  PostMessageA(Grid(window), WM_CONTEXTMENU, 0, at);
  EXPECT_TRUE(host_.PumpUntil([&] { return isChosen && !menu(); }));
}

std::vector<uint32_t> PluginFixture::Codes() const {
  std::vector<uint32_t> codes;
  for (const HostCall& call : host_.Calls()) codes.push_back(call.code);
  return codes;
}

std::vector<uint32_t> PluginFixture::TunedFrequencies() const {
  std::vector<uint32_t> frequencies;
  for (const HostCall& call : host_.Calls()) {
    if (call.code == 0x800) frequencies.push_back(call.a);
  }
  return frequencies;
}

std::vector<MenuEntry> Entries(HMENU menu) {
  std::vector<MenuEntry> entries;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[128] = "";
    GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
    const bool isChecked = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_CHECKED) != 0;
    entries.push_back({text, isChecked, GetMenuItemID(menu, i)});
    if (const HMENU below = GetSubMenu(menu, i)) {
      for (MenuEntry& entry : Entries(below)) entries.push_back(std::move(entry));
    }
  }
  return entries;
}
