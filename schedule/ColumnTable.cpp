#include "schedule/ColumnTable.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <numeric>

namespace {

constexpr char kNoText[] = "";

bool IsBlank(char c) noexcept {
  return c == ' ' || c == '\r' || c == '\n';
}

const char* TextOf(const char* cell) noexcept {
  return cell ? cell : kNoText;
}

// Ends the cell between two positions and returns where it begins; null when there are blanks only. `mayTouchEnd` says
// that nothing follows which the cell has to be kept apart from: there is a zero at `end` already.
const char* CutCell(char* begin, char* end, bool mayTouchEnd) noexcept {
  while (begin < end && IsBlank(*begin)) ++begin;
  if (begin == end) return nullptr;
  char* last = end;
  while (IsBlank(last[-1])) --last;
  if (last == end && !mayTouchEnd) --last;
  *last = 0;
  return begin;
}

}  // namespace

void ColumnTable::Clear() noexcept {
  copy_.reset();
  cells_.reset();
  order_.reset();
  positions_.reset();
  rows_ = room_ = columns_ = sortKey_ = 0;
}

bool ColumnTable::Load(const char* bytes, uint32_t size, const uint32_t* starts, uint32_t columnCount, uint32_t sortKey,
                       bool sorted) {
  Clear();
  if (columnCount == 0 || columnCount > kMostColumns || sortKey >= columnCount) return false;
  if (!std::is_sorted(starts, starts + columnCount) || size == UINT32_MAX) return false;
  columns_ = columnCount;
  sortKey_ = sortKey;
  if (!Allocate(bytes, size)) {
    Clear();
    return false;
  }
  CutLines(size, starts);
  Order(sorted);
  return true;
}

bool ColumnTable::Allocate(const char* bytes, uint32_t size) {
  const auto lines = static_cast<uint32_t>(std::count(bytes, bytes + size, '\n'));
  room_ = std::min(lines + 1, kMostRows);
  copy_.reset(new (std::nothrow) char[size + 1]);
  cells_.reset(new (std::nothrow) const char*[size_t{room_} * columns_]);
  order_.reset(new (std::nothrow) uint32_t[room_]);
  positions_.reset(new (std::nothrow) uint32_t[room_]);
  if (!copy_ || !cells_ || !order_ || !positions_) return false;
  if (size > 0) memcpy(copy_.get(), bytes, size);
  copy_[size] = 0;
  return true;
}

void ColumnTable::CutLines(uint32_t size, const uint32_t* starts) noexcept {
  char* line = copy_.get();
  char* const end = line + size;
  while (line < end && rows_ < room_) {
    auto* lineFeed = static_cast<char*>(memchr(line, '\n', static_cast<size_t>(end - line)));
    char* const lineEnd = lineFeed ? lineFeed : end;
    if (*line != ';') CutLine(line, static_cast<uint32_t>(lineEnd - line), !lineFeed, starts);
    line = lineFeed ? lineFeed + 1 : end;
  }
}

void ColumnTable::CutLine(char* line, uint32_t length, bool isLast, const uint32_t* starts) noexcept {
  const char** cells = &cells_[rows_ * columns_];
  const uint32_t last = std::min(starts[columns_ - 1], length);
  length = last + std::min(length - last, kLongestLast);
  bool hasCell = false;
  for (uint32_t column = 0; column < columns_; ++column) {
    const uint32_t from = std::min(starts[column], length);
    const uint32_t to = column + 1 < columns_ ? std::min(starts[column + 1], length) : length;
    cells[column] = CutCell(line + from, line + to, isLast && to == length);
    hasCell |= cells[column] != nullptr;
  }
  if (hasCell || !isLast) ++rows_;
}

void ColumnTable::Order(bool sorted) noexcept {
  std::iota(order_.get(), order_.get() + rows_, 0U);
  if (sorted) {
    std::sort(order_.get(), order_.get() + rows_, [this](uint32_t a, uint32_t b) {
      const int order = strcmp(TextOf(Row(a)[sortKey_]), TextOf(Row(b)[sortKey_]));
      return order < 0 || (order == 0 && a < b);
    });
  }
  for (uint32_t position = 0; position < rows_; ++position) positions_[order_[position]] = position;
}

const char* ColumnTable::Text(int32_t row, uint32_t column) const noexcept {
  if (row < 0 || static_cast<uint32_t>(row) >= rows_ || column >= columns_) return kNoText;
  return TextOf(Row(static_cast<uint32_t>(row))[column]);
}

int32_t ColumnTable::FindCode(const char* code, uint32_t from, uint32_t to) const noexcept {
  if (!code) return -1;
  uint32_t end = to < rows_ ? to + 1 : rows_;  // one behind the last position
  while (from < end) {
    const uint32_t middle = from + (end - from) / 2;
    const int order = strcmp(code, TextOf(Row(order_[middle])[0]));
    if (order == 0) return static_cast<int32_t>(order_[middle]);
    if (order > 0) {
      from = middle + 1;
    } else {
      end = middle;
    }
  }
  return -1;
}
