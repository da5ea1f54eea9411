#include "app/FccGrid.h"

#include "tests/support/Test.h"

struct FccGridTest : testing::Test {
  void SetUp() override {
    ASSERT_EQ(grid_.Load("build\\samples\\a26all00.zip"), HfccLoad::kRead);
    ASSERT_GE(grid_.RecordCount(), 300U);
    Refresh();
  }
  void TearDown() override { window_->Destroy(); }

  void Refresh(const FilterRecord& filter = {}) { grid_.Refresh(filter, {true, 0}, true); }
  void SetFields(const std::vector<uint32_t>& fields) {
    grid_.SetFields(fields.data(), static_cast<uint32_t>(fields.size()));
  }
  std::string Texts(uint32_t row) const {
    TmyStringList cells;
    grid_.RowTexts(row, cells);
    return cells.GetCommaText().Chars();
  }
  bool IsOrdered(uint32_t column) const {  // by its texts
    std::vector<std::string> texts;
    for (uint32_t row = 1; row <= grid_.ShownCount(); ++row) {
      TmyStringList cells;
      grid_.RowTexts(row, cells);
      texts.emplace_back(cells.Get(column).Chars());
    }
    return std::ranges::is_sorted(texts);
  }

  TmyComponent* window_ = new TmyComponent("", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  FccGrid grid_{*window_};
};

TEST_F(FccGridTest, SortAndWidthStayWithTheFieldAlsoWhenItMoves) {
  TmyStringGrid& grid = grid_.Control();
  EXPECT_FALSE(IsOrdered(4));
  grid.titleClicked(4);
  Refresh();
  EXPECT_TRUE(IsOrdered(4));
  grid.SetColumnWidth(4, 33);
  SetFields({0, 4, 5});
  EXPECT_EQ(grid.SortColumn(), 1);
  EXPECT_EQ(grid.ColumnWidth(1), 33);
  grid.columnMoved(1, 0);
  EXPECT_EQ(Texts(0), R"("Location","Freq","Power")");
  EXPECT_EQ(grid.SortColumn(), 0);
  EXPECT_TRUE(IsOrdered(0));
  SetFields({15, 0});
  EXPECT_EQ(grid.SortColumn(), -1);
  SetFields(std::vector<uint32_t>(40, 23));  // a field that there is not counts as the frequency
  EXPECT_EQ(grid_.Fields().size(), 22U);
  EXPECT_TRUE(Texts(0).starts_with(R"("Freq","Freq",)"));
}

TEST_F(FccGridTest, TellsTheItemAndTheModeOfARow) {
  EXPECT_EQ(grid_.ItemOf(0), nullptr);
  EXPECT_EQ(grid_.ItemOf(grid_.ShownCount() + 1), nullptr);
  std::map<char, uint32_t> modes;  // by the modulation
  for (uint32_t row = 1; row <= grid_.ShownCount(); ++row) {
    modes[grid_.ItemOf(row)->modulation] = grid_.TargetOf(row).mode;
  }
  EXPECT_EQ(modes, (std::map<char, uint32_t>{{'D', 1}, {'N', 9}, {'Q', 1}, {'T', 5}}));
  EXPECT_EQ(grid_.TargetOf(1).frequencyHz, 3900000U);
  EXPECT_EQ(grid_.Load("nowhere.zip"), HfccLoad::kNotOpened);
  EXPECT_EQ(grid_.ItemOf(1), nullptr);
}

// Each choice passes what it says, and all choices together everything that has a code.
TEST_F(FccGridTest, OffersFilterTextsThatPass) {
  for (uint32_t filter = 0; filter < 4; ++filter) {
    uint32_t passed = 0;
    for (const FilterText& text : grid_.FilterTexts(filter)) {
      FilterChoices choices;
      choices.texts[filter] = text.value.View();
      Refresh(BuildFilterRecord(choices));
      EXPECT_GT(grid_.ShownCount(), 0U) << text.shown.Chars();
      passed += grid_.ShownCount();
    }
    EXPECT_EQ(passed > grid_.RecordCount(), filter == 3) << "records have one code, but several zones";
    EXPECT_GE(passed, grid_.RecordCount());
  }
  std::vector<std::string> sites;
  for (const FilterText& site : grid_.FilterTexts(1)) sites.emplace_back(site.shown.Chars());
  EXPECT_EQ(std::ranges::count(sites, "Mirtos (MIR)"), 1);
  EXPECT_TRUE(
      std::ranges::is_sorted(sites, {}, [](const std::string& each) { return each.substr(0, each.find(" (")); }));
}
