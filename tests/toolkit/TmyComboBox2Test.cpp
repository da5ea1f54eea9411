#include "toolkit/TmyComboBox2.h"

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/DropDownPlace.h"
#include "toolkit/TmyListBox.h"

TEST(DropDownPlaceTest, KeepsOffTheFieldAndOnTheScreen) {
  const std::tuple<const char*, RECT, int, int, RECT> kCases[] = {
      // field, rows, text width, place
      {"wide, with a scroll bar", {10, 100, 110, 120}, 13, 200, {10, 120, 226, 362}},
      {"at the right edge", {950, 100, 1050, 120}, 3, 50, {900, 120, 1000, 182}},
      {"at the bottom", {10, 700, 110, 720}, 12, 50, {10, 458, 110, 700}},
      {"more room above, not enough", {10, 210, 110, 690}, 12, 50, {10, 8, 110, 210}},
  };
  for (const auto& [name, field, rows, textWidth, expected] : kCases) {
    const RECT place = DropDownPlace::Of(field, {0, 0, 1000, 800}, rows, 20, textWidth, 14);
    EXPECT_TRUE(EqualRect(&place, &expected)) << name;
  }
}

struct ComboBoxTest : ControlFixture {
  void SetUp() override {
    combo_ = new TmyComboBox2(*window_, WS_VISIBLE | WS_TABSTOP);
    other_ = new TmyComboBox2(*window_, WS_VISIBLE | WS_TABSTOP);
    combo_->SetBounds(10, 10, 120, 25);
    other_->SetBounds(200, 10, 120, 25);
    for (const char* text : {"Alpha", "Bravo", "Charlie", "Delta", "Echo"}) combo_->Add(text);
    other_->Add("Other");
    combo_->SetSelection(1);
    Listen(combo_->changed);
    combo_->TakeFocus();
  }
  // To the window that holds the mouse, as the system does while it is captured. The place is in `inside`.
  static void Captured(const TmyComponent& inside, UINT message, int x, int y) {
    POINT at = {x, y};
    MapWindowPoints(inside.Handle(), GetCapture(), &at, 1);
    SendMessageA(GetCapture(), message, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  }
  [[nodiscard]] static int YOf(int row) { return 1 + row * TmyApplication::Get().Theme().RowHeight() + 3; }

  TmyComboBox2* combo_ = nullptr;
  TmyComboBox2* other_ = nullptr;
};

TEST_F(ComboBoxTest, WhileClosedKeysAndTypingChooseAtOnce) {
  const std::tuple<uint32_t, const char*, int32_t, int32_t> kCases[] = {{VK_DOWN, "", 1, 2},    {VK_DOWN, "", 4, 4},
                                                                        {VK_UP, "", -1, 0},     {VK_END, "", 1, 4},
                                                                        {VK_HOME, "cHa", 1, 2}, {VK_RETURN, "x", 1, 1}};
  for (const auto& [key, typed, before, after] : kCases) {
    combo_->SetSelection(before);
    events_ = 0;
    Input::Key(*combo_, key);
    Input::Type(*combo_, typed);
    EXPECT_EQ(combo_->Selection(), after) << key << typed;
    EXPECT_EQ(events_ > 0, before != after) << key << typed;
  }
  Input::Wheel(*combo_, -1);
  EXPECT_EQ(window_->wheels, 1);  // it belongs to the parent
  CloseDuring([this] { Input::Key(*combo_, VK_DOWN); });
}

TEST_F(ComboBoxTest, OpensAndClosesByKeys) {
  constexpr LPARAM kPlain = 1, kAlt = 0x20000001;
  const std::tuple<uint32_t, LPARAM, uint32_t, LPARAM, bool> kCases[] = {
      {VK_F4, kPlain, VK_ESCAPE, kPlain, false}, {VK_DOWN, kAlt, VK_RETURN, kPlain, true},
      {VK_UP, kAlt, VK_UP, kAlt, true},          {VK_F4, kPlain, VK_F4, kPlain, true},
      {VK_F4, kPlain, VK_F10, kPlain, false},    {VK_F4, kPlain, VK_TAB, kPlain, true},
  };
  for (const auto& [open, openFlags, close, closeFlags, takes] : kCases) {
    combo_->TakeFocus();
    combo_->SetSelection(1);
    events_ = 0;
    Input::Key(*combo_, open, 0, openFlags);
    ASSERT_TRUE(combo_->IsDropped()) << open;
    Input::Type(*combo_, "del");
    Input::Key(*combo_, VK_DOWN);
    EXPECT_EQ(std::pair(combo_->OpenList()->Selection(), events_), std::pair(4, 0)) << close;
    Input::Key(*combo_, close, 0, closeFlags);
    PumpFor(0);
    EXPECT_FALSE(combo_->IsDropped()) << close;
    EXPECT_EQ(std::pair(combo_->Selection(), events_), takes ? std::pair(4, 1) : std::pair(1, 0)) << close;
    EXPECT_EQ(GetFocus(), close == VK_TAB ? other_->Handle() : combo_->Handle()) << close;
  }
  EXPECT_EQ(window_->escapes, 0);
  combo_->Clear();
  combo_->DropDown(true);
  EXPECT_FALSE(combo_->IsDropped()) << "there is nothing in it";
}

TEST_F(ComboBoxTest, TheMouseOpensChoosesAndPassesOtherClicksOn) {
  Input::Click(*combo_, 20, 10);
  Captured(*combo_, WM_LBUTTONUP, 20, 10);  // of the click that opened it, the way it comes with the mouse captured
  Captured(*combo_->OpenList(), WM_MOUSEMOVE, 20, YOf(3));
  EXPECT_EQ(combo_->OpenList()->Selection(), 3);
  Captured(*combo_->OpenList(), WM_LBUTTONDOWN, 20, YOf(2));
  Captured(*combo_->OpenList(), WM_LBUTTONUP, 20, YOf(2));
  EXPECT_FALSE(combo_->IsDropped());
  EXPECT_EQ(combo_->Selection(), 2);
  combo_->DropDown(true);
  Captured(*other_, WM_LBUTTONDOWN, 20, 10);
  PumpFor(0);
  EXPECT_FALSE(combo_->IsDropped());
  EXPECT_TRUE(other_->IsDropped());
  EXPECT_EQ(events_, 1);
  Listen(combo_->chosenAgain);
  combo_->DropDown(true);
  Captured(*combo_->OpenList(), WM_LBUTTONDOWN, 20, YOf(2));
  Captured(*combo_->OpenList(), WM_LBUTTONUP, 20, YOf(2));
  EXPECT_EQ(events_, 2);
}

TEST_F(ComboBoxTest, TheScrollBarBorrowsTheMouse) {
  for (int i = 0; i < 100; ++i) combo_->Add("More");
  combo_->DropDown(true);
  const HWND popUp = GetCapture();
  const TmyScrollBar& bar = combo_->OpenList()->ScrollBar();
  Captured(bar, WM_LBUTTONDOWN, 5, 8);
  EXPECT_EQ(GetCapture(), bar.Handle());
  Captured(bar, WM_MOUSEMOVE, 5, 500);
  Captured(bar, WM_LBUTTONUP, 5, 500);
  EXPECT_EQ(combo_->OpenList()->TopItem(), 105 - DropDownPlace::kMaximumRows);
  SendMessageA(popUp, WM_TIMER, 1, 0);
  EXPECT_EQ(GetCapture(), popUp);
}

TEST_F(ComboBoxTest, TheListGoesWhenSomethingElseHappensAndDiesWithItsWindowsInAnyOrder) {
  const std::tuple<const char*, bool, void (*)(ComboBoxTest&)> kCases[] = {
      // and does the field go, too?
      {"focus", false, [](ComboBoxTest& t) { ::SetFocus(t.other_->Handle()); }},
      {"capture", false, [](ComboBoxTest&) { ReleaseCapture(); }},
      {"cancel mode", false, [](ComboBoxTest& t) { SendMessageA(t.combo_->Handle(), WM_CANCELMODE, 0, 0); }},
      {"a dialog opened", false, [](ComboBoxTest& t) { t.window_->Enable(false); }},
      {"moved", false, [](ComboBoxTest& t) { t.window_->SetBounds(50, 60, 640, 480); }},
      {"hidden", false, [](ComboBoxTest& t) { t.window_->Show(false); }},
      {"wheel outside", false, [](ComboBoxTest& t) { SetCursorPos(0, 0), Input::Wheel(*t.combo_, 1); }},
      {"pop-up destroyed", false, [](ComboBoxTest&) { DestroyWindow(GetCapture()); }},
      {"closed", true, [](ComboBoxTest& t) { t.Close(); }},
      {"combo first", true, [](ComboBoxTest& t) { t.combo_->Destroy(); }},
      {"captured mouse", true, [](ComboBoxTest& t) { Captured(*t.combo_->OpenList(), WM_LBUTTONUP, 20, YOf(3)); }},
      {"the list's mouse", true, [](ComboBoxTest& t) { Input::Click(*t.combo_->OpenList(), 20, YOf(3)); }},
      {"Enter", true, [](ComboBoxTest& t) { Input::Key(*t.combo_, VK_RETURN); }},
  };
  for (const auto& [name, fieldGoes, happens] : kCases) {
    combo_->DropDown(true);
    Input::Key(*combo_, VK_DOWN);
    const HWND popUp = GetCapture(), field = combo_->Handle();
    CloseDuring([&] {
      happens(*this);
      if (IsWindow(popUp)) SendMessageA(popUp, WM_TIMER, 1, 0);
      EXPECT_FALSE(IsWindow(popUp)) << name;
      EXPECT_EQ(!IsWindow(field), fieldGoes) << name;  // a choice that nobody made shows here
      PumpFor(0);
      Close();
    });
  }
}
