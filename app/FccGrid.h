// Marlux 3. The grid of the HFCC schedule. Which fields its columns show is the user's choice.
#pragma once

#include <array>

#include "app/FccColumns.h"
#include "app/ScheduleGrid.h"
#include "schedule/HfccDatabase.h"

class FccGrid : public ScheduleGrid {
 public:
  explicit FccGrid(TmyComponent& parent);  // with the fields of a first start

  // Replaces the records by those of the archive; with a failure there are none. The caller refreshes afterwards.
  HfccLoad Load(const TmyString& archivePath);

  // The field of each column, from left to right; at most kFccFields. A field that was shown takes its width along, as
  // a dragged title does; another one gets its own. Sorting stays with the field, and ends when the field is not shown
  // any more.
  void SetFields(const uint32_t* fields, uint32_t count);
  [[nodiscard]] const std::vector<uint32_t>& Fields() const noexcept { return fields_; }  // as they were set

  [[nodiscard]] const HfccDatabase& Database() const noexcept { return database_; }
  [[nodiscard]] const FccItem* ItemOf(uint32_t row) const noexcept;  // null for a row that shows no record
  [[nodiscard]] uint32_t RecordCount() const override { return database_.Items().Count(); }
  [[nodiscard]] TuneTarget TargetOf(uint32_t row) const override;
  // Codes that occur, each with its name and in the order of the names; zones in that of their numbers.
  [[nodiscard]] std::vector<FilterText> FilterTexts(uint32_t filter) const override;

 protected:
  void RunFilter(const FilterRecord& filter, TmyList& passing) override;
  void Sort(TmyList& records, uint32_t column, SortDirection direction) override;
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override;

 private:
  [[nodiscard]] const FccItem& ItemAt(uint32_t record) const noexcept {
    return *static_cast<const FccItem*>(RecordAt(record));
  }
  [[nodiscard]] std::vector<FilterText> ZoneTexts() const;
  void ColumnMoved(uint32_t from, uint32_t to);
  void ShowColumns();
  [[nodiscard]] const FccColumn* SortedBy() const noexcept;  // null: not sorted
  void SortBy(const FccColumn* column);

  HfccDatabase database_;
  std::vector<uint32_t> fields_;           // as they were set
  std::vector<const FccColumn*> columns_;  // what they stand for, of the one table there is
};
