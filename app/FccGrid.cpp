#include "app/FccGrid.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "app/FccFilter.h"
#include "plugin/HostLink.h"
#include "toolkit/TmyApplication.h"

namespace {

// The text filters that compare codes, and where their names come from.
struct CodeFilter {
  const char* FccItem::*code;
  const char* (HfccDatabase::*name)(const FccItem&) const noexcept;
};
constexpr CodeFilter kCodeFilters[] = {
    {&FccItem::administrationCode, &HfccDatabase::AdministrationName},
    {&FccItem::siteCode, &HfccDatabase::LocationName},
    {&FccItem::broadcasterCode, &HfccDatabase::BroadcasterName},
};

FilterText CodeText(std::string_view code, std::string_view name) {
  const TmyString value(code);
  return {code == name ? value : TmyString(name) + " (" + value + ")", value};
}

}  // namespace

FccGrid::FccGrid(TmyComponent& parent) : ScheduleGrid(parent) {
  Control().SetColumnsMovable(true);
  Control().columnMoved.Bind<&FccGrid::ColumnMoved>(this);
  SetFields(kFirstFccFields, std::size(kFirstFccFields));
}

HfccLoad FccGrid::Load(const TmyString& archivePath) {
  ForgetRecords();
  return database_.LoadHfcc(archivePath);
}

void FccGrid::SetFields(const uint32_t* fields, uint32_t count) {
  ScaleWidths();  // all widths must be meant for one text height
  const FccColumn* const sortedBy = SortedBy();
  count = std::min(count, kFccFields);
  // All that takes memory comes first: the grid paints as many columns as it was told last.
  std::vector<const FccColumn*> before = columns_, columns;
  std::vector<uint32_t> chosen(fields, fields + count);
  int32_t widths[kFccFields];
  for (uint32_t i = 0; i < count; ++i) {
    const FccColumn& column = FccColumnOf(chosen[i]);
    columns.push_back(&column);
    const auto place = std::ranges::find(before, &column);
    widths[i] = place == before.end() ? Theme().Scaled(column.width) : Control().Widths()[place - before.begin()];
    if (place != before.end()) *place = nullptr;  // a field may be shown twice
  }
  columns_.swap(columns);
  fields_.swap(chosen);
  ShowColumns();
  Control().SetWidths(widths, count);
  SortBy(sortedBy);
}

// Widths stay with the places here.
void FccGrid::ShowColumns() {
  TmyGridColumn shown[kFccFields];
  for (size_t i = 0; i < columns_.size(); ++i) shown[i] = {columns_[i]->title, 0, columns_[i]->alignRight};
  SetColumns(shown, static_cast<uint32_t>(columns_.size()));
}

void FccGrid::ColumnMoved(uint32_t from, uint32_t to) {
  const FccColumn* const sortedBy = SortedBy();
  const auto move = [=](auto& items) {
    const auto moved = items[from];
    items.erase(items.begin() + static_cast<ptrdiff_t>(from));
    items.insert(items.begin() + static_cast<ptrdiff_t>(to), moved);
  };
  move(fields_);
  move(columns_);
  ShowColumns();
  SortBy(sortedBy);
}

const FccColumn* FccGrid::SortedBy() const noexcept {
  const int column = SortColumn();
  return column >= 0 ? columns_[static_cast<uint32_t>(column)] : nullptr;
}

void FccGrid::SortBy(const FccColumn* column) {
  const auto place = std::ranges::find(columns_, column);
  MoveSort(place == columns_.end() ? -1 : static_cast<int>(place - columns_.begin()));
}

const FccItem* FccGrid::ItemOf(uint32_t row) const noexcept {
  return ShowsRecord(row) ? &ItemAt(TmyStringGrid::RecordOf(row)) : nullptr;
}

TuneTarget FccGrid::TargetOf(uint32_t row) const {
  const FccItem& item = ItemAt(TmyStringGrid::RecordOf(row));
  return {static_cast<uint32_t>(item.frequency), ModeOfModulation(item.modulation)};
}

std::vector<FilterText> FccGrid::FilterTexts(uint32_t filter) const {
  if (filter >= std::size(kCodeFilters)) return ZoneTexts();
  const CodeFilter& coded = kCodeFilters[filter];
  std::map<std::pair<std::string_view, std::string_view>, FilterText> texts;  // by name, then code
  for (uint32_t i = 0; i < database_.Items().Count(); ++i) {
    const FccItem& item = *database_.Items().Get(i);
    const std::string_view code = item.*coded.code;
    if (code.empty()) continue;
    const std::string_view name = (database_.*coded.name)(item);
    const auto [place, isNew] = texts.try_emplace({name, code});
    if (isNew) place->second = CodeText(code, name);
  }
  std::vector<FilterText> sorted;
  sorted.reserve(texts.size());
  for (const auto& [key, text] : texts) sorted.push_back(text);
  return sorted;
}

std::vector<FilterText> FccGrid::ZoneTexts() const {
  std::vector<FilterText> texts;
  for (uint32_t zone = 1; zone <= ZoneSet::kHighest; ++zone) {
    uint32_t i = 0;
    while (i < database_.Items().Count() && !database_.Items().Get(i)->ciraf.Holds(zone)) ++i;
    if (i == database_.Items().Count()) continue;
    const TmyString text = TmyString::FromDecimal(zone);
    texts.push_back({text, text});
  }
  return texts;
}

void FccGrid::RunFilter(const FilterRecord& filter, TmyList& passing) {
  FilterFcc(database_.Items(), filter, passing);
}

void FccGrid::Sort(TmyList& records, uint32_t column, SortDirection direction) {
  SortFcc(records, direction, FccGreater(database_, *columns_[column], Zone()));
}

void FccGrid::CellText(uint32_t record, uint32_t column, TmyCellText& text) const {
  CellBuffer buffer;
  text.Set(FccCellText(database_, ItemAt(record), *columns_[column], Zone(), buffer));
}
