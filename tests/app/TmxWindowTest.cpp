// The main window in one process with the test: panel, grid, timers and menus work together.
#include "app/TmxWindow.h"

#include "foundation/Clock.h"
#include "plugin/DataFolders.h"
#include "plugin/InstanceList.h"
#include "scheduler/NewTask.h"
#include "scheduler/TaskFile.h"
#include "tests/support/EibiLine.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/SeasonArchive.h"
#include "tests/toolkit/InDialog.h"

namespace {

std::vector<uint32_t> tuned;   // what the host was told, in Hz
TmxWindow* closing = nullptr;  // goes as soon as the host is told that it has started

uint32_t __stdcall Host(uint32_t, uint32_t code, uint32_t a, uint32_t, uint32_t) {
  if (code == HostCode::kTuneFrequency) tuned.push_back(a);
  if (code == HostCode::kInstanceState && a == HostCode::kInstanceStarted && closing) closing->Destroy();
  EXPECT_EQ(GetCapture(), nullptr) << "the host could not be used with the mouse";
  return 0;
}

struct TmxWindowTest : testing::Test {
  void SetUp() override {
    tuned.clear();
    SetTime(14, 30, 59);
    CreateFolders(documents_.DataFolder().c_str());
    const std::string lines[] = {EibiLine("6005", "0600-0800"), EibiLine("7325.5", "1400-1500", "", "Boreal", "F"),
                                 EibiLine("9420", "1400-1700"), EibiLine("9425", "1600-1700", "", "Delta", "D"),
                                 EibiLine("11780", "2200-2359")};
    std::string schedule = EibiHeader();
    for (const std::string& line : lines) schedule += line + "\r\n";
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\eibi.txt", schedule));
    window_ = new TmxWindow(HostInfo());
    window_->Start(7, Host);
    panel_ = &Nth<FilterPanel>(*window_);
    grid_ = &Nth<TmyStringGrid>(*window_);
  }
  void TearDown() override {
    window_->Destroy();
    Clock::Release();
  }

  static void SetTime(WORD hour, WORD minute, WORD second, int32_t offset = 0) {
    Clock::Hold({2026, 11, 6, 21, hour, minute, second, 0}, offset);
  }
  template <class Child>
  static Child& Nth(TmyComponent& parent, int index = 0) {
    for (TmyComponent* child = parent.NextChild(nullptr); child; child = parent.NextChild(child)) {
      auto* found = dynamic_cast<Child*>(child);
      if (found && index-- == 0) return *found;
    }
    throw std::runtime_error("no such child");
  }
  std::string Counts() const { return Nth<StatusBar>(*window_).Caption().Chars(); }
  void Timer(WPARAM id) { SendMessageA(window_->Handle(), WM_TIMER, id, 0); }
  void Choose(HMENU menu, int item) { SendMessageA(window_->Handle(), WM_COMMAND, GetMenuItemID(menu, item), 0); }
  void Click(const char* caption) { ClickOn(*panel_, caption); }
  void Key(uint32_t key) { Input::Key(*grid_, key); }

  FreshDocumentsFolder documents_;
  TmxWindow* window_ = nullptr;  // deleted by its window
  FilterPanel* panel_ = nullptr;
  TmyStringGrid* grid_ = nullptr;
};

TEST_F(TmxWindowTest, TheCurrentTimeFilterFollowsTheClockByItself) {
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
  Click("Time");
  EXPECT_EQ(Counts(), "2 of 5 broadcasts");
  grid_->SetCurrentRow(2, true);
  SetTime(14, 30, 1);
  Timer(1);
  EXPECT_EQ(grid_->CurrentRow(), 2u) << "nothing has changed";
  SetTime(16, 30, 0);
  EXPECT_EQ(grid_->CurrentRow(), 2u);
  Timer(1);
  EXPECT_EQ(grid_->CurrentRow(), 1u) << "9420 stays current, now as the first";
  Click("From");  // no longer the current time
  SetTime(6, 30, 0);
  Timer(1);
  EXPECT_EQ(Counts(), "5 of 5 broadcasts") << "from 00:00:00 to 23:59:59";
}

// A share or a drive may come later than the host, and somebody may have the file just then.
TEST_F(TmxWindowTest, TasksThatCouldNotBeReadAtTheStartBeginLater) {
  window_->Destroy();
  TmyTypeList<TmxTask> tasks;
  tasks.Add(std::make_unique<TmxTask>(NewTask(7325000, {})));
  tasks.Get(0)->to = {0, UINT32_MAX};
  tasks.Get(0)->stop = tasks.Get(0)->start;  // all day
  const TmyString path = DataFolder() + TaskFile::kName;
  ASSERT_TRUE(TaskFile::Save(path, tasks));
  auto locked = std::make_unique<TmyFile>(path, GENERIC_READ, OPEN_EXISTING, 0);
  window_ = new TmxWindow(HostInfo());
  window_->Start(7, Host);
  for (const size_t begun : {0u, 0u, 1u}) {  // the second pause is longer
    Clock::AdvanceTicks(60001);
    for (int i = 0; i < 2; ++i) Timer(1);
    EXPECT_EQ(tuned.size(), begun);
    locked.reset();
  }
}

TEST_F(TmxWindowTest, RangesAreInTheZoneShown) {
  SetTime(14, 0, 0, 3600);
  Timer(1);
  Click("Time");
  Nth<TmyTimeEdit>(*panel_, 1).SetValue(7 * 3600 + 1800);
  Click("From");
  EXPECT_EQ(Counts(), "2 of 5 broadcasts") << "what either side of midnight UTC passes";
  SetTime(14, 0, 0, 0);
  Timer(1);
  EXPECT_EQ(Counts(), "1 of 5 broadcasts") << "the end of summer time";
  SetTime(14, 0, 0, 3600);
  Choose(GetSubMenu(GetMenu(window_->Handle()), 1), 0);
  EXPECT_EQ(Counts(), "1 of 5 broadcasts") << "in UTC as entered";
}

TEST_F(TmxWindowTest, FrequenciesFilterAsTheyAreTypedAndConvertAtEveryClick) {
  Click("Frequency");
  auto& first = Nth<TmyFrequencyEdit>(*panel_, 0);
  auto& second = Nth<TmyFrequencyEdit>(*panel_, 1);
  second.SetValue(6000);
  first.TakeFocus();
  Input::Retype(first, "9422");
  EXPECT_EQ(Counts(), "2 of 5 broadcasts");
  Click("Around");
  EXPECT_EQ(std::pair(first.Value(), second.Value()), std::pair(int64_t{4714000}, int64_t{0}));
}

TEST_F(TmxWindowTest, ChosenTextsFilterAndABoxWithoutAChoiceDoesNot) {
  Click("Language");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
  Click("Language");
  auto& languages = Nth<TmyComboBox2>(*panel_, 1);
  ASSERT_EQ(languages.Count(), 3u);  // D, E, F: distinct and in order
  languages.TakeFocus();
  Input::Type(languages, "e");
  EXPECT_EQ(languages.Selection(), 1);
  EXPECT_EQ(Counts(), "3 of 5 broadcasts") << "the choice sets the box";
  Click("Language");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
}

TEST_F(TmxWindowTest, KeyboardMovesTuneOnceTheyRestAndClicksAtOnce) {
  Click("Auto-tuning");
  for (const uint32_t key : {VK_HOME, VK_DOWN, VK_DOWN}) Key(key);
  EXPECT_TRUE(tuned.empty());
  Timer(2);
  EXPECT_EQ(tuned, std::vector<uint32_t>{9420000});
  Input::Click(*grid_, 20, grid_->Layout().titleHeight + 5);
  EXPECT_EQ(tuned.size(), 2u);
  Click("Auto-tuning");
  Key(VK_HOME);
  Timer(2);
  EXPECT_EQ(tuned.size(), 2u);
}

TEST_F(TmxWindowTest, SortingKeepsTheCurrentRecordAndRefilteringKeepsTheOrder) {
  grid_->SetCurrentRow(1, true);  // 6005
  for (int i = 0; i < 2; ++i) Input::Click(*grid_, 20, 5);
  EXPECT_EQ(grid_->CurrentRow(), 5u);
  Click("Time");  // 14:30: two broadcasts, still from the highest frequency down
  for (const uint32_t row : {1, 2}) {
    grid_->SetCurrentRow(row, false);
    Key(VK_RETURN);
  }
  EXPECT_EQ(tuned, (std::vector<uint32_t>{9420000, 7325500}));
}

TEST_F(TmxWindowTest, AWheelOverThePanelEndsWhereNothingScrolls) {
  SetTime(3, 0, 0);
  Click("Time");
  EXPECT_EQ(Counts(), "0 of 5 broadcasts");
  EXPECT_EQ(SendMessageA(panel_->Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0), 0);
}

TEST_F(TmxWindowTest, ClosedWhileTheHostIsToldOfTheStartItStaysOutOfTheList) {
  const TmyWindowBase::Hold hold;
  closing = new TmxWindow(HostInfo());
  EXPECT_EQ(NewestInstance(), closing);
  EXPECT_EQ(closing->Start(9, Host), 0u);
  closing = nullptr;
  EXPECT_EQ(Instances().Find(9), nullptr);
  EXPECT_EQ(NewestInstance(), window_);
}

struct HfccWindowTest : TmxWindowTest {
  void SetUp() override {
    CreateFolders(documents_.DataFolder().c_str());
    const std::string archive = ReadFileBytes(SeasonArchive());
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\a26all00.zip", archive));
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\b25all00.zip", archive));
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\c.zip", "not an archive"));
    ASSERT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\a27all00.zip.new", "what a download left"));
    TmxWindowTest::SetUp();
  }
};

TEST_F(HfccWindowTest, TheNewestSeasonIsLoadedAndABadArchiveSaysWhy) {
  const HMENU archives = GetSubMenu(GetSubMenu(GetMenu(window_->Handle()), 0), 1);
  const auto isChecked = [&](int item) { return (GetMenuState(archives, item, MF_BYPOSITION) & MF_CHECKED) != 0; };
  EXPECT_TRUE(isChecked(0));
  Click("Language");
  Input::Type(Nth<TmyComboBox2>(*panel_, 1), "e");
  Click("HFCC database");
  HfccDatabase season;
  ASSERT_EQ(season.LoadHfcc(SeasonArchive().c_str()), HfccLoad::kRead);
  const std::string rows = std::to_string(season.Items().Count());
  EXPECT_EQ(Counts(), rows + " of " + rows + " broadcasts") << "without the other one's choice";
  Click("EiBi database");
  EXPECT_EQ(Counts(), "5 of 5 broadcasts");
  grid_->TakeFocus();
  Choose(archives, 1);
  EXPECT_TRUE(isChecked(1) && !isChecked(0));
  EXPECT_TRUE(panel_->ShowsHfcc());
  EXPECT_EQ(GetFocus(), Nth<TmyStringGrid>(*window_, 1).Handle()) << "Enter would tune from the hidden grid";
  const auto close = [](TmyComponent& box) { SendMessageA(box.Handle(), WM_CLOSE, 0, 0); };
  InDialog(
      "Marlux 3", [&] { Choose(archives, 2); }, close);
  EXPECT_EQ(Counts(), "0 of 0 broadcasts");
}

}  // namespace
