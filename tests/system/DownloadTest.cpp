// Downloads of the whole plug-in from two servers on this machine, which may say nothing, half of it or something else.
#include <filesystem>
#include <optional>

#include "tests/support/ScriptedServer.h"
#include "tests/support/SeasonArchive.h"
#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kEibi[] = "/dx/eibi.txt";
constexpr char kIndex[] = "/data/index.html";
constexpr char kCheck[] = "&Check for DB updates";
constexpr char kQuestion[] = "Database files initialization needed";
constexpr char kTryAgain[] = " web page.\r\nPlease check your Internet connection and try again.";

class Download : public PluginFixture {
 public:  // tables of functions reach in
  Download() : PluginFixture(FakeHost::LoopbackModulePath()) {
    eibi_.emplace();
    hfcc_.emplace("127.0.0.2", eibi_->Port());
    SetEnvironmentVariableA("MARLUX_LOOPBACK_PORT", std::to_string(eibi_->Port()).c_str());
    eibi_->Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
    ListArchives({"none"});
  }
  ~Download() override { EXPECT_FALSE(host_.WasLate()); }

  static std::string OneBroadcast() { return Header() + Line("7325", "New"); }
  void ListArchives(const std::vector<std::string>& names) {
    std::string page = "<HTML><UL>";
    for (const std::string& name : names) {
      page += "<LI><A HREF=\"/data/" + name + ".zip\">" + name + "</A>";
      hfcc_->Answer("/data/" + name + ".zip", {ScriptedServer::Document("content of " + name)});
    }
    hfcc_->Answer(kIndex, {ScriptedServer::Document(page)});
  }

  static HWND Window() { return FakeHost::Find("Download"); }
  static HWND Bar() { return GetWindow(Window(), GW_CHILD); }
  static std::string Status() { return Window() ? TextOf(Bar()) : ""; }
  static bool IsDone() { return Window() && !IsWindowVisible(Bar()); }
  static void Press() { PostMessageA(Window(), WM_KEYDOWN, VK_RETURN, 1); }
  // Lets a run end and closes its window; what it said last.
  std::string Run(HWND window) {
    std::string status;
    host_.When(&IsDone, [&] { status = Status(), Press(); });
    Choose(window, kCheck);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(window));
    return status;
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(documents_.DataFolder())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  std::string File(const std::string& name) const { return ReadFileBytes(documents_.DataFolder() + "\\" + name); }

  void ByButton(HWND) { Press(); }
  void ByEscape(HWND) { PostMessageA(Window(), WM_KEYDOWN, VK_ESCAPE, 1); }
  void ByCloseBox(HWND) { PostMessageA(Window(), WM_SYSCOMMAND, SC_CLOSE, 0); }
  void ByHost(HWND) { host_.Close(7); }
  void ByUnload(HWND) {
    host_.Close(7);
    host_.Done();
    host_.Unload();
  }

  std::optional<ScriptedServer> eibi_, hfcc_;
};

}  // namespace

TEST_F(Download, SummaryFilesAndGridOfEachOutcome) {
  const struct {
    const char *name, *expected;
    std::vector<std::string> archives, fetched;
    bool hasEibi, hasHfcc;
  } kRuns[] = {
      {"nothing new", "EiBi database file downloaded. No HFCC database file downloaded.\r\n", {"none"}, {}, true, true},
      {"one",
       "EiBi database file downloaded. 1 HFCC database file downloaded.\r\n",
       {"a1", "none"},
       {"a1"},
       true,
       true},
      {"three",
       "EiBi database file downloaded. 3 HFCC database files downloaded.\r\n",
       {"b1", "b2", "a1", "b3"},
       {"b1", "b2", "b3"},
       true,
       true},
      {"no EiBi",
       "No EiBi database file downloaded. 1 HFCC database file downloaded.\r\nUnable to connect to EiBi",
       {"c1"},
       {"c1"},
       false,
       true},
      {"no HFCC",
       "EiBi database file downloaded. No HFCC database file downloaded.\r\nUnable to connect to HFCC",
       {},
       {},
       true,
       false},
      {"nobody",
       "No EiBi database file downloaded. No HFCC database file downloaded.\r\nUnable to connect to any",
       {},
       {},
       false,
       false},
  };
  const HWND window = StartPlugin();
  const uint16_t port = eibi_->Port();
  for (const auto& run : kRuns) {
    SCOPED_TRACE(run.name);
    eibi_.reset(), hfcc_.reset();
    WriteSchedule(ThreeBroadcasts());
    if (run.hasEibi) eibi_.emplace("127.0.0.1", port).Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
    if (run.hasHfcc) hfcc_.emplace("127.0.0.2", port), ListArchives(run.archives);
    EXPECT_EQ(Run(window), run.expected + std::string(run.hasEibi && run.hasHfcc ? "" : kTryAgain));
    EXPECT_EQ(File("eibi.txt"), run.hasEibi ? OneBroadcast() : ThreeBroadcasts());
    for (const std::string& name : run.fetched) EXPECT_EQ(File(name + ".zip"), "content of " + name);
    EXPECT_EQ(Counts(window), "1 of 1 broadcasts");  // what the first run brought
  }
  std::vector<std::string> archives;  // what the menu has; the one chosen at the start stays
  for (const MenuEntry& entry : Entries(GetMenu(window))) {
    if (entry.text.ends_with(".zip")) archives.push_back((entry.isChecked ? "+" : "") + entry.text);
  }
  EXPECT_THAT(archives, testing::UnorderedElementsAre("a1.zip", "b1.zip", "b2.zip", "b3.zip", "c1.zip", "+none.zip"));
}

TEST_F(Download, AnErrorPageInPlaceOfEitherDocument) {
  eibi_->Answer(kEibi, {"HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nNo!\n"});
  hfcc_->Answer(kIndex, {ScriptedServer::Document("<ul>")});
  const HWND window = StartPlugin();
  EXPECT_EQ(Run(window), "Retrieving the HFCC web page...\r\nIncorrect HFCC web page format!");
  EXPECT_EQ(Run(window), "Retrieving the HFCC web page...\r\nIncorrect HFCC web page format!");
  EXPECT_EQ(File("eibi.txt"), "No!\n");
  EXPECT_EQ(File("eibi.bak"), ThreeBroadcasts()) << "the second page must not push it out";
  EXPECT_EQ(Counts(window), "3 of 3 broadcasts");
}

TEST_F(Download, AFirstStartAsksOnceAndDownloadsOnYes) {
  hfcc_->Answer(kIndex, {ScriptedServer::Document("<UL><LI><A HREF=\"a26all00.zip\">")});
  hfcc_->Answer("/data/a26all00.zip", {ScriptedServer::Document(ReadFileBytes(SeasonArchive()))});
  const auto isAsked = [] { return FakeHost::Find(kQuestion) != nullptr; };
  for (const WPARAM answer : {VK_ESCAPE, VK_RETURN}) {  // the first button is "Yes"
    DeleteFileA(DataFile().c_str());
    DeleteFileA(ArchiveFile().c_str());
    host_.When(isAsked, [&] {
      PostMessageA(FakeHost::Find(kQuestion), WM_KEYDOWN, answer, 1);
      if (answer == VK_RETURN) host_.When(&IsDone, &Press);
    });
    const HWND window = StartPlugin();
    EXPECT_EQ(Counts(window), answer == VK_RETURN ? "1 of 1 broadcasts" : "0 of 0 broadcasts");
    ShowWindow(window, SW_HIDE);
    ShowWindow(window, SW_SHOW);
    host_.PumpFor(50);
    EXPECT_FALSE(isAsked() || Window());
    host_.Close(7);
  }
  EXPECT_THAT(Files(), ElementsAre("a26all00.zip", "eibi.txt", "tasks.mxt"));
}

TEST_F(Download, EndsInEveryPhaseInEveryWay) {
  using End = ScriptedServer::End;
  const std::string part = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nEiBi";
  const struct {
    const char *status, *path;
    std::string bytes;
  } kPhases[] = {
      {"Downloading EiBi database...\r\nWaiting for EiBi data...", kEibi, ""},
      {"Downloading EiBi database...\r\nDownloaded EiBi 4/9", kEibi, part},
      {"Retrieving the HFCC web page...\r\nWaiting for HFCC data...", kIndex, ""},
      {"Retrieving the HFCC web page...\r\nDownloaded HFCC 4/9", kIndex, part},
      {"Downloading HFCC 1/2\r\nWaiting for HFCC data...", "/data/x.zip", ""},
      {"Downloading HFCC 1/2\r\nDownloaded HFCC 4/9", "/data/x.zip", part},
      {"EiBi database file downloaded. 2 HFCC database files downloaded.\r\n", "", ""},
  };
  for (const auto& phase : kPhases) {
    for (const auto way :
         {&Download::ByButton, &Download::ByEscape, &Download::ByCloseBox, &Download::ByHost, &Download::ByUnload}) {
      const bool isByHost = way == &Download::ByHost || way == &Download::ByUnload;
      SCOPED_TRACE(phase.status);
      for (const char* name : {"x", "y"}) DeleteFileA((documents_.DataFolder() + "\\" + name + ".zip").c_str());
      WriteSchedule(ThreeBroadcasts());
      eibi_->Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
      ListArchives({"x", "y"});
      (phase.path == kEibi ? eibi_ : hfcc_)->Answer(phase.path, {phase.bytes, End::kStayOpen});
      const HWND window = StartPlugin();
      host_.When([&] { return Status() == phase.status; }, [&] { (this->*way)(window); });
      Choose(window, kCheck);
      EXPECT_EQ(Window(), nullptr);
      EXPECT_EQ(IsWindow(window) && IsWindowEnabled(window), !isByHost);
      EXPECT_EQ(File("eibi.txt"), phase.path == kEibi ? ThreeBroadcasts() : OneBroadcast());
      EXPECT_EQ(File("x.zip"), phase.path[0] == '\0' ? "content of x" : "");
      EXPECT_FALSE(std::filesystem::exists(documents_.DataFolder() + "\\x.zip.new"));
      host_.Close(7);
      host_.PumpFor(20);          // nothing that was on its way may arrive
      ASSERT_TRUE(host_.Load());  // an unload inside leaves a reference, which the next call gives back
      host_.Done();
      host_.Unload();
      EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
      EXPECT_EQ(GetModuleHandleA("marlux3-loopback.dll"), nullptr);
      ASSERT_FALSE(host_.WasLate());
      ASSERT_TRUE(host_.Load());
    }
  }
}
