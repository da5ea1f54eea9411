#include "schedule/EibiReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "tests/support/TestEnvironment.h"

namespace {

const std::string kGood = "6005          0900-1000       D   Radio Example            E   CEu         ka";

std::string Header(uint32_t lines = 17) {
  std::string text;
  // Lines that would be records if they were not skipped.
  for (uint32_t i = 0; i < lines; ++i) text += kGood + "\n";
  return text;
}

uint32_t CountAfterLoading(const std::string& bytes) {
  TemporaryFolder folder;
  EXPECT_TRUE(WriteFileBytes(folder.File("eibi.txt"), bytes));
  return LoadEibi(folder.Path().c_str())->Count();
}

// The folder with a real schedule; where there is none, the one with the sample that the build makes.
std::string ScheduleFolder() {
  const char* named = std::getenv("MARLUX_REAL_DATA");
  const std::string real = named ? named : "../shared/data";
  return ReadFileBytes(real + "/eibi.txt").empty() ? "build/samples" : real;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n') lines.emplace_back();
    if (c != '\n' && c != '\r') lines.back() += c;
  }
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

// The columns once more, the slow and plain way.
std::string Cut(const std::string& line, size_t from, size_t to, size_t room) {
  std::string text = from < line.size() ? line.substr(from, to - from) : "";
  const auto kept = [](char c) { return c >= 33 && c <= 126; };
  while (!text.empty() && !kept(text.back())) text.pop_back();
  while (!text.empty() && !kept(text.front())) text.erase(0, 1);
  return text.substr(0, room - 1);
}

int32_t Seconds(const std::string& hhmm) {
  return (std::stoi(hhmm.substr(0, 2)) * 60 + std::stoi(hhmm.substr(2, 2))) * 60;
}

void ExpectSame(const EibiItem& item, const std::string& line) {
  const std::string frequency = Cut(line, 0, 14, 20);
  const std::string time = Cut(line, 14, 24, 12);
  EXPECT_EQ(item.valid, 1U);
  EXPECT_EQ(item.shown, 0U);
  EXPECT_EQ(item.frequencyText, frequency);
  EXPECT_EQ(item.frequency, std::lround(double{std::strtof(frequency.c_str(), nullptr)} * 1000));
  EXPECT_EQ(item.start, time.empty() ? -1 : Seconds(time));
  EXPECT_EQ(item.end, time.empty() ? -1 : Seconds(time.substr(5)));
  EXPECT_EQ(item.startText, time.empty() ? "-" : time.substr(0, 2) + ":" + time.substr(2, 2));
  EXPECT_EQ(item.endText, time.empty() ? "-" : time.substr(5, 2) + ":" + time.substr(7, 2));
  EXPECT_EQ(item.rawDays, Cut(line, 24, 30, 10));
  EXPECT_EQ(item.itu, Cut(line, 30, 34, 10));
  EXPECT_EQ(item.station, Cut(line, 34, 59, 50));
  EXPECT_EQ(item.language, Cut(line, 59, 63, 10));
  EXPECT_EQ(item.target, Cut(line, 63, 75, 10));
  EXPECT_EQ(item.remarks, Cut(line, 75, line.size(), 20));
}

}  // namespace

TEST(EibiReader, AgreesWithAPlainCutOfEveryLine) {
  const std::string folder = ScheduleFolder();
  const std::vector<std::string> lines = LinesOf(ReadFileBytes(folder + "/eibi.txt"));
  const auto items = LoadEibi(folder.c_str());
  uint32_t next = 0;
  for (size_t i = 17; i < lines.size(); ++i) {
    if (lines[i].empty()) continue;
    ASSERT_LT(next, items->Count()) << lines[i];
    ExpectSame(*items->Get(next++), lines[i]);
    ASSERT_FALSE(HasFailure()) << "line " << i + 1 << ": " << lines[i];
  }
  EXPECT_EQ(next, items->Count());
  EXPECT_GE(next, 400U) << "neither a real schedule nor the sample in " << folder;
}

TEST(EibiReader, KeepsTheOrderOfTheFileAndReadableLinesOnly) {
  TemporaryFolder folder;
  std::string text = Header();
  for (const char* khz : {"7000", "5000", "short", "6000"}) {
    std::string line = kGood;
    line.replace(0, 5, std::string(khz) + std::string(5 - std::string(khz).size(), ' '));
    text += line + "\r\n" + line.substr(0, 62) + "\r";
  }
  ASSERT_TRUE(WriteFileBytes(folder.File("eibi.txt"), text));
  const auto items = LoadEibi(folder.Path().c_str());
  ASSERT_EQ(items->Count(), 3U);
  EXPECT_EQ(items->Get(0)->frequency, 7000000);
  EXPECT_EQ(items->Get(1)->frequency, 5000000);
  EXPECT_EQ(items->Get(2)->frequency, 6000000);
}

TEST(EibiReader, SurvivesBadFiles) {
  EXPECT_EQ(LoadEibi("Z:\\no such folder")->Count(), 0U);
  std::string binary(300000, 0);
  std::mt19937 random(7);
  for (char& c : binary) c = static_cast<char>(random());
  const struct {
    const char* what;
    std::string bytes;
    uint32_t count;
  } kCases[] = {
      {"empty", "", 0},
      {"header cut off", Header(9), 0},
      {"header alone", Header(), 0},
      {"last line cut off", Header() + kGood + "\n" + kGood.substr(0, 40), 1},
      {"62 characters", Header() + kGood.substr(0, 62) + "\n", 0},
      {"63 characters", Header() + kGood.substr(0, 63), 1},
      {"10,000 characters", Header() + kGood + std::string(10000 - kGood.size(), 'z') + "\n" + kGood, 2},
      {"one line of 10,000 zeros", Header() + std::string(10000, '\0'), 0},
      {"high bytes", Header() + std::string(200, '\xE4') + "\n" + kGood + "\xFF\x80\n", 1},
  };
  for (const auto& each : kCases) EXPECT_EQ(CountAfterLoading(each.bytes), each.count) << each.what;
  EXPECT_LT(CountAfterLoading(binary), 300000U / 63);
}

TEST(EibiReader, StopsAtItsLastLine) {
  std::string text = Header();
  for (uint32_t i = 0; i < 0x40000; ++i) text += kGood + "\n";
  EXPECT_EQ(CountAfterLoading(text), 0x40000U - 17);
}
