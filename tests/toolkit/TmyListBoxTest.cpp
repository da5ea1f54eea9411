#include "toolkit/TmyListBox.h"

#include "tests/toolkit/ControlFixture.h"

TEST(TypeSearchTest, CollectsForASecond) {
  TypeSearch search;
  EXPECT_FALSE(search.Type(' ', 0xFFFFFE00));  // a blank begins nothing
  search.Type('\xE9', 0xFFFFFE00);
  search.Type(' ', 0xFFFFFFF0);
  search.Type('x', 0x000003D8);  // a second later, and the ticks have wrapped
  EXPECT_STREQ(search.Text().Chars(), "\xE9 x");
  search.Type('y', 0x000007C1);  // a ms more than a second later
  EXPECT_STREQ(search.Text().Chars(), "y");
}

struct ListBoxTest : ControlFixture {
  static constexpr int kRows = 10;

  void SetUp() override {
    list_ = new TmyListBox(*window_, WS_VISIBLE | WS_TABSTOP);
    list_->SetBounds(0, 0, 200, kRows * rowHeight_ + 2);
    list_->BeginUpdate();
    for (int i = 0; i < 3000; ++i) list_->Add(Formatted("Row %04d", i));
    list_->EndUpdate();
    Listen(list_->selected);
    list_->activated.Bind<&ListBoxTest::Activated>(this);
  }
  void Activated(TmyListBox&) { ++activated_; }
  [[nodiscard]] int YOf(int row) const { return 1 + row * rowHeight_ + rowHeight_ / 2; }

  const int rowHeight_ = TmyApplication::Get().Theme().RowHeight();
  TmyListBox* list_ = nullptr;
  int activated_ = 0;
};

TEST_F(ListBoxTest, KeysMoveTheSelectionAndTheView) {
  const std::tuple<uint32_t, int32_t, int32_t, int32_t> kCases[] = {
      {VK_DOWN, -1, 0, 0}, {VK_UP, 0, 0, 0},         {VK_DOWN, 9, 10, 1},
      {VK_NEXT, 9, 18, 9}, {VK_NEXT, -1, 9, 0},      {VK_NEXT, 2995, 2999, 2990},
      {VK_PRIOR, 4, 0, 0}, {VK_END, -1, 2999, 2990}, {VK_PRIOR, 2995, 2986, 2986}};
  for (const auto& [key, before, after, top] : kCases) {
    list_->SetSelection(0);  // the view to the top
    list_->SetSelection(before);
    events_ = 0;
    Input::Key(*list_, key);
    EXPECT_EQ(std::pair(list_->Selection(), list_->TopItem()), std::pair(after, top)) << key << " from " << before;
    EXPECT_EQ(events_, before == after ? 0 : 1);
  }
  CloseDuring([this] { Input::Key(*list_, VK_END); });
}

TEST_F(ListBoxTest, TypingJumpsAndIsBegunAnewByAnArrow) {
  Input::Type(*list_, "row 01q");  // nothing begins with the q: the selection stays
  EXPECT_EQ(list_->SelectedText(), "Row 0100");
  Input::Key(*list_, VK_DOWN);
  CloseDuring([this] { Input::Type(*list_, "r"); });
}

TEST_F(ListBoxTest, TheMouseSelectsDragsAndActivates) {
  Input::Drag(*list_, 20, YOf(2), 20, YOf(kRows) + 500);
  EXPECT_EQ(list_->Selection(), kRows);  // pulled into view, a row at a time
  EXPECT_EQ(list_->TopItem(), 1);
  Input::Click(*list_, 20, YOf(3));
  EXPECT_EQ(activated_, 0);
  Input::Click(*list_, 20, YOf(3));
  EXPECT_EQ(activated_, 1);
}

TEST_F(ListBoxTest, TheWheelScrollsOrGoesUpAndAnEmptyListTakesEverything) {
  Input::Wheel(*list_, -2);
  EXPECT_GT(list_->TopItem(), 2);  // several lines a notch
  EXPECT_EQ(window_->wheels, 0);
  list_->Clear();
  Input::Wheel(*list_, -2);
  EXPECT_EQ(window_->wheels, 1);
  for (uint32_t key : {VK_DOWN, VK_END, VK_NEXT, VK_RETURN}) Input::Key(*list_, key);
  Input::Drag(*list_, 20, YOf(2), 20, YOf(5));
  EXPECT_EQ(events_ + activated_, 0);
}
