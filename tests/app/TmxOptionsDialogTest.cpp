#include "app/TmxOptionsDialog.h"

#include "tests/toolkit/InDialog.h"

namespace {

// Keys in one of the lists: of what is available (0), of what is selected (1). Up and down are meant with Alt.
using Keys = std::vector<std::pair<size_t, WPARAM>>;

// Posted: nobody would get the later ones if an earlier one ended the loop.
void Press(TmyComponent& dialog, const Keys& keys) {
  std::vector<HWND> lists;
  for (TmyComponent* child = dialog.NextChild(nullptr); child; child = dialog.NextChild(child)) {
    if (dynamic_cast<TmyListBox*>(child)) lists.push_back(child->Handle());
  }
  for (const auto& [list, key] : keys) {
    const bool isWithAlt = key == VK_UP || key == VK_DOWN;
    PostMessageA(lists[list], isWithAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, isWithAlt ? 0x20000000 : 0);
  }
}

// The stored choice among the fields 10 to 13 is 12 and 10: what else there is makes no sense. A table without columns
// cannot be confirmed; Escape leaves even the senseless.
TEST(TmxOptionsDialogTest, KeysMoveEntriesAsFarAsTheyGo) {
  const std::vector<uint32_t> stored = {12, 10, 12, 77};
  std::pair<Keys, std::vector<uint32_t>> cases[] = {
      {{{0, VK_END}, {0, VK_INSERT}, {0, VK_INSERT}, {0, VK_INSERT}}, {12, 10, 13, 11}},
      {{{0, VK_INSERT}, {1, VK_DOWN}, {1, VK_UP}, {1, VK_UP}, {1, VK_UP}}, {11, 12, 10}},
      {{{1, VK_HOME}, {1, VK_DOWN}, {1, VK_DELETE}, {0, VK_END}, {0, VK_INSERT}}, {10, 13}},  // 12 is before 13 again
      {{{1, VK_DELETE}, {1, VK_DELETE}, {1, VK_DELETE}, {0, VK_RETURN}, {0, VK_INSERT}}, {10}},
      {{{1, VK_DELETE}, {0, VK_ESCAPE}}, stored}};
  const std::vector<ColumnField> fields = {{10, "a"}, {11, "b"}, {12, "c"}, {13, "d"}};
  for (auto& [keys, expected] : cases) {
    auto* owner = new TmyComponent("Owner", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
    if (expected != stored) keys.emplace_back(0, VK_RETURN);
    std::vector<uint32_t> chosen = stored;
    const auto open = [&] { EXPECT_EQ(TmxOptionsDialog::Choose(*owner, fields, chosen), expected != stored); };
    InDialog("HFCC options", open, [&](TmyComponent& dialog) { Press(dialog, keys); });
    EXPECT_EQ(chosen, expected);
    owner->Destroy();
  }
}

}  // namespace
