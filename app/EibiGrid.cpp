#include "app/EibiGrid.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "app/EibiFilter.h"
#include "plugin/HostLink.h"
#include "schedule/EibiReader.h"
#include "toolkit/TmyApplication.h"

EibiGrid::EibiGrid(TmyComponent& parent) : ScheduleGrid(parent), items_(std::make_unique<TmyTypeList<EibiItem>>()) {
  SetDefaultWidths();
}

void EibiGrid::SetDefaultWidths() {
  const TmyTheme& theme = Theme();
  TmyGridColumn columns[kEibiShownColumns];
  for (uint32_t i = 0; i < kEibiShownColumns; ++i) {
    const EibiColumnInfo& info = kEibiColumnInfos[i];
    columns[i] = {info.title, theme.Scaled(info.width), info.alignRight};
  }
  SetColumns(columns, kEibiShownColumns);
}

void EibiGrid::Load(const TmyString& folder) {
  ForgetRecords();
  items_ = LoadEibi(folder);
}

bool EibiGrid::Reload(const TmyString& folder) {
  auto items = LoadEibi(folder);
  if (items->Count() == 0) return false;
  ForgetRecords();
  items_ = std::move(items);
  return true;
}

void EibiGrid::RunFilter(const FilterRecord& filter, TmyList& passing) {
  FilterEibi(*items_, filter, passing);
}

const EibiItem* EibiGrid::ItemOf(uint32_t row) const noexcept {
  return ShowsRecord(row) ? &ItemAt(TmyStringGrid::RecordOf(row)) : nullptr;
}

TuneTarget EibiGrid::TargetOf(uint32_t row) const {
  const EibiItem& item = ItemAt(TmyStringGrid::RecordOf(row));
  return {static_cast<uint32_t>(item.frequency), HostMode::kOtherwise};
}

// Part of every start: there are many rows and few distinct texts, and often one row's text is that of the row before.
std::vector<FilterText> EibiGrid::FilterTexts(uint32_t filter) const {
  std::set<std::string_view> distinct;
  std::string_view before;  // the empty text is none
  for (uint32_t i = 0; i < items_->Count(); ++i) {
    const EibiItem& item = *items_->Get(i);
    const char* const fields[] = {item.station, item.language, item.target, item.itu};
    const std::string_view text = fields[filter];
    if (text != before && !text.empty()) distinct.insert(text);
    before = text;
  }
  std::vector<FilterText> texts;
  texts.reserve(distinct.size());
  for (const std::string_view view : distinct) {
    const TmyString text(view);
    texts.push_back({text, text});
  }
  return texts;
}

void EibiGrid::Sort(TmyList& records, uint32_t column, SortDirection direction) {
  SortEibi(records, static_cast<EibiColumn>(column), direction, Zone());
}

void EibiGrid::CellText(uint32_t record, uint32_t column, TmyCellText& text) const {
  CellBuffer buffer;
  text.Set(EibiCellText(ItemAt(record), static_cast<EibiColumn>(column), Zone(), buffer));
}
