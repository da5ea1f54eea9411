// Marlux 3. "Item details": a window with all fields of one record, as labels and values that can be copied.
//
//   auto* dialog = new EibiDetailDialog(*this, item, zone);   // belongs to its window, which the main window owns
//   dialog->Show(true);
//
// Modeless: as many as the user likes, each until it or its owner is closed. The texts are copies, so the record may go
// before. Ctrl+C copies the current row, or all rows while there is none, as lines of label, tab and value; Ctrl+A goes
// back to all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "toolkit/TmyDialog.h"
#include "toolkit/TmyStringGrid.h"
#include "toolkit/Tmy_Btn.h"

class DetailDialog : public TmyDialog, private TmyGridModel {
 public:
  [[nodiscard]] TmyStringGrid& Grid() noexcept { return *grid_; }
  [[nodiscard]] std::string TextToCopy() const;

  void Realign() override;
  void ThemeChanged() override;
  void Escape() override;
  void PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  explicit DetailDialog(TmyComponent& owner);

  void AddRow(const char* label, std::string_view value);
  // "From x to y"; empty when both are.
  void AddRange(const char* label, std::string_view from, std::string_view to);
  void RowsAdded(const TmyComponent& owner);  // sizes the window for its rows and places it over the owner

 private:
  struct Row {
    std::string label;
    std::string value;
  };

  [[nodiscard]] uint32_t RowCount() const override { return static_cast<uint32_t>(rows_.size()); }
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override;
  [[nodiscard]] SIZE FittingSize() const;  // of the window, frame included
  [[nodiscard]] SIZE SmallestSize() const;
  void MeasureColumns();
  void ColumnResized(int column);
  void CloseClicked(Tmy_Btn& button);

  TmyStringGrid* grid_;  // belongs to its window; before the button, as Tab goes
  Tmy_Btn close_;
  std::vector<Row> rows_;
  int labelWidth_ = 0;  // pixels that the texts of a column need
  int valueWidth_ = 0;
  int measuredHeight_ = 0;  // of the theme's text when the columns were measured
};
