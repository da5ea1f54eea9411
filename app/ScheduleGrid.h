// Marlux 3. One database's grid: the records that pass the filter, their order, the marks, and the control that shows
// them. EibiGrid and FccGrid add what is particular to their records.
#pragma once

#include <vector>

#include "app/FilterRecord.h"
#include "app/FilterText.h"
#include "app/RecordSort.h"
#include "app/RowMarks.h"
#include "app/ShownZone.h"
#include "foundation/FrameFlag.h"
#include "foundation/TmyStringList.h"
#include "toolkit/TmyStringGrid.h"

// What tuning to a record means.
struct TuneTarget {
  uint32_t frequencyHz;
  uint32_t mode;

  // A record without a readable one is nothing to tune to.
  [[nodiscard]] bool HasFrequency() const noexcept { return static_cast<int32_t>(frequencyHz) > 0; }
};

class ScheduleGrid : protected TmyGridModel {
 public:
  explicit ScheduleGrid(TmyComponent& parent);
  virtual ~ScheduleGrid() = default;
  ScheduleGrid(const ScheduleGrid&) = delete;
  ScheduleGrid& operator=(const ScheduleGrid&) = delete;

  TmyEvent<uint32_t> clicked;                  // row; the marks are done
  TmyEvent<uint32_t> movedTo;                  // row, by the keyboard
  TmyEvent<uint32_t> activated;                // row
  TmyEvent<uint32_t, int, int> contextWanted;  // row, screen x and y
  TmyEvent<> sortChanged;                      // the list wants a refresh

  // Shows what passes. In changed-only mode an equal filter leaves list, marks and current row as they are.
  void Refresh(const FilterRecord& filter, const ShownZone& zone, bool changedOnly);
  void ClearMarks();
  void ScaleWidths();  // after the theme's text height changed; columns keep their share of it

  [[nodiscard]] virtual uint32_t RecordCount() const = 0;  // of the database
  [[nodiscard]] uint32_t ShownCount() const noexcept { return shown_.Count(); }
  [[nodiscard]] virtual TuneTarget TargetOf(uint32_t row) const = 0;  // row must show a record
  // The distinct choices of one of the four text filters (0 to 3), sorted, without an empty one.
  [[nodiscard]] virtual std::vector<FilterText> FilterTexts(uint32_t filter) const = 0;

  // Replaces `cells` by what a row shows, column by column: the titles for row 0. The row must show a record otherwise.
  void RowTexts(uint32_t row, TmyStringList& cells) const;
  [[nodiscard]] uint32_t MarkCount() const;  // of the marked rows that are shown
  [[nodiscard]] bool IsRowMarked(uint32_t row) const;

  [[nodiscard]] TmyStringGrid& Control() noexcept { return *grid_; }
  [[nodiscard]] uint32_t ColumnCount() const noexcept { return grid_->ColumnCount(); }
  [[nodiscard]] bool ShowsRecord(uint32_t row) const noexcept;

 protected:
  virtual void RunFilter(const FilterRecord& filter, TmyList& passing) = 0;
  virtual void Sort(TmyList& records, uint32_t column, SortDirection direction) = 0;
  void SetColumns(const TmyGridColumn* columns, uint32_t count);
  [[nodiscard]] int SortColumn() const noexcept { return wanted_.column; }  // -1: none
  // The order stays as it is, and is now that of another column, or of none with -1.
  void MoveSort(int column);
  void ForgetRecords();  // before the database's records are freed
  [[nodiscard]] const void* RecordAt(uint32_t record) const noexcept { return shown_.Get(record); }
  [[nodiscard]] const ShownZone& Zone() const noexcept { return zone_; }

  // TmyGridModel
  [[nodiscard]] uint32_t RowCount() const override { return shown_.Count(); }
  [[nodiscard]] bool IsMarked(uint32_t record) const override { return marks_.IsMarked(shown_.Get(record)); }
  [[nodiscard]] const char* EmptyText() const override;

 private:
  struct SortOrder {
    int column = -1;  // none: the order of the database
    SortDirection direction = SortDirection::kAscending;
    bool operator==(const SortOrder&) const = default;
  };

  void TitleClicked(int column);
  void RowClicked(const TmyRowClick& click);
  void RowActivated(uint32_t row) { activated(row); }
  void RowContext(uint32_t row, int x, int y) { contextWanted(row, x, y); }
  void CurrentMoved(uint32_t row) { movedTo(row); }
  void ShowList(const void* current);

  TmyStringGrid* grid_;  // belongs to its window
  TmyStringList titles_;
  TmyList shown_;  // the records that pass, in display order; the database owns them
  RowMarks marks_;
  FilterRecord filter_;
  ShownZone zone_;
  SortOrder wanted_;
  SortOrder applied_;
  int widthsTextHeight_ = 0;  // pixels, for which the columns' widths are meant
  bool isFiltered_ = false;   // `filter_` has been applied to the records there are
  FrameFlag isRefreshing_;    // a refresh started inside a refresh does nothing
};
