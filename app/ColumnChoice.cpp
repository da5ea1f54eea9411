#include "app/ColumnChoice.h"

#include <algorithm>

namespace {

bool IsIn(int32_t place, const std::vector<ColumnField>& list) noexcept {
  return place >= 0 && static_cast<size_t>(place) < list.size();
}

auto Find(std::vector<ColumnField>& list, uint32_t index) {
  return std::find_if(list.begin(), list.end(), [index](const ColumnField& field) { return field.index == index; });
}

}  // namespace

ColumnChoice::ColumnChoice(const std::vector<ColumnField>& fields, const std::vector<uint32_t>& selected)
    : available_(fields) {
  for (const ColumnField& field : fields) order_.push_back(field.index);
  for (const uint32_t index : selected) {
    const auto found = Find(available_, index);
    if (found != available_.end()) Select(static_cast<int32_t>(found - available_.begin()));
  }
}

std::vector<uint32_t> ColumnChoice::SelectedIndices() const {
  std::vector<uint32_t> indices;
  for (const ColumnField& field : selected_) indices.push_back(field.index);
  return indices;
}

bool ColumnChoice::CanSelect(int32_t place) const noexcept {
  return IsIn(place, available_) && selected_.size() < kMostSelected;
}

bool ColumnChoice::CanDeselect(int32_t place) const noexcept {
  return IsIn(place, selected_);
}

bool ColumnChoice::CanMove(int32_t place, int32_t by) const noexcept {
  return IsIn(place, selected_) && IsIn(place + by, selected_);
}

int32_t ColumnChoice::Select(int32_t place) {
  if (!CanSelect(place)) return kNowhere;
  selected_.push_back(available_[static_cast<size_t>(place)]);
  available_.erase(available_.begin() + place);
  return static_cast<int32_t>(selected_.size()) - 1;
}

int32_t ColumnChoice::Deselect(int32_t place) {
  if (!CanDeselect(place)) return kNowhere;
  const ColumnField field = selected_[static_cast<size_t>(place)];
  selected_.erase(selected_.begin() + place);
  const auto rank = [this](uint32_t index) { return std::find(order_.begin(), order_.end(), index) - order_.begin(); };
  const auto behind = std::find_if(available_.begin(), available_.end(),
                                   [&](const ColumnField& other) { return rank(other.index) > rank(field.index); });
  return static_cast<int32_t>(available_.insert(behind, field) - available_.begin());
}

int32_t ColumnChoice::Move(int32_t place, int32_t by) {
  if (!CanMove(place, by)) return kNowhere;
  const auto entry = selected_.begin() + place;
  by < 0 ? std::rotate(entry + by, entry, entry + 1) : std::rotate(entry, entry + 1, entry + by + 1);
  return place + by;
}
