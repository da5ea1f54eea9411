#include "schedule/HfccDatabase.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <sstream>
#include <vector>

#include "schedule/CGZip.h"
#include "tests/schedule/ArchiveMaker.h"
#include "tests/support/SeasonArchive.h"
#include "tests/support/TestEnvironment.h"

namespace {

// The lines that are no comments of the member whose name begins so.
std::vector<std::string> LinesOf(const std::string& archivePath, const std::string& member) {
  zlib::CGZip archive;
  EXPECT_TRUE(archive.Open(archivePath.c_str()));
  std::vector<std::string> lines;
  for (int32_t i = 0; i < archive.GetCount(); ++i) {
    const char* data = nullptr;
    char name[260];
    uint32_t size = 0;
    if (!archive.GetFile(i, &data, &size, nullptr, name, sizeof name)) continue;
    if (_strnicmp(name, member.c_str(), member.size()) != 0) continue;
    for (const char* end; (end = strstr(data, "\r\n")) != nullptr; data = end + 2) {
      if (*data != ';') lines.emplace_back(data, end);
    }
  }
  return lines;
}

// The columns once more, the slow and plain way: all cut one character before the next column begins.
std::string Cut(const std::string& line, size_t from, size_t next = 10000) {
  if (from >= line.size()) return "";
  std::string text = line.substr(from, next - from);
  if (next < 10000 && line.size() >= next) text.pop_back();
  text.erase(text.find_last_not_of(' ') + 1);
  return text.erase(0, text.find_first_not_of(' '));
}

std::map<std::string, std::string> CodesOf(const std::string& archivePath, const std::string& member) {
  std::map<std::string, std::string> codes;
  for (const std::string& line : LinesOf(archivePath, member)) codes[Cut(line, 0, 4)] = line;
  return codes;
}

// What the code tables of an archive say.
struct Codes {
  explicit Codes(const std::string& archive)
      : administrations(CodesOf(archive, "admin.txt")),
        broadcasters(CodesOf(archive, "broadcas.txt")),
        organisations(CodesOf(archive, "fmorg.txt")),
        sites(CodesOf(archive, "site.txt")) {}
  using Table = std::map<std::string, std::string>;
  Table administrations, broadcasters, organisations, sites;

  static std::string Name(const Table& table, const std::string& code, size_t next) {
    const auto found = table.find(code);
    return found == table.end() ? code : Cut(found->second, 4, next);
  }
  std::string SitePart(const std::string& code, size_t from, size_t next) const {
    const auto found = sites.find(code);
    return found == sites.end() ? "" : Cut(found->second, from, next);
  }
};

int32_t Number(const std::string& text) {
  return std::atoi(text.c_str());
}

int32_t Seconds(const std::string& hhmm) {
  return hhmm.empty() ? 0 : Number(hhmm.substr(0, 2)) * 3600 + Number(hhmm.substr(2)) * 60;
}

int32_t DayNumber(const std::string& date) {
  return date.empty() ? 0 : (Number(date.substr(4)) * 12 + Number(date.substr(2, 2))) * 31 + Number(date.substr(0, 2));
}

std::string With(const std::string& digits, char separator) {
  std::string text = digits.substr(0, 2);
  for (size_t i = 2; i < digits.size(); i += 2) text += separator + digits.substr(i, 2);
  return text;
}

std::string DaysText(const std::string& digits) {
  static const std::map<std::string, std::string> kNames = {
      {"1", "Sunday"}, {"2", "Monday"},   {"3", "Tuesday"},        {"4", "Wednesday"},    {"5", "Thursday"},
      {"6", "Friday"}, {"7", "Saturday"}, {"1234567", "All days"}, {"23456", "Workdays"}, {"17", "Weekend"}};
  const auto found = kNames.find(digits);
  return found == kNames.end() ? digits : found->second;
}

std::string ModulationText(const std::string& cell) {
  if (cell == "D") return "Double sideband AM";
  if (cell == "N") return "Digital (DRM)";
  return cell == "T" ? "Single sideband, reduced carrier" : cell;
}

bool TextHolds(const std::string& zones, uint32_t zone) {
  std::stringstream items(zones);
  for (std::string item; std::getline(items, item, ',');) {
    const size_t dash = item.find('-');
    const auto first = static_cast<uint32_t>(Number(item));
    const auto last = dash == std::string::npos ? first : static_cast<uint32_t>(Number(item.substr(dash + 1)));
    if (zone >= first && zone <= last) return true;
  }
  return false;
}

void ExpectSameNumbers(const FccItem& item, const std::string& line) {
  const std::string start = Cut(line, 6, 11), end = Cut(line, 11, 16);
  EXPECT_EQ(item.frequency, Number(Cut(line, 0, 6)) * 1000);
  EXPECT_EQ(item.frequencyText, Cut(line, 0, 6));
  EXPECT_EQ(item.start, Seconds(start));
  EXPECT_EQ(item.end, Seconds(end));
  EXPECT_EQ(item.startText, With(start, ':'));
  EXPECT_EQ(item.endText, With(end, ':'));
  EXPECT_EQ(item.powerText, Cut(line, 52, 56));
  EXPECT_EQ(item.power, Number(Cut(line, 52, 56)));
  EXPECT_EQ(item.azimuthText, Cut(line, 56, 64));
  EXPECT_EQ(item.azimuth, Number(Cut(line, 56, 64)));
}

void ExpectSameTexts(const FccItem& item, const std::string& line) {
  const std::string from = Cut(line, 80, 87), to = Cut(line, 87, 94), modulation = Cut(line, 94, 96);
  EXPECT_EQ(item.startDate, DayNumber(from));
  EXPECT_EQ(item.endDate, DayNumber(to));
  EXPECT_EQ(item.startDateText, With(from, '/'));
  EXPECT_EQ(item.endDateText, With(to, '/'));
  EXPECT_EQ(item.language, Cut(line, 102, 113));
  EXPECT_EQ(item.modulation, modulation.empty() ? 0 : modulation[0]);
  EXPECT_EQ(item.modulationName, ModulationText(modulation));
  EXPECT_EQ(item.daysText, DaysText(Cut(line, 72, 80)));
  for (uint32_t day = 0; day < 7; ++day) {
    EXPECT_EQ(item.dayMask >> day & 1, Cut(line, 72, 80).find(static_cast<char>('1' + day)) != std::string::npos);
  }
  EXPECT_EQ(item.oldRequest, Cut(line, 131, 133));
  EXPECT_EQ(item.alternatives[0], Cut(line, 133, 139));
  EXPECT_EQ(item.alternatives[1], Cut(line, 139, 145));
  EXPECT_EQ(item.alternatives[2], Cut(line, 145, 151));
  EXPECT_EQ(item.notes, Cut(line, 151));
  EXPECT_EQ(item.cirafText, Cut(line, 16, 47));
  for (uint32_t zone = 1; zone <= 100; ++zone) EXPECT_EQ(item.ciraf.Holds(zone), TextHolds(item.cirafText, zone));
  EXPECT_EQ(item.shown, 0U);
}

void ExpectSameCodes(const HfccDatabase& database, const FccItem& item, const Codes& codes, const std::string& line) {
  const std::string site = Cut(line, 47, 52), administration = Cut(line, 113, 117);
  const std::string broadcaster = Cut(line, 117, 121), organisation = Cut(line, 121, 125);
  EXPECT_EQ(item.siteCode, site);
  EXPECT_EQ(item.administrationCode, administration);
  EXPECT_EQ(item.broadcasterCode, broadcaster);
  EXPECT_EQ(item.organisationCode, organisation);
  EXPECT_EQ(item.site >= 0, codes.sites.contains(site));
  EXPECT_EQ(item.administration >= 0, codes.administrations.contains(administration));
  EXPECT_EQ(item.broadcaster >= 0, codes.broadcasters.contains(broadcaster));
  EXPECT_EQ(item.organisation >= 0, codes.organisations.contains(organisation));
  EXPECT_EQ(database.LocationName(item), Codes::Name(codes.sites, site, 35));
  EXPECT_EQ(database.AdministrationName(item), Codes::Name(codes.administrations, administration, 55));
  EXPECT_EQ(database.BroadcasterName(item), Codes::Name(codes.broadcasters, broadcaster, 10000));
  EXPECT_EQ(database.OrganisationName(item), Codes::Name(codes.organisations, organisation, 10000));
  EXPECT_EQ(item.latitude, codes.SitePart(site, 39, 45));
  EXPECT_EQ(item.longitude, codes.SitePart(site, 45, 10000));
}

std::string ScheduleLine(const std::string& khz, const std::string& site) {
  std::string line(151, ' ');
  line.replace(0, khz.size(), khz).replace(47, site.size(), site).replace(117, 3, "BBB");
  return line + "\r\n";
}

std::vector<ZipMemberSource> Members(const std::string& schedule) {
  return {{schedule, ScheduleLine("9420", "BBB") + ScheduleLine("5000", "XYZ")},
          {"admin.txt", "AAA Land\r\n"},
          {"broadcas.txt", "BBB Station\r\n"},
          {"site.txt", "CCC Hill\r\nBBB                                    10N20 030E40\r\n"},
          {"fmorg.txt", "DDD Office\r\n"}};
}

class HfccDatabaseFile : public testing::Test {
 protected:
  HfccLoad Load(const std::string& name, const std::string& bytes) {
    EXPECT_TRUE(WriteFileBytes(folder_.File(name), bytes));
    return database_.LoadHfcc(folder_.File(name).c_str());
  }
  TemporaryFolder folder_;
  HfccDatabase database_;
};

}  // namespace

TEST(HfccDatabase, AgreesWithAPlainCutOfEveryRow) {
  const std::string path = SeasonArchive();
  HfccDatabase database;
  ASSERT_EQ(database.LoadHfcc(path.c_str()), HfccLoad::kRead) << path;
  const std::vector<std::string> lines = LinesOf(path, path.substr(path.rfind('\\') + 1, 6));
  const Codes codes(path);
  ASSERT_EQ(database.Items().Count(), lines.size());
  EXPECT_GE(lines.size(), 300U) << "neither a real archive nor the sample: " << path;
  for (uint32_t i = 0; i < lines.size(); ++i) {
    const FccItem& item = *database.Items().Get(i);
    ExpectSameNumbers(item, lines[i]);
    ExpectSameTexts(item, lines[i]);
    ExpectSameCodes(database, item, codes, lines[i]);
    ASSERT_FALSE(HasFailure()) << "row " << i << ": " << lines[i];
  }
}

TEST_F(HfccDatabaseFile, TellsTheScheduleByItsName) {
  const struct {
    const char* archive;
    const char* member;
    uint32_t items;
  } kCases[] = {
      {"B12ALL00.ZIP", "b12all00.txt", 2},
      {"b12allx2.zip", "folder/B12ALL99.TXT", 2},
      {"b12all00.zip", "a12all00.txt", 0},
      {"b12.zip", "B12.txt", 2},
      {"b12.zip", "b12all.txt", 0},
      {"b12all00.zip", "b12.txt", 0},
      {"b12all", "b12all", 2},
      {"b12all.x.zip", "folder\\b12all", 2},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ(Load(each.archive, MakeZip(Members(each.member))), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), each.items) << each.archive << " with " << each.member;
  }
}

TEST_F(HfccDatabaseFile, ResolvesCodes) {
  ASSERT_EQ(Load("b12all00.zip", MakeZip(Members("b12all00.txt"))), HfccLoad::kRead);
  const FccItem& found = *database_.Items().Get(0);
  EXPECT_EQ(found.site, 1) << "the row in the file, not the sorted position";
  EXPECT_STREQ(database_.LocationName(found), "BBB") << "a site without a name";
  EXPECT_STREQ(found.latitude, "10N20");
  EXPECT_STREQ(found.longitude, "030E40");
  EXPECT_STREQ(database_.BroadcasterName(found), "Station");
  EXPECT_EQ(found.administration, -1);
  EXPECT_STREQ(database_.AdministrationName(found), "");
  const FccItem& unknown = *database_.Items().Get(1);
  EXPECT_EQ(unknown.site, -1);
  EXPECT_STREQ(database_.LocationName(unknown), "XYZ");
  EXPECT_STREQ(unknown.latitude, "");
}

TEST_F(HfccDatabaseFile, HasNoRecordsWithoutAllFive) {
  const std::string good = MakeZip(Members("b12all00.txt"));
  for (size_t i = 0; i < 5; ++i) {
    ASSERT_EQ(Load("b12all00.zip", good), HfccLoad::kRead);
    ASSERT_EQ(database_.Items().Count(), 2U);
    auto members = Members("b12all00.txt");
    members[i].data = "; no row\r\n";
    EXPECT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), 0U) << members[i].name << " without rows";
    members[i].name = "Site.txt";
    EXPECT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), 0U) << i << " missing";
    members.erase(members.begin());
    EXPECT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kTooFewFiles);
  }
  EXPECT_EQ(Load("b12all00.zip", ""), HfccLoad::kNotOpened);
  EXPECT_EQ(Load("b12all00.zip", "text"), HfccLoad::kTooFewFiles);
  EXPECT_STREQ(HfccLoadText(HfccLoad::kNotOpened), "Unable to open the archive");
  EXPECT_STREQ(HfccLoadText(HfccLoad::kTooFewFiles), "Not enough files in the archive");
  EXPECT_EQ(database_.Items().Count(), 0U);
}

TEST_F(HfccDatabaseFile, SurvivesHostileArchives) {
  auto members = Members("b12all00.txt");
  members.push_back({"admin.txt", "EEE Other\r\n"});
  members.push_back({"antenna.txt", "x", 8, 0, 0, 0xFFFFFFFE});
  members.push_back({"site.txt", "x", 8, 0, 0, 0xFFFFFFFE});
  ASSERT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kRead);
  EXPECT_EQ(database_.Items().Count(), 2U);
  EXPECT_STREQ(database_.Administrations().Text(0, 0), "EEE") << "of two members of a name the last one counts";

  // More than all members together may have.
  const ZipMemberSource large{"admin.txt", std::string(27 << 20, 'x')};
  std::vector<ZipMemberSource> many = Members("b12all00.txt");
  many.insert(many.end(), 9, large);
  many.push_back({"admin.txt", "ZZZ" + large.data});
  ASSERT_EQ(Load("b12all00.zip", MakeZip(many)), HfccLoad::kRead);
  EXPECT_EQ(database_.Items().Count(), 2U);
  EXPECT_STREQ(database_.Administrations().Text(0, 0), "xxx");

  std::mt19937 random(11);
  for (ZipMemberSource& member : members) {
    for (int i = 0; i < 3000; ++i)
      member.data += static_cast<char>(random() % 3 ? " 1A\n;,-\xFF"[random() % 8] : random());
  }
  Load("b12all00.zip", MakeZip(members));
  for (uint32_t i = 0; i < database_.Items().Count(); ++i) {
    EXPECT_LE(strlen(database_.LocationName(*database_.Items().Get(i))), 3100U);
  }
}
