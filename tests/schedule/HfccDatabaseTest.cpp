#include "schedule/HfccDatabase.h"

#include "tests/schedule/ArchiveMaker.h"
#include "tests/support/Test.h"

// That every row of an archive is cut as it should is tested with the export of a whole one.
namespace {

std::string ScheduleLine(const std::string& khz, const std::string& site) {
  std::string line(151, ' ');
  line.replace(0, khz.size(), khz).replace(47, site.size(), site).replace(117, 3, "BBB");
  return line + "\r\n";
}

std::vector<ZipMemberSource> Members(const std::string& schedule) {
  return {{schedule, ScheduleLine("9420", "BBB") + ScheduleLine("5000", "XYZ")},
          {"admin.txt", "AAA Land\r\n"},
          {"broadcas.txt", "BBB Station\r\n"},
          {"site.txt", "DDD Dale\r\nCCC Hill\r\nBBB                                    10N20 030E40\r\n"},
          {"fmorg.txt", "DDD Office\r\n"}};
}

struct HfccDatabaseFile : testing::Test {
  HfccLoad Load(const std::string& name, const std::string& bytes) {
    EXPECT_TRUE(WriteFileBytes(folder_.File(name), bytes));
    return database_.LoadHfcc(folder_.File(name).c_str());
  }
  TemporaryFolder folder_;
  HfccDatabase database_;
};

}  // namespace

TEST_F(HfccDatabaseFile, TellsTheScheduleByItsName) {
  const std::tuple<const char*, const char*, uint32_t> kCases[] = {
      {"B12ALL00.ZIP", "b12all00.txt", 2},
      {"b12allx2.zip", "folder/B12ALL99.TXT", 2},
      {"b12all00.zip", "a12all00.txt", 0},
      {"b12.zip", "b12all.txt", 0},
  };
  for (const auto& [archive, member, items] : kCases) {
    EXPECT_EQ(Load(archive, MakeZip(Members(member))), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), items) << archive << " with " << member;
  }
}

TEST_F(HfccDatabaseFile, HasNoRecordsWithoutAllFive) {
  for (size_t i = 0; i < 5; ++i) {
    auto members = Members("b12all00.txt");
    members[i].data = "; no row\r\n";
    EXPECT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), 0U) << members[i].name << " without rows";
    members.erase(members.begin());
    EXPECT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kTooFewFiles);
  }
  EXPECT_EQ(Load("b12all00.zip", ""), HfccLoad::kNotOpened);
}

TEST_F(HfccDatabaseFile, SurvivesHostileArchives) {
  auto members = Members("b12all00.txt");
  for (const char* name : {"antenna.txt", "site.txt"}) members.push_back({name, "x", 8, 0, 0xFFFFFFFE});
  ASSERT_EQ(Load("b12all00.zip", MakeZip(members)), HfccLoad::kRead);
  EXPECT_EQ(database_.Items().Count(), 2U);
}
