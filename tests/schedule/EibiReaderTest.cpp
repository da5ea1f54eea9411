#include "schedule/EibiReader.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <utility>

#include "tests/support/SeasonArchive.h"
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
  const std::string start = time.empty() ? "-" : time.substr(0, 2) + ":" + time.substr(2, 2);
  const std::string end = time.empty() ? "-" : time.substr(5, 2) + ":" + time.substr(7, 2);
  EXPECT_THAT((std::array{item.frequency, item.start, item.end}),
              testing::ElementsAre(std::lround(double{std::strtof(frequency.c_str(), nullptr)} * 1000),
                                   time.empty() ? -1 : Seconds(time), time.empty() ? -1 : Seconds(time.substr(5))));
  EXPECT_THAT(
      (std::array<const char*, 9>{item.frequencyText, item.startText, item.endText, item.rawDays, item.itu,
                                  item.station, item.language, item.target, item.remarks}),
      testing::ElementsAre(frequency, start, end, Cut(line, 24, 30, 10), Cut(line, 30, 34, 10), Cut(line, 34, 59, 50),
                           Cut(line, 59, 63, 10), Cut(line, 63, 75, 10), Cut(line, 75, line.size(), 20)));
}

}  // namespace

TEST(EibiReader, AgreesWithAPlainCutOfEveryLine) {
  const std::string archive = SeasonArchive();
  const std::string folder = archive.substr(0, archive.rfind('\\'));
  std::istringstream lines(ReadFileBytes(folder + "/eibi.txt"));
  const auto items = LoadEibi(folder.c_str());
  uint32_t next = 0;
  std::string line;
  for (uint32_t number = 1; std::getline(lines, line); ++number) {
    if (line.ends_with('\r')) line.pop_back();
    if (number <= 17 || line.empty()) continue;
    ASSERT_LT(next, items->Count()) << line;
    ExpectSame(*items->Get(next++), line);
    ASSERT_FALSE(HasFailure()) << "line " << number << ": " << line;
  }
  EXPECT_EQ(next, items->Count());
  EXPECT_GE(next, 400U) << "neither a real schedule nor the sample in " << folder;
}

TEST(EibiReader, KeepsTheOrderOfTheFileAndReadableLinesOnly) {
  TemporaryFolder folder;
  std::string text = Header();
  for (const char* khz : {"7000", "5000", "none", "6000"})
    text += khz + kGood.substr(4) + "\r\n" + kGood.substr(0, 62) + "\r";
  ASSERT_TRUE(WriteFileBytes(folder.File("eibi.txt"), text));
  const auto items = LoadEibi(folder.Path().c_str());
  ASSERT_EQ(items->Count(), 3U);
  EXPECT_EQ(items->Get(0)->frequency, 7000000);
  EXPECT_EQ(items->Get(2)->frequency, 6000000);
}

TEST(EibiReader, SurvivesBadFiles) {
  EXPECT_EQ(LoadEibi("Z:\\no such folder")->Count(), 0U);
  std::string binary(300000, 0);
  std::mt19937 random(7);
  for (char& c : binary) c = static_cast<char>(random());
  const std::pair<uint32_t, std::string> kCases[] = {
      {0, ""},
      {0, Header(9)},
      {0, Header()},
      {1, Header() + kGood + "\n" + kGood.substr(0, 62)},
      {1, Header() + kGood.substr(0, 63)},
      {2, Header() + kGood + std::string(10000, 'z') + "\n" + kGood},
      {0, Header() + std::string(10000, '\0')},
      {1, Header() + std::string(200, '\xE4') + "\n" + kGood + "\xFF\x80\n"}};
  for (const auto& [count, bytes] : kCases) EXPECT_EQ(CountAfterLoading(bytes), count) << bytes.size();
  EXPECT_LT(CountAfterLoading(binary), 300000U / 63);
}

TEST(EibiReader, StopsAtItsLastLine) {
  EXPECT_EQ(CountAfterLoading(Header(0x40000 + 17)), 0x40000U - 17);
}
