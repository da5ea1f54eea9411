#include "toolkit/TmyStringGrid.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

#include "tests/toolkit/ControlFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CountingModel : public TmyGridModel {
 public:
  uint32_t RowCount() const override { return count; }
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override {
    asked.insert(record);
    ++cells;
    EXPECT_LT(record, count);
    text.Set(column == 1 ? longText : "x");
  }

  uint32_t count = 0;
  std::string longText = "some text";
  mutable std::set<uint32_t> asked;
  mutable uint32_t cells = 0;
};

constexpr TmyGridColumn kColumns[] = {{"Freq", 60, true}, {"Station", 120}, {"Remarks", 80}};

class StringGridTest : public ControlFixture {
 protected:
  StringGridTest() { Open(); }
  void Open() {
    if (!window_) window_ = new InputWindow;
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
  }
  void Fill(uint32_t records) {
    model_.count = records;
    grid_->RowsChanged();
  }
  int RowY(uint32_t row) const {  // the middle of a row that is shown
    return GridGeometry::RecordStrip(grid_->Layout(), TmyStringGrid::RecordOf(row)).top + 3;
  }
  std::vector<std::string> Events() { return std::exchange(log_, {}); }

  void Log(const char* what, uint32_t number, const char* rest = "") {
    log_.push_back(what + std::to_string(number) + rest);
    Tell();
  }
  void TitleClicked(int column) { Log("title ", static_cast<uint32_t>(column)); }
  void RowClicked(const TmyRowClick& click) {
    EXPECT_EQ(grid_->CurrentRow(), click.row);
    Log("row ", click.row, click.shift ? (click.control ? " both" : " shift") : (click.control ? " control" : ""));
  }
  void RowActivated(uint32_t row) { Log("activated ", row); }
  void RowContext(uint32_t row, int x, int y) {
    contextAt_ = {x, y};
    Log("context ", row);
  }
  void CurrentMoved(uint32_t row) { Log("moved ", row); }
  void ColumnResized(int column) { Log("resized ", static_cast<uint32_t>(column)); }

  CountingModel model_;
  TmyStringGrid* grid_ = nullptr;
  POINT contextAt_ = {};
  std::vector<std::string> log_;
};

TEST_F(StringGridTest, ClicksTellTheRowAndTheKeysAndDoubleClicksActivate) {
  Fill(5);
  Input::Click(*grid_, 390, RowY(3), MK_CONTROL);  // right of the columns
  Input::Click(*grid_, 10, RowY(5), MK_SHIFT);
  Input::Click(*grid_, 10, RowY(5) + grid_->Layout().rowHeight);  // below the last row
  EXPECT_EQ(GetFocus(), grid_->Handle());
  for (const WPARAM keys : {WPARAM{0}, WPARAM{MK_CONTROL}}) {
    Input::Click(*grid_, 10, RowY(2), keys);
    Input::Click(*grid_, 10, RowY(2), keys);
  }
  EXPECT_THAT(Events(), ElementsAre("row 3 control", "row 5 shift", "row 2", "row 2", "activated 2", "row 2 control",
                                    "row 2 control"));
}

TEST_F(StringGridTest, ARowCutAtTheBottomStaysUnderTheSecondClick) {
  Fill(100);
  const GridGeometry::Layout& layout = grid_->Layout();
  grid_->SetBounds(0, 0, 400, layout.titleHeight + 5 * layout.rowHeight + layout.rowHeight / 2);
  const uint32_t cut = TmyStringGrid::RowOf(GridGeometry::ShownRecords(layout).end - 1);
  ASSERT_GT(cut, GridGeometry::FullRecords(layout));
  Input::Click(*grid_, 10, RowY(cut));
  Input::Click(*grid_, 10, RowY(cut));
  EXPECT_EQ(Events().back(), "activated " + std::to_string(cut));
  EXPECT_EQ(grid_->TopRow(), 1u);
}

TEST_F(StringGridTest, TitlesAreClickedWhereTheyWerePressedAndBordersDragged) {
  Input::Click(*grid_, 100, 5);
  Input::Drag(*grid_, 100, 5, 20, 5);
  Input::Drag(*grid_, 100, 5, 100, 200);
  Input::Drag(*grid_, 61, 5, 91, 40);
  EXPECT_THAT(Events(), ElementsAre("title 1", "resized 0"));
  EXPECT_EQ(grid_->ColumnsRight(), 1 + 90 + 120 + 80);
  Input::Drag(*grid_, 91, 5, -500, 5);
  EXPECT_EQ(grid_->ColumnWidth(0), GridGeometry::kMinWidth);
  Input::Mouse(*grid_, WM_LBUTTONDOWN, 1 + 12 + 120, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, 150, 5);
  Input::Mouse(*grid_, WM_MOUSEMOVE, 160, 5, 0);  // released elsewhere
  EXPECT_THAT(Events(), ElementsAre("resized 0", "resized 1"));
  EXPECT_EQ(grid_->ColumnWidth(1), 137);
}

TEST_F(StringGridTest, ADoubleClickOnABorderFitsTheColumn) {
  Fill(1000);
  model_.longText = "a text of quite some length, longer than its column";
  Input::Click(*grid_, 1 + 60 + 120, 5);
  Input::Click(*grid_, 1 + 60 + 120, 5);
  EXPECT_THAT(Events(), ElementsAre("resized 1"));
  const int text = TmyApplication::Get().Theme().TextWidth(model_.longText);
  EXPECT_GT(grid_->ColumnWidth(1), text);
  EXPECT_LT(grid_->ColumnWidth(1), text + 40);
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
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);
  EXPECT_THAT(Events(), IsEmpty());  // there is no current row yet
  POINT at = {20, RowY(3)};
  Input::Mouse(*grid_, WM_RBUTTONDOWN, at.x, at.y, MK_RBUTTON);
  EXPECT_EQ(grid_->CurrentRow(), 3u);
  EXPECT_EQ(GetFocus(), grid_->Handle());
  EXPECT_THAT(Events(), IsEmpty());
  Input::Mouse(*grid_, WM_RBUTTONUP, at.x, at.y, 0);
  ClientToScreen(grid_->Handle(), &at);
  EXPECT_EQ(contextAt_.x, at.x);
  EXPECT_EQ(contextAt_.y, at.y);
  Input::Mouse(*grid_, WM_RBUTTONUP, 20, 5, 0);  // a title has no menu
  grid_->SetCurrentRow(400, false);
  SendMessageA(grid_->Handle(), WM_CONTEXTMENU, 0, -1);
  EXPECT_THAT(Events(), ElementsAre("context 3", "context 400"));
  RECT place = {};
  GetWindowRect(grid_->Handle(), &place);
  EXPECT_TRUE(PtInRect(&place, contextAt_));
  EXPECT_GT(grid_->TopRow(), 300u);  // it was out of view
}

TEST_F(StringGridTest, KeepsScrollPositionAndCurrentRowValid) {
  Fill(1000);
  Input::Wheel(*grid_, -2);
  EXPECT_EQ(grid_->TopRow(), 1u + 2 * static_cast<uint32_t>(Input::WheelLines()));
  grid_->SetCurrentRow(900, true);
  const uint32_t kNone = TmyStringGrid::kNoRow;
  const struct {
    uint32_t rows, current, top;
  } kCases[] = {{850, 850, 851 - GridGeometry::FullRecords(grid_->Layout())}, {3, 3, 1}, {0, kNone, 1}, {10, kNone, 1}};
  for (const auto& c : kCases) {
    Fill(c.rows);
    EXPECT_EQ(grid_->CurrentRow(), c.current) << c.rows;
    EXPECT_EQ(grid_->TopRow(), c.top) << c.rows;
  }
  grid_->SetCurrentRow(11, true);
  EXPECT_EQ(grid_->CurrentRow(), kNone);
}

TEST_F(StringGridTest, PaintsOnlyWhatIsSeen) {
  Fill(1000000);
  grid_->SetTopRow(500001);
  const GridGeometry::RecordRange shown = GridGeometry::ShownRecords(grid_->Layout());
  UpdateWindow(grid_->Handle());
  model_.asked.clear();
  model_.cells = 0;
  grid_->Repaint();
  UpdateWindow(grid_->Handle());
  EXPECT_EQ(*model_.asked.begin(), 500000u);
  EXPECT_EQ(model_.asked.size(), shown.end - shown.first);
  EXPECT_EQ(model_.cells, 3 * (shown.end - shown.first));
  model_.asked.clear();
  grid_->RepaintRow(500003);
  UpdateWindow(grid_->Handle());
  EXPECT_THAT(model_.asked, ElementsAre(500002u));
  model_.asked.clear();
  Fill(1000);
  model_.count = 4;  // and nobody has told the grid yet; CellText checks the record
  grid_->SetTopRow(1);
  grid_->Repaint();
  UpdateWindow(grid_->Handle());
  EXPECT_EQ(model_.asked.size(), 4u);
}

TEST_F(StringGridTest, KeepsTheStoredWidthsAsTheyAre) {
  const int32_t stored[] = {-5, 1000000, 70};
  grid_->SetWidths(stored, 3);
  const TmyGridColumn columns[] = {{"Freq"}, {"Station", 120}};
  grid_->SetColumns(columns, 2);
  // A column without a width of its own keeps what is there.
  EXPECT_THAT(std::vector<int32_t>(grid_->Widths(), grid_->Widths() + 3), ElementsAre(-5, 120, 70));
}

TEST_F(StringGridTest, MayBeDestroyedByEachThingItTells) {
  const auto kActions = {
      +[](TmyStringGrid& grid, int y) { Input::Click(grid, 10, y); },
      +[](TmyStringGrid& grid, int) { Input::Click(grid, 10, 5); },
      +[](TmyStringGrid& grid, int y) { Input::Mouse(grid, WM_RBUTTONUP, 10, y); },
      +[](TmyStringGrid& grid, int) { Input::Key(grid, VK_DOWN); },
      +[](TmyStringGrid& grid, int) { Input::Drag(grid, 61, 5, 80, 5); },
  };
  for (const auto& action : kActions) {
    destroyInEvent_ = false;
    Close();
    Open();
    Fill(5);
    destroyInEvent_ = true;
    action(*grid_, RowY(2));
    EXPECT_EQ(Events().size(), 1u) << "action " << (&action - kActions.begin());
  }
}

}  // namespace
