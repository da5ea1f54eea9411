// Marlux 3. The grid of the EiBi schedule.
#pragma once

#include <memory>

#include "app/EibiColumns.h"
#include "app/ScheduleGrid.h"
#include "foundation/TmyTypeList.h"
#include "schedule/EibiItem.h"

class EibiGrid : public ScheduleGrid {
 public:
  explicit EibiGrid(TmyComponent& parent);

  // Replaces the records by those of the folder's "eibi.txt"; without a readable file there are none. The caller
  // refreshes afterwards.
  void Load(const TmyString& folder);
  // The same, but a file without records, an error page, say, changes nothing: false.
  [[nodiscard]] bool Reload(const TmyString& folder);
  void SetDefaultWidths();  // in the theme's scale

  [[nodiscard]] uint32_t RecordCount() const override { return items_->Count(); }
  [[nodiscard]] const EibiItem* ItemOf(uint32_t row) const noexcept;  // null for a row that shows no record
  [[nodiscard]] TuneTarget TargetOf(uint32_t row) const override;
  [[nodiscard]] std::vector<FilterText> FilterTexts(uint32_t filter) const override;

 protected:
  void RunFilter(const FilterRecord& filter, TmyList& passing) override;
  void Sort(TmyList& records, uint32_t column, SortDirection direction) override;
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override;

 private:
  [[nodiscard]] const EibiItem& ItemAt(uint32_t record) const noexcept {
    return *static_cast<const EibiItem*>(RecordAt(record));
  }

  std::unique_ptr<TmyTypeList<EibiItem>> items_;
};
