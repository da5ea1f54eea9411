#include "toolkit/TmyComboBox2.h"

#include <gtest/gtest.h>

#include "tests/toolkit/InputWindow.h"
#include "toolkit/DropDownPlace.h"
#include "toolkit/TmyListBox.h"

namespace {

TEST(DropDownPlaceTest, KeepsOffTheFieldAndOnTheScreen) {
  struct Case {
    const char* name;
    RECT field;
    int rows, textWidth;
    RECT place;
  };
  constexpr RECT kScreen = {0, 0, 1000, 800};
  const Case kCases[] = {
      {"few", {10, 100, 110, 120}, 3, 50, {10, 120, 110, 182}},
      {"none", {10, 100, 110, 120}, 0, 0, {10, 120, 110, 142}},
      {"wide, with a scroll bar", {10, 100, 110, 120}, 13, 200, {10, 120, 226, 362}},
      {"wide, all in view", {10, 100, 110, 120}, 12, 200, {10, 120, 212, 362}},
      {"wider than the screen", {10, 100, 110, 120}, 3, 5000, {0, 120, 1000, 182}},
      {"at the right edge", {950, 100, 1050, 120}, 3, 50, {900, 120, 1000, 182}},
      {"at the bottom", {10, 700, 110, 720}, 12, 50, {10, 458, 110, 700}},
      {"just fits below", {10, 538, 110, 558}, 12, 50, {10, 558, 110, 800}},
      {"more room above, not enough", {10, 210, 110, 690}, 12, 50, {10, 8, 110, 210}},
      {"no room at all", {10, -10, 110, 810}, 12, 50, {10, 810, 110, 832}},
  };
  for (const Case& c : kCases) {
    const RECT place = DropDownPlace::Of(c.field, kScreen, c.rows, 20, c.textWidth, 14);
    EXPECT_TRUE(EqualRect(&place, &c.place))
        << c.name << ": " << place.left << ' ' << place.top << ' ' << place.right << ' ' << place.bottom;
  }
}

class Dialog : public InputWindow {
 public:
  void Escape() override { ++escapes; }
  int escapes = 0;
};

class ComboBoxTest : public testing::Test {
 public:  // the tables' functions reach in
  ComboBoxTest() { Build(); }
  ~ComboBoxTest() override {
    if (window_) window_->Destroy();
  }

  void Build() {
    window_ = new Dialog;
    combo_ = new TmyComboBox2(*window_, WS_VISIBLE | WS_TABSTOP);
    other_ = new TmyComboBox2(*window_, WS_VISIBLE | WS_TABSTOP);
    combo_->SetBounds(10, 10, 120, 25);
    other_->SetBounds(200, 10, 120, 25);
    for (const char* text : {"Alpha", "Bravo", "Charlie", "Delta", "Echo"}) combo_->Add(text, 100 + combo_->Count());
    combo_->SetSelection(1);
    combo_->changed.Bind<&ComboBoxTest::Changed>(this);
    combo_->TakeFocus();
  }
  void Changed(TmyComboBox2& combo) {
    ++changes_;
    wasDropped_ = combo.IsDropped();
    if (destroyInEvent_) Kill();
  }
  void Kill() {
    window_->Destroy();
    window_ = nullptr;
  }
  void KillAtMove(TmyWindowBase&, UINT& message, WPARAM&, LPARAM&) {
    if (message == WM_MOUSEMOVE && window_) Kill();
  }
  void Type(const char* text) {
    for (; *text; ++text) SendMessageA(combo_->Handle(), WM_CHAR, static_cast<uint8_t>(*text), 1);
  }
  static void Pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  }
  [[nodiscard]] HWND PopUp() const { return ::GetParent(combo_->OpenList()->Handle()); }
  // To the window that holds the mouse, as the system does while it is captured. The place is in `inside`.
  static void Captured(const TmyComponent& inside, UINT message, int x, int y, WPARAM keys = 0) {
    POINT at = {x, y};
    ClientToScreen(inside.Handle(), &at);
    ScreenToClient(GetCapture(), &at);
    SendMessageA(GetCapture(), message, keys, MAKELPARAM(at.x, at.y));
  }
  [[nodiscard]] static int YOf(int row) { return 1 + row * TmyApplication::Get().Theme().RowHeight() + 3; }

  Dialog* window_ = nullptr;
  TmyComboBox2* combo_ = nullptr;
  TmyComboBox2* other_ = nullptr;
  int changes_ = 0;
  bool wasDropped_ = false;
  bool destroyInEvent_ = false;
};

TEST_F(ComboBoxTest, WhileClosedKeysAndTypingChooseAtOnce) {
  struct Case {
    uint32_t key;
    const char* typed;
    int32_t before, after;
  };
  const Case kCases[] = {
      {VK_DOWN, "", 1, 2},  {VK_DOWN, "", 4, 4},    {VK_UP, "", -1, 0},   {VK_END, "", 1, 4},    {VK_HOME, "", 1, 0},
      {VK_NEXT, "", -1, 4}, {VK_HOME, "cHa", 1, 2}, {VK_HOME, "x", 1, 0}, {VK_RETURN, "", 1, 1},
  };
  for (const Case& c : kCases) {
    combo_->SetSelection(c.before);
    changes_ = 0;
    Input::Key(*combo_, c.key);
    Type(c.typed);
    EXPECT_EQ(combo_->Selection(), c.after) << c.key << c.typed;
    EXPECT_EQ(changes_ > 0, c.before != c.after) << c.key << c.typed;
  }
  EXPECT_EQ(combo_->ItemData(combo_->FindText("Delta")), 103u);
  EXPECT_EQ(combo_->SelectedText(), "Bravo");
}

TEST_F(ComboBoxTest, OpensAndClosesByKeys) {
  enum How { kKeep, kTake };
  struct Case {
    UINT openMessage, closeMessage;
    uint32_t open, close;
    How how;
  };
  const Case kCases[] = {
      {WM_KEYDOWN, WM_KEYDOWN, VK_F4, VK_ESCAPE, kKeep},   {WM_SYSKEYDOWN, WM_KEYDOWN, VK_DOWN, VK_RETURN, kTake},
      {WM_SYSKEYDOWN, WM_SYSKEYDOWN, VK_UP, VK_UP, kTake}, {WM_KEYDOWN, WM_KEYDOWN, VK_F4, VK_F4, kTake},
      {WM_KEYDOWN, WM_SYSKEYDOWN, VK_F4, VK_F10, kKeep},   {WM_KEYDOWN, WM_KEYDOWN, VK_F4, VK_TAB, kTake},
  };
  for (const Case& c : kCases) {
    const auto flags = [](UINT message, uint32_t key) {
      return message == WM_SYSKEYDOWN && key != VK_F10 ? 0x20000001 : 1;
    };
    combo_->TakeFocus();
    combo_->SetSelection(1);
    changes_ = 0;
    wasDropped_ = true;
    SendMessageA(combo_->Handle(), c.openMessage, c.open, flags(c.openMessage, c.open));
    ASSERT_TRUE(combo_->IsDropped()) << c.open;
    EXPECT_EQ(GetFocus(), combo_->Handle());
    Type("del");
    Input::Key(*combo_, VK_DOWN);
    EXPECT_EQ(combo_->OpenList()->Selection(), 4) << c.close;
    EXPECT_EQ(changes_, 0) << c.close;
    SendMessageA(combo_->Handle(), c.closeMessage, c.close, flags(c.closeMessage, c.close));
    Pump();
    EXPECT_FALSE(combo_->IsDropped()) << c.close;
    EXPECT_EQ(combo_->Selection(), c.how == kTake ? 4 : 1) << c.close;
    EXPECT_EQ(changes_, c.how == kTake ? 1 : 0) << c.close;
    EXPECT_EQ(wasDropped_, c.how == kKeep) << c.close;  // the handler sees it closed
    EXPECT_EQ(GetFocus(), c.close == VK_TAB ? other_->Handle() : combo_->Handle()) << c.close;
  }
  EXPECT_EQ(window_->escapes, 0);
  combo_->TakeFocus();
  Input::Key(*combo_, VK_ESCAPE);
  Pump();
  EXPECT_EQ(window_->escapes, 1);  // a closed one leaves it to the dialog
}

TEST_F(ComboBoxTest, TheMouseOpensChoosesAndPassesOtherClicksOn) {
  Input::Click(*combo_, 20, 10);
  ASSERT_TRUE(combo_->IsDropped());
  EXPECT_EQ(GetCapture(), PopUp());
  Captured(*combo_, WM_LBUTTONUP, 20, 10);  // of the click that opened it, the way it comes with the mouse captured
  Captured(*combo_->OpenList(), WM_MOUSEMOVE, 20, YOf(3));
  EXPECT_EQ(combo_->OpenList()->Selection(), 3);
  EXPECT_EQ(combo_->Selection(), 1);
  Captured(*combo_->OpenList(), WM_LBUTTONDOWN, 20, YOf(2), MK_LBUTTON);
  Captured(*combo_->OpenList(), WM_LBUTTONUP, 20, YOf(2));
  EXPECT_FALSE(combo_->IsDropped());
  EXPECT_EQ(combo_->Selection(), 2);
  EXPECT_EQ(changes_, 1);
  EXPECT_EQ(GetCapture(), nullptr);

  combo_->DropDown(true);
  Captured(*combo_, WM_LBUTTONDOWN, 20, 10, MK_LBUTTON);
  EXPECT_FALSE(combo_->IsDropped());

  combo_->DropDown(true);
  Captured(*other_, WM_LBUTTONDOWN, 20, 10, MK_LBUTTON);
  EXPECT_FALSE(combo_->IsDropped());
  Pump();
  EXPECT_TRUE(other_->IsDropped());
  EXPECT_EQ(changes_, 1);
}

TEST_F(ComboBoxTest, TheScrollBarBorrowsTheMouse) {
  for (int i = 0; i < 100; ++i) combo_->Add("More");
  combo_->DropDown(true);
  const HWND popUp = PopUp();
  const TmyScrollBar& bar = combo_->OpenList()->ScrollBar();
  Captured(bar, WM_LBUTTONDOWN, 5, 8, MK_LBUTTON);
  EXPECT_EQ(GetCapture(), bar.Handle());
  Captured(bar, WM_MOUSEMOVE, 5, 500, MK_LBUTTON);
  Captured(bar, WM_LBUTTONUP, 5, 500);
  ASSERT_TRUE(combo_->IsDropped());
  EXPECT_EQ(combo_->OpenList()->TopItem(), 105 - DropDownPlace::kMaximumRows);
  SendMessageA(popUp, WM_TIMER, 1, 0);
  EXPECT_EQ(GetCapture(), popUp);
}

TEST_F(ComboBoxTest, ClosesWithoutAChoiceWhenSomethingElseHappens) {
  struct Case {
    const char* name;
    void (*happens)(ComboBoxTest& test);
  };
  const Case kCases[] = {
      {"focus", [](ComboBoxTest& t) { ::SetFocus(t.other_->Handle()); }},
      {"capture", [](ComboBoxTest&) { ReleaseCapture(); }},
      {"another's capture", [](ComboBoxTest& t) { SetCapture(t.window_->Handle()); }},
      {"cancel mode", [](ComboBoxTest& t) { SendMessageA(t.combo_->Handle(), WM_CANCELMODE, 0, 0); }},
      {"a dialog opened", [](ComboBoxTest& t) { t.window_->Enable(false); }},
      {"disabled", [](ComboBoxTest& t) { t.combo_->Enable(false); }},
      {"moved", [](ComboBoxTest& t) { t.window_->SetBounds(50, 60, 640, 480); }},
      {"hidden", [](ComboBoxTest& t) { t.window_->Show(false); }},
      {"cleared", [](ComboBoxTest& t) { t.combo_->Clear(); }},
      {"pop-up destroyed", [](ComboBoxTest& t) { DestroyWindow(t.PopUp()); }},
  };
  for (const Case& c : kCases) {
    combo_->DropDown(true);
    ASSERT_TRUE(combo_->IsDropped()) << c.name;
    const HWND popUp = PopUp();
    Input::Key(*combo_, VK_DOWN);
    c.happens(*this);
    if (IsWindow(popUp)) SendMessageA(popUp, WM_TIMER, 1, 0);
    EXPECT_FALSE(combo_->IsDropped()) << c.name;
    EXPECT_FALSE(IsWindow(popUp)) << c.name;
    EXPECT_EQ(changes_, 0) << c.name;
    Kill();
    Build();
  }
}

TEST_F(ComboBoxTest, TheWheelBelongsToTheParentUnlessTheListIsOpen) {
  Input::Wheel(*combo_, -1);
  EXPECT_EQ(window_->wheels, 1);
  EXPECT_EQ(combo_->Selection(), 1);
  for (int i = 0; i < 100; ++i) combo_->Add("More");
  combo_->DropDown(true);
  POINT inList = {20, 20};
  ClientToScreen(combo_->OpenList()->Handle(), &inList);
  SetCursorPos(inList.x, inList.y);
  Input::Wheel(*combo_, -1);
  ASSERT_TRUE(combo_->IsDropped());
  EXPECT_GT(combo_->OpenList()->TopItem(), 0);
  SetCursorPos(inList.x + 400, inList.y);
  Input::Wheel(*combo_, -1);
  EXPECT_FALSE(combo_->IsDropped());
}

TEST_F(ComboBoxTest, ThePopUpIsOwnedNotActivatedAndFollowsItsItems) {
  combo_->DropDown(true);
  EXPECT_EQ(GetWindow(PopUp(), GW_OWNER), window_->Handle());
  EXPECT_EQ(GetActiveWindow(), window_->Handle());
  EXPECT_EQ(SendMessageA(PopUp(), WM_MOUSEACTIVATE, 0, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)), MA_NOACTIVATE);
  RECT before, after;
  GetWindowRect(PopUp(), &before);
  combo_->Add("A text that is a good deal wider than the field is");
  GetWindowRect(PopUp(), &after);
  EXPECT_GT(after.right, before.right);
  EXPECT_EQ(after.bottom - before.bottom, TmyApplication::Get().Theme().RowHeight());
}

TEST_F(ComboBoxTest, DiesWithItsWindowsInAnyOrder) {
  struct Case {
    const char* name;
    void (*happens)(ComboBoxTest& test);
  };
  const Case kCases[] = {
      {"main window", [](ComboBoxTest& t) { t.Kill(); }},
      {"closed", [](ComboBoxTest& t) { SendMessageA(t.window_->Handle(), WM_CLOSE, 0, 0), t.window_ = nullptr; }},
      {"combo first", [](ComboBoxTest& t) { t.combo_->Destroy(), t.Kill(); }},
      {"in the list's message",
       [](ComboBoxTest& t) {
         t.combo_->OpenList()->SetHook<&ComboBoxTest::KillAtMove>(&t);
         Input::Mouse(*t.combo_->OpenList(), WM_MOUSEMOVE, 20, YOf(3));
       }},
      {"chosen by the captured mouse",
       [](ComboBoxTest& t) { Captured(*t.combo_->OpenList(), WM_LBUTTONUP, 20, YOf(3)); }},
      {"chosen by the list's own mouse", [](ComboBoxTest& t) { Input::Click(*t.combo_->OpenList(), 20, YOf(3)); }},
      {"chosen by Enter", [](ComboBoxTest& t) { Input::Key(*t.combo_, VK_DOWN), Input::Key(*t.combo_, VK_RETURN); }},
      {"chosen by Tab", [](ComboBoxTest& t) { Input::Key(*t.combo_, VK_DOWN), Input::Key(*t.combo_, VK_TAB); }},
      {"typed while closed", [](ComboBoxTest& t) { t.combo_->DropDown(false), t.Type("e"); }},
  };
  for (const Case& c : kCases) {
    combo_->DropDown(true);
    const HWND popUp = PopUp(), field = combo_->Handle();
    destroyInEvent_ = true;
    c.happens(*this);
    EXPECT_EQ(window_, nullptr) << c.name;
    EXPECT_FALSE(IsWindow(popUp)) << c.name;
    EXPECT_FALSE(IsWindow(field)) << c.name;
    Pump();
    destroyInEvent_ = false;
    if (window_) Kill();
    Build();
  }
}

}  // namespace
