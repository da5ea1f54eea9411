#include "app/TmxOptionsDialog.h"

#include "tests/support/Test.h"

namespace {

using Lists = std::vector<TmyListBox*>;  // what is available, what is selected

std::function<void(const Lists&)> inLoop;  // what the user does once the dialog is up

void CALLBACK Act(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  auto* dialog = dynamic_cast<TmxOptionsDialog*>(TmyWindowBase::FromHandle(FindWindowA(nullptr, "HFCC options")));
  ASSERT_NE(dialog, nullptr);
  Lists lists;
  for (TmyComponent* child = dialog->NextChild(nullptr); child; child = dialog->NextChild(child)) {
    if (auto* list = dynamic_cast<TmyListBox*>(child)) lists.push_back(list);
  }
  inLoop(lists);
}

void Key(const TmyComponent* window, WPARAM key, bool alt = false) {
  SendMessageA(window->Handle(), alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, alt ? 0x20000000 : 0);
}

// What comes out for the fields 10 to 13, of which 12 and 10 are selected; cancelled: with 0 behind it.
std::vector<uint32_t> ChosenAfter(std::function<void(const Lists&)> action) {
  auto* owner = new TmyComponent("Owner", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  inLoop = std::move(action);
  SetTimer(nullptr, 0, 10, Act);
  std::vector<uint32_t> chosen = {12, 10};
  if (!TmxOptionsDialog::Choose(*owner, {{10, "a"}, {11, "b"}, {12, "c"}, {13, "d"}}, chosen)) chosen.push_back(0);
  owner->Destroy();
  return chosen;
}

TEST(TmxOptionsDialogTest, KeysMoveEntriesAndEnterConfirms) {
  const auto keys = [](const Lists& lists) {
    for (const WPARAM key : {VK_END, VK_INSERT}) Key(lists[0], key);   // 12 10 13, of which 13 is now selected
    Key(lists[1], VK_UP, true);                                        // 12 13 10
    for (const WPARAM key : {VK_HOME, VK_DELETE}) Key(lists[1], key);  // 13 10
    Key(lists[0], VK_RETURN);
  };
  EXPECT_EQ(ChosenAfter(keys), (std::vector<uint32_t>{13, 10}));
}

TEST(TmxOptionsDialogTest, AnEmptyTableCannotBeConfirmedAndEscapeLeavesEverythingAsItWas) {
  const auto empty = [](const Lists& lists) {
    for (int i = 0; i < 2; ++i) lists[1]->activated(*lists[1]);  // double clicks
  };
  // Posted: nobody would get the later ones if the first ended the loop.
  const auto thenKeys = [&](const Lists& lists) {
    empty(lists);
    for (const WPARAM key : {VK_RETURN, VK_INSERT, VK_RETURN}) PostMessageA(lists[0]->Handle(), WM_KEYDOWN, key, 0);
  };
  EXPECT_EQ(ChosenAfter(thenKeys), std::vector<uint32_t>{10});  // the last that came back is the selected entry there
  const auto thenEscape = [&](const Lists& lists) {
    empty(lists);
    SendMessageA(lists[1]->Handle(), kMsgEscape, 0, 0);
  };
  EXPECT_EQ(ChosenAfter(thenEscape), (std::vector<uint32_t>{12, 10, 0}));
}

}  // namespace
