#include "app/ScheduleGrid.h"

#include <algorithm>

#include "toolkit/TmyApplication.h"

ScheduleGrid::ScheduleGrid(TmyComponent& parent) : grid_(new TmyStringGrid(parent)) {
  grid_->SetModel(this);
  grid_->titleClicked.Bind<&ScheduleGrid::TitleClicked>(this);
  grid_->rowClicked.Bind<&ScheduleGrid::RowClicked>(this);
  grid_->rowActivated.Bind<&ScheduleGrid::RowActivated>(this);
  grid_->rowContext.Bind<&ScheduleGrid::RowContext>(this);
  grid_->currentMoved.Bind<&ScheduleGrid::CurrentMoved>(this);
}

void ScheduleGrid::SetColumns(const TmyGridColumn* columns, uint32_t count) {
  widthsTextHeight_ = Theme().TextHeight();
  titles_.Clear();
  for (uint32_t i = 0; i < count; ++i) titles_.Add(columns[i].title);
  grid_->SetColumns(columns, count);
}

void ScheduleGrid::ScaleWidths() {
  const int now = Theme().TextHeight();
  grid_->ScaleWidths(now, widthsTextHeight_);
  widthsTextHeight_ = now;
}

bool ScheduleGrid::ShowsRecord(uint32_t row) const noexcept {
  return row != TmyStringGrid::kNoRow && TmyStringGrid::RecordOf(row) < shown_.Count();
}

const char* ScheduleGrid::EmptyText() const {
  return RecordCount() == 0 ? "No schedule loaded" : "No broadcast passes the filter";
}

void ScheduleGrid::RowTexts(uint32_t row, TmyStringList& cells) const {
  cells.Clear();
  for (uint32_t column = 0; column < titles_.Count(); ++column) {
    if (row == 0) {
      cells.Add(titles_.Get(column));
    } else {
      TmyCellText cell;
      CellText(TmyStringGrid::RecordOf(row), column, cell);
      cells.Add(TmyString(cell.View()));
    }
  }
}

uint32_t ScheduleGrid::MarkCount() const {
  if (marks_.Count() == 0) return 0;
  const auto isMarked = [this](const void* record) { return marks_.IsMarked(record); };
  return static_cast<uint32_t>(std::count_if(shown_.Entries(), shown_.Entries() + shown_.Count(), isMarked));
}

bool ScheduleGrid::IsRowMarked(uint32_t row) const {
  return ShowsRecord(row) && IsMarked(TmyStringGrid::RecordOf(row));
}

void ScheduleGrid::MoveSort(int column) {
  wanted_.column = column;
  applied_.column = column;
  grid_->SetSort(column, wanted_.direction == SortDirection::kAscending);
}

void ScheduleGrid::Refresh(const FilterRecord& filter, const ShownZone& zone, bool changedOnly) {
  if (isRefreshing_.IsUp()) return;
  const FrameFlag::Scope refreshing(isRefreshing_);
  const uint32_t row = grid_->CurrentRow();
  const void* current = ShowsRecord(row) ? RecordAt(TmyStringGrid::RecordOf(row)) : nullptr;
  const bool filters = !changedOnly || !isFiltered_ || !(filter == filter_) || !(zone == zone_);
  zone_ = zone;
  if (filters) {
    isFiltered_ = false;  // until all of it is done, or nothing would be the next time
    filter_ = filter;
    RunFilter(filter_, shown_);
    grid_->RowsChanged();  // whatever fails behind it, no former row is seen
    marks_.KeepOnly(shown_);
  }
  // A pass leaves the order of the database behind, so it sorts again, whatever asked for it.
  const bool sorts = wanted_.column >= 0 && (filters || !(wanted_ == applied_));
  if (sorts) {
    Sort(shown_, static_cast<uint32_t>(wanted_.column), wanted_.direction);
    applied_ = wanted_;
  }
  if (filters || sorts) ShowList(current);
  isFiltered_ = true;
}

// The record that was current stays so, wherever it is now.
void ScheduleGrid::ShowList(const void* current) {
  grid_->RepaintRows();
  const int32_t at = current ? shown_.IndexOf(current) : -1;
  grid_->SetCurrentRow(at >= 0 ? TmyStringGrid::RowOf(static_cast<uint32_t>(at)) : TmyStringGrid::kNoRow, at >= 0);
}

void ScheduleGrid::ClearMarks() {
  marks_.Clear();
  grid_->RepaintRows();
}

void ScheduleGrid::ForgetRecords() {
  marks_.Clear();
  shown_.Clear();
  isFiltered_ = false;
  grid_->RowsChanged();
}

void ScheduleGrid::TitleClicked(int column) {
  const bool again = wanted_.column == column && wanted_.direction == SortDirection::kAscending;
  wanted_ = {column, again ? SortDirection::kDescending : SortDirection::kAscending};
  grid_->SetSort(column, !again);
  sortChanged();
}

void ScheduleGrid::RowClicked(const TmyRowClick& click) {
  const ClickKind kind = click.shift ? ClickKind::kShift : click.control ? ClickKind::kControl : ClickKind::kPlain;
  if (!marks_.Click(shown_, click.row, kind)) return;
  grid_->RepaintRows();
  click.byKeyboard ? movedTo(click.row) : clicked(click.row);
}
