#include "schedule/EibiReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <sstream>
#include <utility>

#include "tests/support/EibiLine.h"
#include "tests/support/TestEnvironment.h"

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

// The folder with a real schedule; where there is none, the one with the sample that the build makes.
std::string ScheduleFolder() {
  const char* named = std::getenv("MARLUX_REAL_DATA");
  const std::string real = named ? named : "../shared/data";
  return ReadFileBytes(real + "/eibi.txt").empty() ? "build/samples" : real;
}

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == ':' || c == '-'; });
  return text;
}

}  // namespace

TEST(EibiReader, LosesNothingOfAnyLine) {
  const std::string folder = ScheduleFolder();
  std::istringstream lines(ReadFileBytes(folder + "/eibi.txt"));
  const auto items = LoadEibi(folder.c_str());
  uint32_t next = 0;
  std::string line;
  for (uint32_t number = 1; std::getline(lines, line); ++number) {
    if (line.ends_with('\r')) line.pop_back();
    if (number <= 17 || line.empty()) continue;
    ASSERT_LT(next, items->Count()) << line;
    const EibiItem& item = *items->Get(next++);
    std::string fields;
    for (const char* field : {item.frequencyText, item.startText, item.endText, item.rawDays, item.itu, item.station,
                              item.language, item.target, item.remarks}) {
      fields += field;
    }
    ASSERT_EQ(WithoutBlanks(fields), WithoutBlanks(line)) << number;
  }
  EXPECT_EQ(next, items->Count());
  EXPECT_GE(next, 400U) << "neither a real schedule nor the sample in " << folder;
}

TEST(EibiReader, KeepsReadableLinesInTheirOrder) {
  const std::string header = EibiHeader(), good = EibiLine("6005");
  const std::pair<const char*, std::string> kCases[] = {
      {"", ""},
      {"", EibiHeader(9)},
      {"", header},
      {"7000 5000 6000 ", header + EibiLine("7000") + "\r\n" + good.substr(0, 62) + "\r" + EibiLine("5000") + "\r" +
                              EibiLine("none") + "\n" + EibiLine("6000")},
      {"6005 ", header + good.substr(0, 63)},
      {"6005 6005 ", header + good + std::string(10000, 'z') + "\n" + good},
      {"", header + std::string(10000, '\0')},
      {"6005 ", header + std::string(200, '\xE4') + "\n" + good + "\xFF\x80\n"}};
  for (const auto& [khz, bytes] : kCases) EXPECT_EQ(Loaded(bytes), khz) << bytes.size();
  EXPECT_EQ(Loaded(EibiHeader(0x40000 + 17)).size(), (0x40000U - 17) * 5) << "the last line it takes";
  std::string binary(300000, 0);
  std::mt19937 random(7);
  for (char& c : binary) c = static_cast<char>(random());
  EXPECT_LT(Loaded(binary).size(), binary.size());
}
