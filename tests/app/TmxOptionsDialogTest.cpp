#include "app/TmxOptionsDialog.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

std::function<void(TmxOptionsDialog&)> inLoop;  // what the user does once the dialog is up

void CALLBACK Act(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  auto* dialog = dynamic_cast<TmxOptionsDialog*>(TmyWindowBase::FromHandle(FindWindowA(nullptr, "HFCC options")));
  ASSERT_NE(dialog, nullptr);
  inLoop(*dialog);
}

TmyListBox& List(TmxOptionsDialog& dialog, bool selected) {
  std::vector<TmyListBox*> lists;
  for (TmyComponent* child = dialog.NextChild(nullptr); child; child = dialog.NextChild(child)) {
    if (auto* list = dynamic_cast<TmyListBox*>(child)) lists.push_back(list);
  }
  return *lists.at(selected ? 1 : 0);
}

void Key(const TmyComponent& window, WPARAM key, bool alt = false) {
  SendMessageA(window.Handle(), alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, alt ? 0x20000000 : 0);
}

// What comes out for the fields 10 to 13, of which 12 and 10 are selected; cancelled: with 0 behind it.
std::vector<uint32_t> ChosenAfter(std::function<void(TmxOptionsDialog&)> action) {
  auto* owner = new TmyComponent("Owner", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  inLoop = std::move(action);
  SetTimer(nullptr, 0, 10, Act);
  std::vector<uint32_t> chosen = {12, 10};
  if (!TmxOptionsDialog::Choose(*owner, {{10, "a"}, {11, "b"}, {12, "c"}, {13, "d"}}, chosen)) chosen.push_back(0);
  owner->Destroy();
  return chosen;
}

TEST(TmxOptionsDialogTest, KeysMoveEntriesAndEnterConfirms) {
  const auto keys = [](TmxOptionsDialog& dialog) {
    Key(List(dialog, false), VK_END);
    Key(List(dialog, false), VK_INSERT);   // 12 10 13, of which 13 is now the selected entry
    Key(List(dialog, true), VK_UP, true);  // 12 13 10
    Key(List(dialog, true), VK_HOME);
    Key(List(dialog, true), VK_DELETE);  // 13 10
    Key(List(dialog, false), VK_RETURN);
  };
  EXPECT_EQ(ChosenAfter(keys), (std::vector<uint32_t>{13, 10}));
}

TEST(TmxOptionsDialogTest, EscapeLeavesEverythingAsItWas) {
  const auto keys = [](TmxOptionsDialog& dialog) {
    Key(List(dialog, true), VK_DELETE);
    SendMessageA(List(dialog, true).Handle(), kMsgEscape, 0, 0);
  };
  EXPECT_EQ(ChosenAfter(keys), (std::vector<uint32_t>{12, 10, 0}));
}

TEST(TmxOptionsDialogTest, AnEmptyTableCannotBeConfirmed) {
  const auto keys = [](TmxOptionsDialog& dialog) {
    for (int i = 0; i < 2; ++i) List(dialog, true).activated(List(dialog, true));  // double clicks
    // Posted: nobody would get the later ones if the first ended the loop.
    for (const WPARAM key : {VK_RETURN, VK_INSERT, VK_RETURN}) {
      PostMessageA(List(dialog, false).Handle(), WM_KEYDOWN, key, 0);
    }
  };
  EXPECT_EQ(ChosenAfter(keys), std::vector<uint32_t>{10});  // the last that came back is the selected entry there
}

}  // namespace
