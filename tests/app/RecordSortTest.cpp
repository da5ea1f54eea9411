#include "app/RecordSort.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using Values = std::vector<uint32_t>;

struct Shape {
  const char* name;
  uint32_t (*value)(uint32_t index, uint32_t count);
};

const Shape kShapes[] = {
    {"sorted", [](uint32_t i, uint32_t) { return i; }},
    {"reversed", [](uint32_t i, uint32_t n) { return n - i; }},
    {"equal", [](uint32_t, uint32_t) { return 7U; }},
    {"equal but the last", [](uint32_t i, uint32_t n) { return i + 1 == n ? 3U : 7U; }},
    {"two values", [](uint32_t i, uint32_t) { return i * 2654435769U >> 31; }},
    {"shuffled", [](uint32_t i, uint32_t) { return i * 2654435769U; }},
    {"sorted, then shuffled", [](uint32_t i, uint32_t n) { return i < n / 2 ? i : i * 2654435769U; }},
    {"saw", [](uint32_t i, uint32_t) { return i % 37; }},
    {"organ pipe", [](uint32_t i, uint32_t n) { return std::min(i, n - i); }},
    {"sorted runs", [](uint32_t i, uint32_t n) { return i % (n / 4 + 1); }},
};

Values ValuesOf(const Shape& shape, uint32_t count) {
  Values values;
  for (uint32_t i = 0; i < count; ++i) values.push_back(shape.value(i, count));
  return values;
}

std::vector<void*> PointersTo(Values& values) {
  std::vector<void*> pointers;
  for (uint32_t& value : values) pointers.push_back(&value);
  return pointers;
}

uint32_t ValueAt(const void* pointer) {
  return *static_cast<const uint32_t*>(pointer);
}

double LimitFor(uint32_t count) {
  return 4.0 * count * std::log2(count);
}

// Answers badly for every sort that picks pivots by position: it decides the order of the values while being asked.
class Adversary {
 public:
  explicit Adversary(uint32_t count) : values_(count, UINT32_MAX) {}
  std::vector<void*> Pointers() { return PointersTo(values_); }
  double Asked() const { return asked_; }

  bool Greater(const void* left, const void* right) {
    ++asked_;
    uint32_t& a = Of(left);
    uint32_t& b = Of(right);
    if (a == UINT32_MAX && b == UINT32_MAX) (candidate_ == left ? a : b) = next_++;
    if (a == UINT32_MAX) candidate_ = left;
    if (b == UINT32_MAX) candidate_ = right;
    return a > b;
  }

 private:
  uint32_t& Of(const void* pointer) {
    return values_[static_cast<size_t>(static_cast<const uint32_t*>(pointer) - values_.data())];
  }

  Values values_;
  const void* candidate_ = nullptr;
  uint32_t next_ = 0;
  double asked_ = 0;
};

}  // namespace

TEST(RecordSort, SortsEveryShapeBothWays) {
  for (const Shape& shape : kShapes) {
    for (const uint32_t count : {0U, 1U, 2U, 3U, 15U, 16U, 17U, 18U, 127U, 128U, 129U, 1000U, 20000U}) {
      for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
        Values values = ValuesOf(shape, count);
        std::vector<void*> pointers = PointersTo(values);
        uint32_t asked = 0;
        SortRecords(pointers.data(), count, direction, [&asked](const void* left, const void* right) {
          ++asked;
          return ValueAt(left) > ValueAt(right);
        });
        EXPECT_LE(asked, count < 2 ? 0 : LimitFor(count)) << shape.name << ' ' << count;
        for (uint32_t i = 1; i < count; ++i) {
          const bool ascending = direction == SortDirection::kAscending;
          ASSERT_LE(ValueAt(pointers[ascending ? i - 1 : i]), ValueAt(pointers[ascending ? i : i - 1])) << shape.name;
        }
        std::sort(pointers.begin(), pointers.end());
        ASSERT_EQ(pointers, PointersTo(values)) << "each record once: " << shape.name << ' ' << count;
      }
    }
  }
}

TEST(RecordSort, NeverGoesQuadratic) {
  constexpr uint32_t kCount = 100000;
  Adversary adversary(kCount);
  std::vector<void*> pointers = adversary.Pointers();
  SortRecords(pointers.data(), pointers.size(), SortDirection::kAscending,
              [&](const void* left, const void* right) { return adversary.Greater(left, right); });
  EXPECT_LT(adversary.Asked(), 2 * LimitFor(kCount));
}

TEST(RecordSort, StaysInTheRangeWhateverTheTestAnswers) {
  std::mt19937 random(3);
  for (uint32_t mode = 0; mode < 3; ++mode) {
    Values values = ValuesOf(kShapes[0], 3000);
    std::vector<void*> pointers = PointersTo(values);
    pointers.insert(pointers.begin(), nullptr);  // a test that is asked about these crashes
    pointers.push_back(nullptr);
    SortRecords(pointers.data() + 1, values.size(), SortDirection::kAscending,
                [&](const void* left, const void* right) {
                  const bool readable = ValueAt(left) < 3000 && ValueAt(right) < 3000;
                  return readable && (mode == 0 || (mode == 1 && random() % 2 == 0));
                });
    EXPECT_EQ(pointers.front(), nullptr);
    EXPECT_EQ(pointers.back(), nullptr);
    std::sort(pointers.begin() + 1, pointers.end() - 1);
    EXPECT_TRUE(std::equal(pointers.begin() + 1, pointers.end() - 1, PointersTo(values).begin())) << mode;
  }
}
