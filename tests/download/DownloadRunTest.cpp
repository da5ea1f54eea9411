// A run told what became of each request: everything it says and asks for, in order.
#include "download/DownloadRun.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "tests/support/TestEnvironment.h"

using testing::Contains;
using testing::ElementsAre;

namespace {

class DownloadRunTest : public testing::Test, public DownloadDesk {
 protected:
  void ShowStatus(const TmyString& line1, const TmyString& line2) override {
    said_.push_back(std::string(line1.View()) + "|" + line2.Chars());
  }
  void ShowProgress(uint32_t received, uint32_t expected, const TmyString& line2) override {
    said_.push_back(std::to_string(received) + " of " + std::to_string(expected) + ": " + line2.Chars());
  }
  void ShowWorking(bool working) override { said_.emplace_back(working ? "[Cancel]" : "[OK]"); }
  void Request(DownloadSite site, const TmyString& path) override {
    said_.push_back(std::string(site == DownloadSite::kEibi ? "EiBi " : "HFCC ") + path.Chars());
  }
  void DropRequest() override { said_.emplace_back("drop"); }

  std::vector<std::string> Said() { return std::exchange(said_, {}); }
  void Finish(const std::string& body) {
    const TmyString status = "HTTP/1.1 200 OK";
    run_.Finished({status, reinterpret_cast<const uint8_t*>(body.data()), static_cast<uint32_t>(body.size())});
  }

  TemporaryFolder folder_;
  std::vector<std::string> said_;
  DownloadRun run_{*this, folder_.Path().c_str()};
};

TEST_F(DownloadRunTest, SaysEachStepOfBothPhases) {
  ASSERT_TRUE(WriteFileBytes(folder_.File("old.zip"), "old"));
  run_.Start();
  run_.Closed();
  EXPECT_THAT(Said(), Contains("|EiBi database download failed."));
  run_.Start();
  run_.Connected();
  run_.Progress(5, 7, true);
  Finish("no broadcast");
  run_.Closed();
  EXPECT_THAT(Said(),
              ElementsAre("[Cancel]", "Retrieving the EiBi web page...|", "EiBi /dx/eibi.txt",
                          "Downloading EiBi database...|Waiting for EiBi data...", "5 of 12: Downloaded EiBi 5/12",
                          "|EiBi database downloaded.", "|EiBi database download successful.", "[Cancel]",
                          "Retrieving the HFCC web page...|", "HFCC /data/index.html"));
  run_.Connected();
  run_.Progress(3, 9, false);
  Finish("<UL><LI>HREF=\"x/one.zip\"<LI>HREF=\"old.zip\"<LI>HREF=\"two.zip\"<LI>HREF=\"three.zip\"");
  for (const char* body : {"1", "2", "3"}) Finish(body);
  EXPECT_THAT(Said(),
              ElementsAre("Retrieving the HFCC web page...|Waiting for HFCC data...", "3 of 0: Downloaded HFCC 3/12",
                          "Downloading HFCC 1/3|", "HFCC /data/one.zip", "Downloading HFCC 2/3|", "HFCC /data/two.zip",
                          "Downloading HFCC 3/3|", "HFCC /data/three.zip",
                          "EiBi database file downloaded. 3 HFCC database files downloaded.|", "drop", "[OK]"));
  EXPECT_EQ(ReadFileBytes(folder_.File("three.zip")), "3");
}

}  // namespace
