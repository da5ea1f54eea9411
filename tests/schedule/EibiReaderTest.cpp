#include "schedule/EibiReader.h"

#include <xmmintrin.h>

#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

namespace {

// The frequencies of the records, in kHz.
std::string Loaded(const std::string& bytes) {
  const TemporaryFolder folder;
  EXPECT_TRUE(WriteFileBytes(folder.File("eibi.txt"), bytes));
  const auto items = LoadEibi(folder.Path().c_str());
  std::string text;
  for (uint32_t i = 0; i < items->Count(); ++i) text += std::to_string(items->Get(i)->frequency / 1000) + " ";
  return text;
}

}  // namespace

TEST(EibiReader, KeepsReadableLinesInTheirOrder) {
  const std::string header = EibiHeader(), good = EibiLine("6005");
  std::string many = header, all;  // of several chunks of memory
  for (int khz = 1000; khz < 1500; ++khz) {
    many += EibiLine(std::to_string(khz).c_str()) + "\n";
    all += std::to_string(khz) + " ";
  }
  const std::pair<const char*, std::string> kCases[] = {
      {"", EibiHeader(9)},
      {"", header},
      {"7000 5000 6000 ", header + EibiLine("7000") + "\r\n" + good.substr(0, 62) + "\r" + EibiLine("5000") + "\r" +
                              EibiLine("none") + "\n" + EibiLine("6000")},
      {"6005 ", header + good.substr(0, 63)},
      {"6005 6005 ", header + good + std::string(10000, 'z') + "\n" + good},
      {"", header + std::string(10000, '\0')},
      {"6005 ", header + std::string(200, '\xE4') + "\n" + good + "\xFF\x80\n"}};
  EXPECT_EQ(Loaded(many), all);
  for (const auto& [khz, bytes] : kCases) EXPECT_EQ(Loaded(bytes), khz) << bytes.size();
  EXPECT_EQ(Loaded(EibiHeader(0x40000 + 17)).size(), (0x40000U - 17) * 5) << "the last line it takes";
}

TEST(EibiReader, RoundsToNearestInAHostThatRoundsUpAndWantsExceptions) {
  const TemporaryFolder folder;
  const std::string lines = EibiHeader() + EibiLine("6005.1") + "\n" + EibiLine("nan") + "\n";
  ASSERT_TRUE(WriteFileBytes(folder.File("eibi.txt"), lines));
  constexpr uint32_t kUpAndInvalid = 0x5F00;
  const uint32_t before = _mm_getcsr();
  _mm_setcsr(kUpAndInvalid);
  const auto items = LoadEibi(folder.Path().c_str());
  const uint32_t after = _mm_getcsr();
  _mm_setcsr(before);
  EXPECT_EQ(after & ~0x3FU, kUpAndInvalid);
  ASSERT_EQ(items->Count(), 1U);
  EXPECT_EQ(items->Get(0)->frequency, 6005100);
}
