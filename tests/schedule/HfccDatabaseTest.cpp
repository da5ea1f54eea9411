#include "schedule/HfccDatabase.h"

#include "schedule/CZipper.h"
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
          {"site.txt", "CCC Hill\r\nBBB                                    10N20 030E40\r\n"},
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
      {"b12.zip", "B12.txt", 2},
      {"b12.zip", "b12all.txt", 0},
      {"b12all00.zip", "b12.txt", 0},
      {"b12all", "b12all", 2},
      {"b12all.x.zip", "folder\\b12all", 2},
  };
  for (const auto& [archive, member, items] : kCases) {
    EXPECT_EQ(Load(archive, MakeZip(Members(member))), HfccLoad::kRead);
    EXPECT_EQ(database_.Items().Count(), items) << archive << " with " << member;
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
  database_.LoadHfcc("none");
  EXPECT_EQ(database_.Items().Count(), 0U) << "what was there is gone";
}

TEST_F(HfccDatabaseFile, HasNoRecordsWithoutAllFive) {
  for (size_t i = 0; i < 5; ++i) {
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
}
