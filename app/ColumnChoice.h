// Marlux 3. Which columns a table shows and in which order: what the dialog's two lists hold and how entries move.
#pragma once

#include <cstdint>
#include <vector>

struct ColumnField {
  uint32_t index;
  const char* title;  // not copied
};

// Every field is in one of the two lists. Places count from 0.
class ColumnChoice {
 public:
  static constexpr uint32_t kMostSelected = 22;
  static constexpr int32_t kNowhere = -1;

  // Selected indices that no field has, that come again or that are too many are left out.
  ColumnChoice(const std::vector<ColumnField>& fields, const std::vector<uint32_t>& selected);

  [[nodiscard]] const std::vector<ColumnField>& Available() const noexcept { return available_; }  // in fields' order
  [[nodiscard]] const std::vector<ColumnField>& Selected() const noexcept { return selected_; }
  [[nodiscard]] std::vector<uint32_t> SelectedIndices() const;
  [[nodiscard]] bool IsUsable() const noexcept { return !selected_.empty(); }

  [[nodiscard]] bool CanSelect(int32_t place) const noexcept;
  [[nodiscard]] bool CanDeselect(int32_t place) const noexcept;
  [[nodiscard]] bool CanMove(int32_t place, int32_t by) const noexcept;
  // They return the entry's place in its new list; kNowhere when it cannot go there, and nothing has changed.
  int32_t Select(int32_t place);    // to the end of the selected
  int32_t Deselect(int32_t place);  // to its place among the available
  int32_t Move(int32_t place, int32_t by);

 private:
  std::vector<uint32_t> order_;  // all indices, in the fields' order
  std::vector<ColumnField> available_;
  std::vector<ColumnField> selected_;
};
