#include "toolkit/TmyListBox.h"

#include <gtest/gtest.h>

#include "tests/toolkit/InputWindow.h"

namespace {

TEST(TypeSearchTest, CollectsForASecond) {
  struct Keystroke {
    char character;
    uint32_t ticks;
    bool taken;
    const char* text;
  };
  const Keystroke kTyped[] = {
      {' ', 0xFFFFFF00, false, ""},     // a blank begins nothing
      {'R', 0xFFFFFF00, true, "R"},     //
      {'\r', 0xFFFFFF00, false, "R"},   //
      {'a', 0x000000E0, true, "Ra"},    // the ticks have wrapped
      {' ', 0x000000E0, true, "Ra "},   //
      {'x', 0x000004C8, true, "Ra x"},  // exactly a second after the last one
      {'y', 0x000008B1, true, "y"},     // a millisecond more
      {' ', 0x00001000, false, ""},    {'\xE9', 0x00001000, true, "\xE9"},
  };
  TypeSearch search;
  for (const Keystroke& key : kTyped) {
    EXPECT_EQ(search.Type(key.character, key.ticks), key.taken) << key.ticks;
    EXPECT_STREQ(search.Text().Chars(), key.text) << key.ticks;
  }
}

TEST(ListSearchTest, FindsTheFirstMatch) {
  TmyLBitemList items;
  for (const char* text : {"", "Radio Asia", "radio", "Radio", "Zulu", "\xC9tat"}) {
    items.Add(std::make_unique<TmyLBitem>(TmyLBitem{text, 0}));
  }
  struct Case {
    const char* text;
    int32_t exact, prefix;
  };
  const Case kCases[] = {
      {"", 0, -1},     {"r", -1, 1},     {"RADIO", -1, 1}, {"Radio", 3, 1}, {"radio asian", -1, -1},
      {"zulu", -1, 4}, {"\xE9T", -1, 5},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ListSearch::FindExact(items, c.text), c.exact) << c.text;
    EXPECT_EQ(ListSearch::FindPrefix(items, c.text), c.prefix) << c.text;
  }
}

class ListBoxTest : public testing::Test {
 public:
  static constexpr int kRows = 10;

  ListBoxTest() : window_(new InputWindow), list_(new TmyListBox(*window_, WS_VISIBLE | WS_TABSTOP)) {
    rowHeight_ = TmyApplication::Get().Theme().RowHeight();
    list_->SetBounds(0, 0, 200, kRows * rowHeight_ + 2);
    list_->BeginUpdate();
    for (int i = 0; i < 3000; ++i) list_->Add(Formatted("Row %04d", i), static_cast<uintptr_t>(i) * 2);
    list_->EndUpdate();
    list_->selected.Bind<&ListBoxTest::SelectedEvent>(this);
    list_->activated.Bind<&ListBoxTest::Activated>(this);
  }
  ~ListBoxTest() override {
    if (window_) window_->Destroy();
  }
  void SelectedEvent(TmyListBox&) {
    ++selected_;
    if (!destroyInEvent_) return;
    window_->Destroy();
    window_ = nullptr;
  }
  void Activated(TmyListBox&) { ++activated_; }
  void Type(const char* text) {
    for (; *text; ++text) SendMessageA(list_->Handle(), WM_CHAR, static_cast<uint8_t>(*text), 1);
  }
  [[nodiscard]] int YOf(int row) const { return 1 + row * rowHeight_ + rowHeight_ / 2; }

  InputWindow* window_;
  TmyListBox* list_;
  int rowHeight_ = 0;
  int selected_ = 0;
  int activated_ = 0;
  bool destroyInEvent_ = false;
};

TEST_F(ListBoxTest, KeysMoveTheSelectionAndTheView) {
  struct Case {
    uint32_t key;
    int32_t before, after, top;
  };
  const Case kCases[] = {
      {VK_DOWN, -1, 0, 0},
      {VK_UP, -1, 0, 0},
      {VK_UP, 0, 0, 0},
      {VK_DOWN, 9, 10, 1},
      {VK_NEXT, 0, 9, 0},
      {VK_NEXT, 9, 18, 9},
      {VK_NEXT, 2995, 2999, 2990},
      {VK_PRIOR, 2995, 2986, 2986},
      {VK_PRIOR, 4, 0, 0},
      {VK_HOME, 2999, 0, 0},
      {VK_END, -1, 2999, 2990},
  };
  for (const Case& c : kCases) {
    list_->SetSelection(0);  // the view to the top
    list_->SetSelection(c.before);
    selected_ = 0;
    Input::Key(*list_, c.key);
    EXPECT_EQ(list_->Selection(), c.after) << c.key << " from " << c.before;
    EXPECT_EQ(list_->TopItem(), c.top) << c.key << " from " << c.before;
    EXPECT_EQ(selected_, c.before == c.after ? 0 : 1) << c.key << " from " << c.before;
  }
}

TEST_F(ListBoxTest, TypingJumpsAndIsBegunAnewByAnArrow) {
  Type("row 01");
  EXPECT_EQ(list_->Selection(), 100);
  Type("q");  // nothing begins so: the selection stays
  EXPECT_EQ(list_->SelectedText(), "Row 0100");
  Input::Key(*list_, VK_DOWN);
  Type("r");
  EXPECT_EQ(list_->Selection(), 0);
}

TEST_F(ListBoxTest, TheMouseSelectsDragsAndActivates) {
  Input::Mouse(*list_, WM_MOUSEMOVE, 20, YOf(4));
  EXPECT_EQ(list_->HotItem(), 4);
  EXPECT_EQ(list_->Selection(), -1);
  Input::Drag(*list_, 20, YOf(2), 20, YOf(kRows) + 500);
  EXPECT_EQ(list_->Selection(), kRows);  // pulled into view, a row at a time
  EXPECT_EQ(list_->TopItem(), 1);
  Input::Click(*list_, 20, YOf(3));
  EXPECT_EQ(activated_, 0);
  Input::Click(*list_, 20, YOf(3));
  EXPECT_EQ(activated_, 1);
  EXPECT_EQ(list_->ItemData(list_->Selection()), 8u);
  Input::Click(*list_, 199, YOf(3));  // the frame
  EXPECT_EQ(list_->Selection(), 4);
}

TEST_F(ListBoxTest, TheWheelScrollsOrGoesUp) {
  UINT lines = 0;
  SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  Input::Wheel(*list_, -2);
  EXPECT_EQ(list_->TopItem(), static_cast<int32_t>(2 * lines));
  EXPECT_EQ(window_->wheels, 0);
  list_->Clear();
  Input::Wheel(*list_, -2);
  EXPECT_EQ(window_->wheels, 1);
}

TEST_F(ListBoxTest, AnEmptyListTakesEverything) {
  list_->SetSelection(5);
  list_->Clear();
  EXPECT_EQ(list_->Selection(), -1);
  EXPECT_EQ(list_->ItemData(0), 0u);
  for (uint32_t key : {VK_DOWN, VK_END, VK_NEXT, VK_RETURN}) Input::Key(*list_, key);
  Type("r");
  Input::Drag(*list_, 20, YOf(2), 20, YOf(5));
  UpdateWindow(list_->Handle());
  EXPECT_EQ(selected_ + activated_, 0);
}

TEST_F(ListBoxTest, PaintsTheSelectionWhereItIs) {
  const TmyTheme::Colors& color = TmyApplication::Get().Theme().Color();
  const HDC screen = GetDC(list_->Handle());
  const HDC memory = CreateCompatibleDC(screen);
  const BitmapHandle bitmap(CreateCompatibleBitmap(screen, 200, kRows * rowHeight_ + 2));
  {
    const Selected selected(memory, bitmap.get());
    list_->SetSelection(1500);
    ::SetFocus(list_->Handle());
    list_->Paint(memory);
    EXPECT_EQ(GetPixel(memory, 2, YOf(kRows - 1)), color.accent);  // came into view as the last row
    EXPECT_EQ(GetPixel(memory, 2, YOf(kRows - 2)), color.field);
    EXPECT_EQ(GetPixel(memory, 0, 0), color.accent);  // the focus frame
  }
  DeleteDC(memory);
  ReleaseDC(list_->Handle(), screen);
}

TEST_F(ListBoxTest, SurvivesAnOwnerThatDestroysTheWindow) {
  for (int way = 0; way < 3; ++way) {
    if (!window_) {
      window_ = new InputWindow;
      list_ = new TmyListBox(*window_, WS_VISIBLE | WS_TABSTOP);
      list_->SetBounds(0, 0, 200, 200);
      for (int i = 0; i < 50; ++i) list_->Add("Row");
      list_->selected.Bind<&ListBoxTest::SelectedEvent>(this);
    }
    list_->SetFollowsMouse(way == 2);
    destroyInEvent_ = true;
    if (way == 0) Type("r");
    if (way == 1) Input::Key(*list_, VK_END);
    if (way == 2) Input::Click(*list_, 20, YOf(1));
    EXPECT_EQ(window_, nullptr) << way;
  }
  EXPECT_EQ(activated_, 0);
}

}  // namespace
