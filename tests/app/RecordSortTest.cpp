#include "app/RecordSort.h"

#include "tests/support/Test.h"

namespace {

using Values = std::vector<uint32_t>;

constexpr uint32_t (*kShapes[])(uint32_t index, uint32_t count) = {
    [](uint32_t i, uint32_t) { return i; },
    [](uint32_t i, uint32_t n) { return n - i; },
    [](uint32_t i, uint32_t n) { return i + 1 == n ? 3U : 7U; },
    [](uint32_t i, uint32_t) { return i * 2654435769U; },
    [](uint32_t i, uint32_t n) { return i < n / 2 ? i : i * 2654435769U; },
    [](uint32_t i, uint32_t) { return i % 37; },
    [](uint32_t i, uint32_t n) { return std::min(i, n - i); },
    [](uint32_t i, uint32_t n) { return i % (n / 4 + 1); },
};

std::vector<void*> PointersTo(Values& values) {
  std::vector<void*> pointers;
  for (uint32_t& value : values) pointers.push_back(&value);
  return pointers;
}

uint32_t ValueAt(const void* pointer) {
  return *static_cast<const uint32_t*>(pointer);
}

double LimitFor(size_t count) {
  return 4.0 * static_cast<double>(count) * std::log2(count);
}

}  // namespace

TEST(RecordSort, SortsEveryShapeBothWays) {
  for (size_t shape = 0; shape < std::size(kShapes); ++shape) {
    for (const uint32_t count : {0U, 1U, 2U, 3U, 15U, 16U, 17U, 18U, 127U, 128U, 129U, 1000U, 20000U}) {
      for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
        Values values;
        for (uint32_t i = 0; i < count; ++i) values.push_back(kShapes[shape](i, count));
        std::vector<void*> pointers = PointersTo(values);
        uint32_t asked = 0;
        SortRecords(pointers.data(), count, direction, [&asked](const void* left, const void* right) {
          ++asked;
          return ValueAt(left) > ValueAt(right);
        });
        EXPECT_LE(asked, count < 2 ? 0 : LimitFor(count)) << shape << ' ' << count;
        const auto before = [direction](const void* left, const void* right) {
          return direction == SortDirection::kAscending ? ValueAt(left) < ValueAt(right)
                                                        : ValueAt(left) > ValueAt(right);
        };
        ASSERT_TRUE(std::ranges::is_sorted(pointers, before)) << shape << ' ' << count;
        std::ranges::sort(pointers);
        ASSERT_EQ(pointers, PointersTo(values)) << "each record once: " << shape << ' ' << count;
      }
    }
  }
}

// Against a test that answers badly for every choice of pivots by position: it gives the records their values, from
// low to high, while it is asked about them, and the one that is compared most gets its value first.
TEST(RecordSort, NeverGoesQuadratic) {
  constexpr uint32_t kNone = UINT32_MAX;
  Values values(100000, kNone);
  std::vector<void*> pointers = PointersTo(values);
  const void* candidate = nullptr;
  uint32_t next = 0, asked = 0;
  SortRecords(pointers.data(), pointers.size(), SortDirection::kAscending, [&](const void* left, const void* right) {
    ++asked;
    uint32_t& a = values[static_cast<size_t>(static_cast<const uint32_t*>(left) - values.data())];
    uint32_t& b = values[static_cast<size_t>(static_cast<const uint32_t*>(right) - values.data())];
    if (a == kNone && b == kNone) (candidate == left ? a : b) = next++;
    if (a == kNone) candidate = left;
    if (b == kNone) candidate = right;
    return a > b;
  });
  EXPECT_LT(asked, 2 * LimitFor(values.size()));
}
