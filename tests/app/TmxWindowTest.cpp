// The main window in one process with the test: panel, grid, timers and menus work together.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "app/TmxWindow.h"
#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/SeasonArchive.h"
#include "tests/support/TestEnvironment.h"

namespace {

std::vector<uint32_t> tuned;  // what the host was told, in Hz

uint32_t __stdcall Host(uint32_t, uint32_t code, uint32_t a, uint32_t, uint32_t) {
  if (code == HostCode::kTuneFrequency) tuned.push_back(a);
  EXPECT_EQ(GetCapture(), nullptr) << "the host could not be used with the mouse";
  return 0;
}

TmxWindow* closing = nullptr;
std::string* box = nullptr;  // takes note of a message box

void CALLBACK CloseBox(HWND, UINT, UINT_PTR id, DWORD) {
  const HWND shown = GetActiveWindow();
  if (shown == nullptr || GetWindow(shown, GW_OWNER) == nullptr) return;
  KillTimer(nullptr, id);
  *box = "a box";
  SendMessageA(shown, WM_CLOSE, 0, 0);
}

// Closes the plug-in as soon as it says that it has started.
uint32_t __stdcall ClosingHost(uint32_t, uint32_t code, uint32_t a, uint32_t, uint32_t) {
  if (code == HostCode::kInstanceState && a == HostCode::kInstanceStarted) closing->Destroy();
  return 0;
}

// One line of the schedule: frequency, time, days, ITU code, station, language, target.
std::string Line(const char* khz, const char* time, const char* station, const char* language) {
  char line[120];
  snprintf(line, sizeof(line), "%-14s%-10s%-6s%-4s%-25s%-4s%-12s%s\r\n", khz, time, "", "D", station, language, "Eu",
           "x");
  return line;
}

std::string Schedule() {
  std::string text;
  for (int i = 0; i < 17; ++i) text += "header\r\n";
  text += Line("6005", "0600-0800", "Radio Aurora", "E");
  text += Line("7325.5", "1400-1500", "Boreal", "F");
  text += Line("9420", "1400-1700", "Crux Radio", "E");
  text += Line("9425", "1600-1700", "Delta", "D");
  text += Line("11780", "2200-2359", "Echo", "E");
  return text;
}

class TmxWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    tuned.clear();
    SetTime(14, 30, 59);
    CreateFolders(documents_.DataFolder().c_str());
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\eibi.txt", Schedule()));
    window_ = new TmxWindow(HostInfo());
    ASSERT_TRUE(window_->IsAlive());
    window_->Start(7, Host);
    for (TmyComponent* child = window_->NextChild(nullptr); child; child = window_->NextChild(child)) {
      if (auto* panel = dynamic_cast<FilterPanel*>(child)) panel_ = panel;
      if (auto* grid = dynamic_cast<TmyStringGrid*>(child); grid && !grid_) grid_ = grid;
      if (auto* status = dynamic_cast<StatusBar*>(child)) status_ = status;
    }
    ASSERT_TRUE(panel_ && grid_ && status_);
  }
  void TearDown() override {
    if (window_) window_->Destroy();
    Clock::Release();
  }

  static void SetTime(WORD hour, WORD minute, WORD second, int32_t offset = 0) {
    Clock::Hold({2026, 11, 6, 21, hour, minute, second, 0}, offset);
  }
  std::string Counts() const { return status_->Caption().Chars(); }
  void Tick() { SendMessageA(window_->Handle(), WM_TIMER, 1, 0); }

  template <class Control>
  Control& Find(const char* caption) {
    for (TmyControl* control = panel_->FirstControl(); control; control = control->NextControl()) {
      auto* found = dynamic_cast<Control*>(control);
      if (found && found->Caption() == caption) return *found;
    }
    throw std::runtime_error(caption);
  }
  static void Click(const TmyComponent& window, int x, int y) {
    SendMessageA(window.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageA(window.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }
  void ClickControl(const TmyControl& control) {
    Click(*panel_, control.Bounds().left + 5, (control.Bounds().top + control.Bounds().bottom) / 2);
  }
  void ClickBox(const char* caption) { ClickControl(Find<Tmy_CheckBox>(caption)); }
  void ClickOption(const char* caption) { ClickControl(Find<Tmy_OptionButton>(caption)); }
  template <class Child>
  Child& Nth(int index) {
    for (TmyComponent* child = panel_->NextChild(nullptr); child; child = panel_->NextChild(child)) {
      auto* found = dynamic_cast<Child*>(child);
      if (found && index-- == 0) return *found;
    }
    throw std::runtime_error("no such child");
  }
  void Key(uint32_t key) { SendMessageA(grid_->Handle(), WM_KEYDOWN, key, 0); }
  // The frequency that Enter tunes in a row tells which record stands there.
  std::string TunedBy(uint32_t row) {
    grid_->SetCurrentRow(row, false);
    tuned.clear();
    Key(VK_RETURN);
    return tuned.empty() ? "" : std::to_string(tuned.front());
  }

  FreshDocumentsFolder documents_;
  TmxWindow* window_ = nullptr;  // deleted by its window
  FilterPanel* panel_ = nullptr;
  TmyStringGrid* grid_ = nullptr;
  StatusBar* status_ = nullptr;
};

TEST_F(TmxWindowTest, TheCurrentTimeFilterFollowsTheClockByItself) {
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
  ClickBox("Time");
  EXPECT_EQ(Counts(), "2 of 5 broadcasts");
  SetTime(23, 30, 0);
  EXPECT_EQ(Counts(), "2 of 5 broadcasts");
  Tick();
  EXPECT_EQ(Counts(), "1 of 5 broadcasts");
  ClickOption("From");  // no longer the current time
  SetTime(6, 30, 0);
  Tick();
  EXPECT_EQ(Counts(), "5 of 5 broadcasts") << "from 00:00:00 to 23:59:59";
}

TEST_F(TmxWindowTest, TheSplitterGivesThePlayersSliderARowAndNotMore) {
  TmySplitter* splitter = nullptr;
  TmyMediaPlayer* media = nullptr;
  for (TmyComponent* child = window_->NextChild(nullptr); child; child = window_->NextChild(child)) {
    if (auto* found = dynamic_cast<TmySplitter*>(child)) splitter = found;
    if (auto* found = dynamic_cast<TmyMediaPlayer*>(child)) media = found;
  }
  const auto sliderIsBelow = [&] { return media->Slider().Bounds().top >= media->ButtonAt(0)->Bounds().bottom; };
  const int before = grid_->Height();
  for (const auto& [key, isBelow] : {std::pair{VK_UP, true}, {VK_DOWN, false}}) {
    for (int i = 0; i < 30; ++i) SendMessageA(splitter->Handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    EXPECT_EQ(sliderIsBelow(), isBelow);
    EXPECT_EQ(grid_->Height(), isBelow ? before - media->TwoRowHeight() + media->PreferredHeight(9999) : before);
    EXPECT_EQ(splitter->Bounds().top, grid_->Bounds().bottom);
    EXPECT_EQ(splitter->Bounds().bottom, media->Bounds().top);
  }
}

TEST_F(TmxWindowTest, ATickThatChangesNothingKeepsMarksCurrentRowAndView) {
  ClickBox("Time");
  grid_->SetCurrentRow(2, true);
  SetTime(14, 30, 1);
  Tick();
  EXPECT_EQ(grid_->CurrentRow(), 2u);
  SetTime(16, 30, 0);  // 9420 still passes, now as the first
  Tick();
  EXPECT_EQ(grid_->CurrentRow(), 1u) << "the record stays current";
}

TEST_F(TmxWindowTest, RangesAreInTheZoneShown) {
  SetTime(14, 0, 0, 3600);
  ClickBox("Time");
  ClickOption("From");
  Nth<TmyTimeEdit>(0).SetValue(23 * 3600);  // 22:00 UTC
  ClickOption("From");
  EXPECT_EQ(Counts(), "1 of 5 broadcasts");
  Nth<TmyTimeEdit>(0).SetValue(0);  // 23:00 UTC of the day before
  Nth<TmyTimeEdit>(1).SetValue(7 * 3600 + 1800);
  ClickOption("From");
  EXPECT_EQ(Counts(), "2 of 5 broadcasts") << "what either side of midnight UTC passes";
  SendMessageA(window_->Handle(), WM_COMMAND, GetMenuItemID(GetSubMenu(GetMenu(window_->Handle()), 1), 0), 0);
  EXPECT_EQ(Counts(), "1 of 5 broadcasts") << "in UTC as entered";
}

TEST_F(TmxWindowTest, AroundAndBetweenConvertTheirEditsAtEveryClick) {
  ClickBox("Frequency");
  auto& first = Nth<TmyFrequencyEdit>(0);
  auto& second = Nth<TmyFrequencyEdit>(1);
  first.SetValue(9422000);
  second.SetValue(6000);
  ClickOption("Between");
  EXPECT_EQ(first.Value(), 9419000);
  EXPECT_EQ(second.Value(), 9425000);
  EXPECT_EQ(Counts(), "2 of 5 broadcasts");
  ClickOption("Around");
  EXPECT_EQ(first.Value(), 9422000);
  EXPECT_EQ(second.Value(), 6000);
  ClickOption("Around");  // converts again, as if the edits held bounds
  EXPECT_EQ(second.Value(), 0);
}

TEST_F(TmxWindowTest, TypingInAFrequencyFiltersAtOnce) {
  ClickBox("Frequency");
  auto& first = Nth<TmyFrequencyEdit>(0);
  first.TakeFocus();
  first.SelectAll();
  for (const char c : std::string("7325.5")) SendMessageA(first.Handle(), WM_CHAR, static_cast<WPARAM>(c), 0);
  EXPECT_EQ(Counts(), "1 of 5 broadcasts");
}

TEST_F(TmxWindowTest, ChosenTextsFilterAndABoxWithoutAChoiceDoesNot) {
  ClickBox("Language");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
  auto& languages = Nth<TmyComboBox2>(1);
  ASSERT_EQ(languages.Count(), 3u);  // D, E, F: distinct and in order
  EXPECT_EQ(languages.ItemText(1), "E");
  languages.TakeFocus();
  SendMessageA(languages.Handle(), WM_CHAR, 'e', 0);
  EXPECT_EQ(languages.Selection(), 1);
  EXPECT_EQ(Counts(), "3 of 5 broadcasts");
  ClickBox("Language");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
}

TEST_F(TmxWindowTest, KeyboardMovesTuneOnceTheyRestAndClicksAtOnce) {
  ClickBox("Auto-tuning");
  grid_->TakeFocus();
  Key(VK_HOME);
  Key(VK_DOWN);
  Key(VK_DOWN);
  EXPECT_TRUE(tuned.empty());
  SendMessageA(window_->Handle(), WM_TIMER, 2, 0);
  EXPECT_EQ(tuned, std::vector<uint32_t>{9420000});
  SendMessageA(grid_->Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, grid_->Layout().titleHeight + 5));
  EXPECT_EQ(tuned.size(), 2u);
  SendMessageA(grid_->Handle(), WM_LBUTTONUP, 0, MAKELPARAM(20, 30));
  ClickBox("Auto-tuning");
  Key(VK_HOME);
  SendMessageA(window_->Handle(), WM_TIMER, 2, 0);
  EXPECT_EQ(tuned.size(), 2u);
}

TEST_F(TmxWindowTest, SortingKeepsTheCurrentRecordAndRefilteringKeepsTheOrder) {
  grid_->SetCurrentRow(1, true);  // 6005
  Click(*grid_, 20, 5);
  Click(*grid_, 20, 5);
  EXPECT_FALSE(grid_->IsSortAscending());
  EXPECT_EQ(grid_->CurrentRow(), 5u);
  ClickBox("Time");  // 14:30: two broadcasts, still from the highest frequency down
  EXPECT_EQ(TunedBy(1), "9420000");
  EXPECT_EQ(TunedBy(2), "7325500");
}

class HfccWindowTest : public TmxWindowTest {
 protected:
  void SetUp() override {
    const std::string season = SeasonArchive();
    for (const char* name : {"a26all00.zip", "b25all00.zip"}) {
      CreateFolders(documents_.DataFolder().c_str());
      CopyFileA(season.c_str(), (documents_.DataFolder() + "\\" + name).c_str(), FALSE);
    }
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\c.zip", "not an archive"));
    TmxWindowTest::SetUp();
  }
  HMENU Archives() const { return GetSubMenu(GetSubMenu(GetMenu(window_->Handle()), 0), 1); }
  bool IsChecked(int item) const { return (GetMenuState(Archives(), item, MF_BYPOSITION) & MF_CHECKED) != 0; }
};

TEST_F(HfccWindowTest, TheNewestSeasonIsLoadedAndShownWhenItsDatabaseIsChosen) {
  ASSERT_EQ(GetMenuItemCount(Archives()), 3);
  EXPECT_TRUE(IsChecked(0));
  ClickOption("HFCC database");
  HfccDatabase season;
  ASSERT_EQ(season.LoadHfcc(SeasonArchive().c_str()), HfccLoad::kRead);
  const std::string rows = std::to_string(season.Items().Count());
  EXPECT_EQ(Counts(), rows + " of " + rows + " broadcasts");
  ClickBox("Admin");  // under its new name; nothing is chosen
  EXPECT_EQ(Counts(), rows + " of " + rows + " broadcasts");
  ClickOption("EiBi database");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
}

TEST_F(HfccWindowTest, ChoosingAnArchiveShowsItAndABadOneSaysWhy) {
  SendMessageA(window_->Handle(), WM_COMMAND, GetMenuItemID(Archives(), 1), 0);
  EXPECT_TRUE(IsChecked(1));
  EXPECT_FALSE(IsChecked(0));
  EXPECT_TRUE(panel_->ShowsHfcc());
  std::string said;
  box = &said;
  SetTimer(nullptr, 0, 50, CloseBox);
  SendMessageA(window_->Handle(), WM_COMMAND, GetMenuItemID(Archives(), 2), 0);
  EXPECT_EQ(said, "a box");
  EXPECT_EQ(Counts(), "0 of 0 broadcasts");
}

TEST_F(TmxWindowTest, AWheelOverThePanelEndsWhereNothingScrolls) {
  SetTime(3, 0, 0);
  ClickBox("Time");
  EXPECT_EQ(Counts(), "0 of 5 broadcasts");
  EXPECT_EQ(SendMessageA(panel_->Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0), 0);
}

TEST_F(TmxWindowTest, ClosedWhileTheHostIsToldOfTheStartItStaysOutOfTheList) {
  const TmyWindowBase::Hold hold;
  auto* second = new TmxWindow(HostInfo());
  closing = second;
  EXPECT_EQ(second->Start(9, ClosingHost), 0u);
  EXPECT_EQ(Instances().Find(9), nullptr);
}

TEST_F(TmxWindowTest, TheNewestWindowPointerNeverDangles) {
  auto* second = new TmxWindow(HostInfo());
  second->Start(9, Host);
  EXPECT_EQ(NewestInstance(), second);
  second->Notification(HostNotification::kClose, 0, 0, 0);
  EXPECT_EQ(NewestInstance(), window_);
  window_->Notification(HostNotification::kClose, 0, 0, 0);
  window_ = nullptr;
  EXPECT_EQ(NewestInstance(), nullptr);
}

}  // namespace
