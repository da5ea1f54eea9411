// Marlux 3. Sorting the rows of a grid: a quicksort over pointers to records.
//
//   SortRecords(list.Entries(), list.Count(), SortDirection::kAscending,
//               [](const void* left, const void* right) { return ... left is greater than right ...; });
//
// Equal records come out in no defined order. Never quadratic: lists that are in order already, either way round, take
// one pass, and a partition that keeps going wrong is handed to heapsort. Whatever the test answers, nothing outside
// the range is touched. Recursion stays below log2(count) levels.
#pragma once

#include <algorithm>
#include <bit>
#include <utility>

#include "foundation/Compiler.h"

enum class SortDirection : uint8_t { kAscending, kDescending };

// `After(a, b)` throughout: a belongs behind b.
namespace RecordSortParts {

inline constexpr size_t kSmallRange = 16;  // sorted by insertion
inline constexpr size_t kTouchUpMoves = 16;
inline constexpr size_t kLargeRange = 128;  // from here on the pivot is a median of nine

template <class After>
void InsertionSort(void** records, size_t count, After after) {
  for (size_t i = 1; i < count; ++i) {
    void* const moving = records[i];
    size_t hole = i;
    for (; hole > 0 && after(records[hole - 1], moving); --hole) records[hole] = records[hole - 1];
    records[hole] = moving;
  }
}

template <class After>
void SiftDown(void** records, size_t hole, size_t count, After after) {
  void* const sinking = records[hole];
  for (size_t child = 2 * hole + 1; child < count; child = 2 * hole + 1) {
    if (child + 1 < count && after(records[child + 1], records[child])) ++child;
    if (!after(records[child], sinking)) break;
    records[hole] = records[child];
    hole = child;
  }
  records[hole] = sinking;
}

template <class After>
void HeapSort(void** records, size_t count, After after) {
  for (size_t i = count / 2; i > 0; --i) SiftDown(records, i - 1, count, after);
  for (size_t last = count; last > 1; --last) {
    std::swap(records[0], records[last - 1]);
    SiftDown(records, 0, last - 1, after);
  }
}

template <class After>
size_t MedianOf3(void* const* records, size_t a, size_t b, size_t c, After after) {
  if (after(records[a], records[b])) std::swap(a, b);
  if (!after(records[b], records[c])) return b;
  return after(records[a], records[c]) ? a : c;
}

template <class After>
size_t ChoosePivot(void* const* records, size_t count, After after) {
  const size_t middle = count / 2;
  const size_t last = count - 1;
  if (count < kLargeRange) return MedianOf3(records, 0, middle, last, after);
  const size_t step = count / 8;
  return MedianOf3(records, MedianOf3(records, 0, step, 2 * step, after),
                   MedianOf3(records, middle - step, middle, middle + step, after),
                   MedianOf3(records, last - 2 * step, last - step, last, after), after);
}

struct Split {
  size_t pivot;     // its final place
  bool wasInOrder;  // nothing had to change sides
};

// Puts the pivot where it belongs. Both scans stop at equal records: a range of equals is split in the middle.
template <class After>
Split Partition(void** records, size_t count, After after) {
  std::swap(records[0], records[ChoosePivot(records, count, after)]);
  void* const pivot = records[0];
  size_t up = 0;
  size_t down = count;
  bool wasInOrder = true;
  for (;;) {
    do ++up;
    while (up < count && after(pivot, records[up]));
    do --down;
    while (down > 0 && after(records[down], pivot));
    if (up >= down) break;
    std::swap(records[up], records[down]);
    wasInOrder = false;
  }
  std::swap(records[0], records[down]);
  return {down, wasInOrder};
}

// Insertion sort that gives up after a few moves: for parts that look sorted already. True when they now are.
template <class After>
bool TouchUp(void** records, size_t count, After after) {
  size_t movesLeft = kTouchUpMoves;
  for (size_t i = 1; i < count; ++i) {
    void* const moving = records[i];
    size_t hole = i;
    for (; hole > 0 && movesLeft > 0 && after(records[hole - 1], moving); --hole, --movesLeft) {
      records[hole] = records[hole - 1];
    }
    records[hole] = moving;
    if (movesLeft == 0) return false;
  }
  return true;
}

template <class After>
void QuickSort(void** records, size_t count, uint32_t depthLeft, After after) {
  while (count > kSmallRange) {
    if (depthLeft-- == 0) {
      HeapSort(records, count, after);
      return;
    }
    const Split split = Partition(records, count, after);
    void** const upper = records + split.pivot + 1;
    const size_t above = count - split.pivot - 1;
    if (split.wasInOrder && TouchUp(records, split.pivot, after) && TouchUp(upper, above, after)) return;
    // Recursion into the smaller part, so that its depth is bounded.
    if (split.pivot < above) {
      QuickSort(records, split.pivot, depthLeft, after);
      records = upper;
      count = above;
    } else {
      QuickSort(upper, above, depthLeft, after);
      count = split.pivot;
    }
  }
  InsertionSort(records, count, after);
}

// True when the list was in order, or in opposite order and now is not any more.
template <class After>
bool SettleOrdered(void** records, size_t count, After after) {
  size_t i = 1;
  while (i < count && !after(records[i - 1], records[i])) ++i;
  if (i >= count) return true;
  i = 1;
  while (i < count && !after(records[i], records[i - 1])) ++i;
  if (i < count) return false;
  std::reverse(records, records + count);
  return true;
}

template <class After>
void Sort(void** records, size_t count, After after) {
  if (count < 2 || SettleOrdered(records, count, after)) return;
  QuickSort(records, count, 2 * static_cast<uint32_t>(std::bit_width(count)), after);
}

}  // namespace RecordSortParts

// Zero-terminated texts as unsigned characters. Inline and byte by byte: most texts differ early, and a call into the
// runtime costs more than the comparison.
inline bool IsTextGreater(const char* left, const char* right) noexcept {
  while (*left == *right && *left != 0) ++left, ++right;
  return static_cast<uint8_t>(*left) > static_cast<uint8_t>(*right);
}

// `greater(left, right)`: a strict greater-than over two records, the same for both directions.
template <class Greater>
void SortRecords(void** records, size_t count, SortDirection direction, Greater greater) {
  if (direction == SortDirection::kAscending) {
    RecordSortParts::Sort(records, count, greater);
  } else {
    RecordSortParts::Sort(records, count, [greater](const void* a, const void* b) { return greater(b, a); });
  }
}
