#include "app/RecordSort.h"

#include "tests/support/Test.h"

namespace {

// Records are numbers here, in place of pointers.
constexpr uint32_t (*kShapes[])(uint32_t index, uint32_t count) = {
    [](uint32_t i, uint32_t) { return i; },
    [](uint32_t i, uint32_t n) { return n - i; },
    [](uint32_t i, uint32_t n) { return i + 1 == n ? 3U : 7U; },
    [](uint32_t i, uint32_t) { return i * 2654435769U; },
    [](uint32_t i, uint32_t n) { return i < n / 2 ? i : i * 2654435769U; },
    [](uint32_t i, uint32_t) { return i % 37; },
    [](uint32_t i, uint32_t n) { return std::min(i, n - i); },
};

std::vector<void*> Records(size_t shape, uint32_t count) {
  std::vector<void*> records;
  for (uint32_t i = 0; i < count; ++i) records.push_back(reinterpret_cast<void*>(kShapes[shape](i, count)));
  return records;
}

double LimitFor(size_t count) {
  return 4.0 * static_cast<double>(count) * std::log2(count);
}

}  // namespace

TEST(RecordSort, SortsEveryShapeBothWays) {
  for (size_t shape = 0; shape < std::size(kShapes); ++shape) {
    for (const uint32_t count : {0U, 1U, 2U, 3U, 16U, 17U, 127U, 128U, 129U, 1000U, 20000U}) {
      for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
        std::vector<void*> records = Records(shape, count), sorted = records;
        uint32_t asked = 0;
        SortRecords(records.data(), count, direction, [&](const void* a, const void* b) { return ++asked, a > b; });
        EXPECT_LE(asked, count < 2 ? 0 : LimitFor(count)) << shape << ' ' << count;
        std::ranges::sort(sorted);
        if (direction == SortDirection::kDescending) std::ranges::reverse(sorted);
        ASSERT_TRUE(records == sorted) << shape << ' ' << count;
      }
    }
  }
}

// Against a test that answers badly for every choice of pivots by position: it gives the records their values, from
// low to high, while it is asked about them, and the one that is compared most gets its value first.
TEST(RecordSort, NeverGoesQuadratic) {
  constexpr uint32_t kNone = UINT32_MAX;
  std::vector<uint32_t> values(100000, kNone);
  const auto valueOf = [&](const void* record) -> uint32_t& { return values[reinterpret_cast<size_t>(record)]; };
  std::vector<void*> records = Records(0, 100000);
  const void* candidate = nullptr;
  uint32_t next = 0, asked = 0;
  SortRecords(records.data(), records.size(), SortDirection::kAscending, [&](const void* left, const void* right) {
    ++asked;
    uint32_t &a = valueOf(left), &b = valueOf(right);
    if (a == kNone && b == kNone) (candidate == left ? a : b) = next++;
    if (a == kNone) candidate = left;
    if (b == kNone) candidate = right;
    return a > b;
  });
  EXPECT_LT(asked, 2 * LimitFor(values.size()));
  EXPECT_TRUE(std::ranges::is_sorted(records, {}, valueOf));
}
