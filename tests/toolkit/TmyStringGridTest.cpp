#include "toolkit/TmyStringGrid.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

using namespace GridGeometry;

// 300 x 220 below and right of a frame of one pixel: a title row of 20 and ten records of 20, three columns.
struct GridGeometryTest : testing::Test {
  int32_t widths_[3] = {50, 100, 70};
  Layout layout_ = {
      .area = {1, 1, 301, 221}, .titleHeight = 20, .rowHeight = 20, .widths = widths_, .columns = 3, .records = 1000};
};

TEST_F(GridGeometryTest, DividesTheClientArea) {
  // What is shown: the bars, then the area's right and bottom.
  using Shown = std::tuple<bool, bool, LONG, LONG>;
  const std::tuple<const char*, uint32_t, int, int, Shown> kCases[] = {
      {"all fits", 5, 222, 122, {false, false, 221, 121}},
      {"a vertical bar makes a horizontal one necessary", 6, 222, 122, {true, true, 207, 107}},
      {"a horizontal bar makes a vertical one necessary", 5, 221, 122, {true, true, 206, 107}},
  };
  for (const auto& [what, records, width, height, shown] : kCases) {
    layout_.records = records;
    const View view = ViewOf(layout_, width, height, 14);
    EXPECT_EQ(Shown(view.vertical, view.horizontal, view.area.right, view.area.bottom), shown) << what;
  }
}

TEST_F(GridGeometryTest, TellsWhatIsUnderThePoint) {
  using At = std::tuple<Part, int, uint32_t>;
  const auto hit = [this](int x, int y, int grab = 4) {
    const Hit found = HitTest(layout_, x, y, grab);
    return At(found.part, found.column, found.record);
  };
  layout_.top = 7;
  EXPECT_EQ(hit(225, 5), At(Part::kBorder, 2, kNoRecord)) << "the last border from outside";
  EXPECT_EQ(hit(47, 21), At(Part::kRecord, 0, 7)) << "borders are caught in the title row only";
  layout_.scrollX = 40;
  EXPECT_EQ(hit(20, 30), At(Part::kRecord, 1, 7));
  widths_[1] = -7;  // drawn as a sensible width; the right one of two close borders is caught
  EXPECT_EQ(hit(11 + kMinWidth - 5, 5, 8), At(Part::kBorder, 1, kNoRecord));
}

TEST_F(GridGeometryTest, ShowsTheCutRecordToo) {
  layout_.area.bottom -= 5;
  layout_.top = 3;
  EXPECT_EQ(FullRecords(layout_), 9u);
  EXPECT_EQ(ShownRecords(layout_).end, 13u);
  EXPECT_EQ(RecordStrip(layout_, 12).bottom, layout_.area.bottom);
  for (const uint32_t unseen : {2, 13}) EXPECT_EQ(RecordStrip(layout_, unseen).right, 0);
}

struct CountingModel : TmyGridModel {
  uint32_t RowCount() const override { return count; }
  void CellText(uint32_t record, uint32_t, TmyCellText& text) const override {
    EXPECT_LT(record, count);
    asked.push_back(record);
    text.Set("x");
  }

  uint32_t count = 0;
  mutable std::vector<uint32_t> asked;  // the record of each cell
};

struct StringGridTest : ControlFixture {
  void SetUp() override {
    constexpr TmyGridColumn kColumns[] = {{"Freq", 60, true}, {"Station", 120}, {"Remarks", 80}};
    grid_ = new TmyStringGrid(*window_);
    grid_->SetColumns(kColumns, 3);
    grid_->SetModel(&model_);
    grid_->SetBounds(0, 0, 400, 300);
    grid_->Show(true);
    grid_->titleClicked.Bind<&StringGridTest::TitleClicked>(this);
    grid_->rowClicked.Bind<&StringGridTest::RowClicked>(this);
    grid_->rowActivated.Bind<&StringGridTest::RowActivated>(this);
    grid_->rowContext.Bind<&StringGridTest::RowContext>(this);
    grid_->currentMoved.Bind<&StringGridTest::CurrentMoved>(this);
    grid_->columnResized.Bind<&StringGridTest::ColumnResized>(this);
    grid_->columnMoved.Bind<&StringGridTest::ColumnMoved>(this);
  }
  void Fill(uint32_t records) {
    model_.count = records;
    grid_->RowsChanged();
  }
  int RowY(uint32_t row) const {  // in a row that is shown
    return RecordStrip(grid_->Layout(), TmyStringGrid::RecordOf(row)).top + 3;
  }
  void Log(const char* what, int64_t number, const std::string& rest = {}) {
    log_.push_back(what + std::to_string(number) + rest);
    Tell();
  }
  void TitleClicked(int column) { Log("title ", column); }
  void RowClicked(const TmyRowClick& click) {
    EXPECT_EQ(grid_->CurrentRow(), click.row);
    Log("row ", click.row, std::string(click.shift ? " shift" : "") + (click.control ? " control" : ""));
  }
  void RowActivated(uint32_t row) { Log("activated ", row); }
  void RowContext(uint32_t row, int, int) { Log("context ", row); }
  void CurrentMoved(uint32_t row) { Log("moved ", row); }
  void ColumnResized(int column) { Log("resized ", column); }
  void ColumnMoved(uint32_t from, uint32_t to) { Log("column ", from, " to " + std::to_string(to)); }

  CountingModel model_;
  TmyStringGrid* grid_ = nullptr;
  std::vector<std::string> log_;
};

TEST_F(StringGridTest, ClicksTellTheRowAndTheKeysAndDoubleClicksActivate) {
  Fill(5);
  Input::Click(*grid_, 390, RowY(3), MK_CONTROL);  // right of the columns
  Input::Click(*grid_, 10, RowY(5), MK_SHIFT);
  Input::Click(*grid_, 10, RowY(5) + grid_->Layout().rowHeight);  // below the last row
  EXPECT_EQ(GetFocus(), grid_->Handle());
  for (const WPARAM keys : {0, 0, MK_CONTROL, MK_CONTROL}) Input::Click(*grid_, 10, RowY(2), keys);
  EXPECT_THAT(log_, ElementsAre("row 3 control", "row 5 shift", "row 2", "row 2", "activated 2", "row 2 control",
                                "row 2 control"));
  CloseDuring([this] { Input::Click(*grid_, 10, RowY(2)); });
}

TEST_F(StringGridTest, TitlesAreClickedWhereTheyWerePressedAndBordersDragged) {
  Input::Click(*grid_, 100, 5);
  for (const uint32_t key : {'1', '4'}) Input::Key(*grid_, key, VK_CONTROL);  // there are three
  Input::Drag(*grid_, 100, 5, 20, 5);
  Input::Drag(*grid_, 100, 5, 100, 200);
  Input::Drag(*grid_, 61, 5, 91, 40);
  EXPECT_EQ(grid_->ColumnWidth(0), 90);
  Input::Mouse(*grid_, WM_LBUTTONDOWN, 91, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, -500, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, 160, 5, 0);  // released elsewhere
  EXPECT_THAT(log_, ElementsAre("title 1", "title 0", "resized 0", "resized 0"));
  EXPECT_EQ(grid_->ColumnWidth(0), kMinWidth);
  CloseDuring([this] { Input::Click(*grid_, 100, 5); });
  CloseDuring([this] { Input::Drag(*grid_, 61, 5, 80, 5); });
}

TEST_F(StringGridTest, ADraggedTitleTakesItsColumnAlongUnlessEscapeIsPressed) {
  grid_->SetSort(0, true);
  grid_->SetColumnsMovable(true);
  for (const int x : {20, 61}) {  // a title, a border
    Input::Mouse(*grid_, WM_LBUTTONDOWN, x, 5);
    Input::Mouse(*grid_, WM_MOUSEMOVE, 200, 100);
    Input::Key(*grid_, VK_ESCAPE);
    Input::Mouse(*grid_, WM_LBUTTONUP, 200, 5, 0);
    MSG escape;
    EXPECT_FALSE(PeekMessageA(&escape, grid_->Handle(), kMsgEscape, kMsgEscape, PM_REMOVE));  // the window stays
  }
  Input::Drag(*grid_, 20, 5, 23, 5);   // not far enough: a click
  Input::Drag(*grid_, 20, 5, 100, 5);  // back where it was
  Input::Drag(*grid_, 20, 5, 150, 5);
  EXPECT_EQ(grid_->SortColumn(), 1);
  Input::Drag(*grid_, 200, 5, -100, 200);
  EXPECT_THAT(log_, ElementsAre("title 0", "column 0 to 1", "column 2 to 0"));
  EXPECT_EQ(grid_->SortColumn(), 2);
  EXPECT_THAT(std::vector(grid_->Widths(), grid_->Widths() + 3), ElementsAre(80, 120, 60));
}

TEST_F(StringGridTest, KeysMoveAndAct) {
  Fill(50);
  Input::Key(*grid_, VK_RETURN);  // there is no current row yet
  const uint32_t full = FullRecords(grid_->Layout());
  for (const uint32_t key : {VK_DOWN, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END, VK_NEXT, VK_DOWN}) {
    Input::Key(*grid_, key);
  }
  EXPECT_EQ(grid_->TopRow(), 51 - full);
  Input::Key(*grid_, VK_UP, VK_SHIFT);
  Input::Key(*grid_, VK_SPACE, VK_CONTROL);
  Input::Key(*grid_, VK_SPACE, 0, 1 | 1 << 30);  // held down
  Input::Key(*grid_, VK_RETURN);
  EXPECT_THAT(log_, ElementsAre("moved 1", "moved 2", "moved 1", "moved " + std::to_string(full), "moved 1", "moved 50",
                                "row 49 shift", "row 49 control", "activated 49"));
  CloseDuring([this] { Input::Key(*grid_, VK_DOWN); });
}

TEST_F(StringGridTest, ARightClickAndTheMenuKeyAskForTheMenuOfARow) {
  Fill(500);
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);  // there is no current row yet
  Input::Mouse(*grid_, WM_RBUTTONDOWN, 20, RowY(3), MK_RBUTTON);
  EXPECT_EQ(grid_->CurrentRow(), 3u);
  Input::Mouse(*grid_, WM_RBUTTONUP, 20, RowY(3), 0);
  Input::Mouse(*grid_, WM_RBUTTONUP, 20, 5, 0);  // a title has no menu
  grid_->SetCurrentRow(400, false);
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);
  EXPECT_THAT(log_, ElementsAre("context 3", "context 400"));
  EXPECT_GT(grid_->TopRow(), 300u);  // it was out of view
  CloseDuring([this] { Input::Mouse(*grid_, WM_RBUTTONUP, 10, RowY(400), 0); });
}

TEST_F(StringGridTest, KeepsScrollPositionAndCurrentRowValid) {
  Fill(1000);
  Input::Wheel(*grid_, -2);
  EXPECT_GT(grid_->TopRow(), 3u);  // several lines a notch
  grid_->SetCurrentRow(900, true);
  constexpr uint32_t kNone = TmyStringGrid::kNoRow;
  const uint32_t lastTop = 851 - FullRecords(grid_->Layout());
  const uint32_t kCases[][3] = {{850, 850, lastTop}, {3, 3, 1}, {0, kNone, 1}, {10, kNone, 1}};
  for (const auto& [rows, current, top] : kCases) {
    Fill(rows);
    EXPECT_EQ(std::pair(grid_->CurrentRow(), grid_->TopRow()), std::pair(current, top)) << rows;
  }
}

TEST_F(StringGridTest, PaintsOnlyWhatIsSeenAndNothingThatIsGone) {
  Fill(1000000);
  grid_->SetTopRow(500001);
  UpdateWindow(grid_->Handle());
  const RecordRange shown = ShownRecords(grid_->Layout());
  EXPECT_EQ(model_.asked.size(), 3 * (shown.end - shown.first));
  EXPECT_EQ(model_.asked.front(), 500000u);
  grid_->SetTopRow(1);
  model_.count = 4;  // and nobody has told the grid yet; CellText checks the record
  UpdateWindow(grid_->Handle());
}

}  // namespace
