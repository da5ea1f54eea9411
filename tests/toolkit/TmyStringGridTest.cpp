#include "toolkit/TmyStringGrid.h"

#include "tests/toolkit/ControlFixture.h"

namespace {

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
  void Prepare() override {
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
    return GridGeometry::RecordStrip(grid_->Layout(), TmyStringGrid::RecordOf(row)).top + 3;
  }
  std::vector<std::string> Events() { return std::exchange(log_, {}); }
  // The records of the cells that are painted now.
  std::vector<uint32_t> Asked() {
    model_.asked.clear();
    UpdateWindow(grid_->Handle());
    return model_.asked;
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
  EXPECT_THAT(Events(), ElementsAre("row 3 control", "row 5 shift", "row 2", "row 2", "activated 2", "row 2 control",
                                    "row 2 control"));
}

TEST_F(StringGridTest, TitlesAreClickedWhereTheyWerePressedAndBordersDragged) {
  Input::Click(*grid_, 100, 5);
  Input::Drag(*grid_, 100, 5, 20, 5);
  Input::Drag(*grid_, 100, 5, 100, 200);
  Input::Drag(*grid_, 61, 5, 91, 40);
  EXPECT_THAT(Events(), ElementsAre("title 1", "resized 0"));
  EXPECT_EQ(grid_->ColumnsRight(), 1 + 90 + 120 + 80);
  Input::Mouse(*grid_, WM_LBUTTONDOWN, 91, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, -500, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, 160, 5, 0);  // released elsewhere
  EXPECT_THAT(Events(), ElementsAre("resized 0"));
  EXPECT_EQ(grid_->ColumnWidth(0), GridGeometry::kMinWidth);
}

TEST_F(StringGridTest, ADraggedTitleTakesItsColumnAlongUnlessEscapeIsPressed) {
  const auto cancel = [this](int x) {  // a drag
    Input::Mouse(*grid_, WM_LBUTTONDOWN, x, 5);
    Input::Mouse(*grid_, WM_MOUSEMOVE, 200, 100);
    const HWND marker = GetTopWindow(grid_->Handle());
    EXPECT_TRUE(IsWindowVisible(marker));
    EXPECT_EQ(SendMessageA(marker, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
    Input::Key(*grid_, VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(marker));
    Input::Mouse(*grid_, WM_LBUTTONUP, 200, 5, 0);
  };
  grid_->SetSort(0, true);
  grid_->SetColumnsMovable(true);
  Input::Drag(*grid_, 20, 5, 23, 5);  // not far enough: a click
  cancel(20);
  cancel(61);                          // a border
  Input::Drag(*grid_, 20, 5, 100, 5);  // back where it was
  Input::Drag(*grid_, 20, 5, 200, 5);
  EXPECT_EQ(grid_->SortColumn(), 1);
  Input::Drag(*grid_, 200, 5, -100, 200);
  EXPECT_THAT(Events(), ElementsAre("title 0", "column 0 to 1", "column 2 to 0"));
  EXPECT_THAT(std::vector(grid_->Widths(), grid_->Widths() + 3), ElementsAre(80, 120, 60));
}

TEST_F(StringGridTest, KeysMoveAndAct) {
  Fill(50);
  Input::Key(*grid_, VK_RETURN);  // there is no current row yet
  for (const uint32_t key : {VK_DOWN, VK_DOWN, VK_END, VK_DOWN}) Input::Key(*grid_, key);
  EXPECT_THAT(Events(), ElementsAre("moved 1", "moved 2", "moved 50"));
  EXPECT_EQ(grid_->TopRow(), 51 - GridGeometry::FullRecords(grid_->Layout()));
  Input::Key(*grid_, VK_UP, VK_SHIFT);
  Input::Key(*grid_, VK_SPACE, VK_CONTROL);
  Input::Key(*grid_, VK_SPACE, 0, 1 | 1 << 30);  // held down
  Input::Key(*grid_, VK_RETURN);
  EXPECT_THAT(Events(), ElementsAre("row 49 shift", "row 49 control", "activated 49"));
}

TEST_F(StringGridTest, ARightClickAndTheMenuKeyAskForTheMenuOfARow) {
  Fill(500);
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);  // there is no current row yet
  Input::Mouse(*grid_, WM_RBUTTONDOWN, 20, RowY(3), MK_RBUTTON);
  EXPECT_EQ(grid_->CurrentRow(), 3u);
  EXPECT_THAT(Events(), IsEmpty());
  Input::Mouse(*grid_, WM_RBUTTONUP, 20, RowY(3), 0);
  Input::Mouse(*grid_, WM_RBUTTONUP, 20, 5, 0);  // a title has no menu
  grid_->SetCurrentRow(400, false);
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);
  EXPECT_THAT(Events(), ElementsAre("context 3", "context 400"));
  EXPECT_GT(grid_->TopRow(), 300u);  // it was out of view
}

TEST_F(StringGridTest, KeepsScrollPositionAndCurrentRowValid) {
  Fill(1000);
  Input::Wheel(*grid_, -2);
  EXPECT_GT(grid_->TopRow(), 3u);  // several lines a notch
  grid_->SetCurrentRow(900, true);
  constexpr uint32_t kNone = TmyStringGrid::kNoRow;
  const uint32_t lastTop = 851 - GridGeometry::FullRecords(grid_->Layout());
  const uint32_t kCases[][3] = {{850, 850, lastTop}, {3, 3, 1}, {0, kNone, 1}, {10, kNone, 1}};
  for (const auto& [rows, current, top] : kCases) {
    Fill(rows);
    EXPECT_EQ(std::pair(grid_->CurrentRow(), grid_->TopRow()), std::pair(current, top)) << rows;
  }
}

TEST_F(StringGridTest, PaintsOnlyWhatIsSeen) {
  Fill(1000000);
  grid_->SetTopRow(500001);
  const GridGeometry::RecordRange shown = GridGeometry::ShownRecords(grid_->Layout());
  const std::vector<uint32_t> all = Asked();
  EXPECT_EQ(all.size(), 3 * (shown.end - shown.first));
  EXPECT_EQ(*std::min_element(all.begin(), all.end()), 500000u);
  grid_->RepaintRow(500003);
  EXPECT_THAT(Asked(), ElementsAre(500002, 500002, 500002));
  grid_->SetTopRow(1);
  model_.count = 4;  // and nobody has told the grid yet; CellText checks the record
  EXPECT_EQ(Asked().size(), 3 * 4u);
}

TEST_F(StringGridTest, MayBeDestroyedByEachThingItTells) {
  void (*const kActions[])(TmyStringGrid&, int) = {
      [](TmyStringGrid& grid, int y) { Input::Click(grid, 10, y); },
      [](TmyStringGrid& grid, int) { Input::Click(grid, 10, 5); },
      [](TmyStringGrid& grid, int y) { Input::Mouse(grid, WM_RBUTTONUP, 10, y); },
      [](TmyStringGrid& grid, int) { Input::Key(grid, VK_DOWN); },
      [](TmyStringGrid& grid, int) { Input::Drag(grid, 61, 5, 80, 5); },
  };
  for (const auto act : kActions) {
    Fill(5);
    CloseDuring([&] { act(*grid_, RowY(2)); });
    EXPECT_EQ(Events().size(), 1u);
  }
}

}  // namespace
