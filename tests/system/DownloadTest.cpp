// Downloads of the whole plug-in from two servers on this machine, which may say nothing, half of it or something else.
#include <filesystem>
#include <optional>
#include <sstream>

#include "tests/support/ScriptedServer.h"
#include "tests/support/SeasonArchive.h"
#include "tests/system/PluginFixture.h"

using End = ScriptedServer::End;
constexpr char kEibi[] = "/dx/eibi.txt";
constexpr char kIndex[] = "/data/index.html";
constexpr char kCheck[] = "&Check for DB updates";

struct Download : PluginFixture {
  Download() : PluginFixture(FakeHost::kLoopbackModulePath) {
    eibi_.emplace();
    hfcc_.emplace("127.0.0.2", eibi_->Port());
    SetPort(std::to_string(eibi_->Port()));
    eibi_->Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
    ListArchives("none");
    SetEnvironmentVariableA("MARLUX_LOOPBACK_TIMEOUT", nullptr);
  }
  ~Download() override { EXPECT_FALSE(host_.WasLate()); }

  static void SetPort(const std::string& port) { SetEnvironmentVariableA("MARLUX_LOOPBACK_PORT", port.c_str()); }
  static std::string OneBroadcast() { return EibiHeader() + Line("7325", "New"); }
  void ListArchives(const std::string& names) {
    std::istringstream words(names);
    std::string page = "<HTML><UL>";
    for (std::string name; words >> name;) {
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
  std::string File(const std::string& name) const { return ReadFileBytes(documents_.DataFolder() + "\\" + name); }
  void Delete(const std::string& name) const { DeleteFileA((documents_.DataFolder() + "\\" + name).c_str()); }

  std::optional<ScriptedServer> eibi_, hfcc_;
};

TEST_F(Download, SummaryFilesAndGridOfEachOutcome) {
  const std::string again = " web page.\r\nPlease check your Internet connection and try again.";
  const std::string eibi = "EiBi database file downloaded. ", no = "No ", none = "No HFCC database file downloaded.",
                    one = "1 HFCC database file downloaded.", unable = "\r\nUnable to connect to ";
  const ScriptedServer::Reply silence = {"", End::kStayOpen}, missing = {"HTTP/1.1 404\nContent-Length: 1\n\n."};
  const ScriptedServer::Reply half = {ScriptedServer::Document(OneBroadcast()).substr(0, 200)};
  const struct {
    std::string expected;
    const char* archives;  // of the page; null: nobody answers
    const char* path = nullptr;
    ScriptedServer::Reply reply = {};  // to this path
  } kRuns[] = {
      {eibi + none + "\r\n", "none"},
      {eibi + one + "\r\n", "a1 none"},
      {eibi + "3 HFCC database files downloaded.\r\n", "b1 b2 a1 b3"},
      {eibi + none + unable + "HFCC" + again, nullptr},
      {no + eibi + none + unable + "any" + again, nullptr},
      {no + eibi + one + unable + "EiBi" + again, "d1", kEibi, silence},
      {no + eibi + none + unable + "EiBi" + again, "d1", kEibi, half},
      {eibi + none + unable + "HFCC" + again, "e1", kIndex, silence},
      {eibi + none + unable + "HFCC" + again, "e1", "/data/e1.zip", half},
      {eibi + one + unable + "HFCC" + again, "f1 f2", "/data/f2.zip", silence},
      {eibi + "2 HFCC database files downloaded.\r\n", "g1 G1 full gone", "/data/gone.zip", missing},
  };
  const HWND window = StartPlugin();
  std::filesystem::create_directory(documents_.DataFolder() + "\\full.zip.new");  // nothing can be written aside
  const uint16_t port = eibi_->Port();
  for (const auto& run : kRuns) {
    const bool hasEibi = run.expected.starts_with(eibi);
    // Only where it is waited for: a busy machine may be slow to answer.
    SetEnvironmentVariableA("MARLUX_LOOPBACK_TIMEOUT", run.reply.end == End::kStayOpen ? "400" : nullptr);
    eibi_.reset(), hfcc_.reset();
    WriteSchedule(ThreeBroadcasts());
    if (hasEibi || run.path == kEibi) eibi_.emplace("127.0.0.1", port);
    if (hasEibi) eibi_->Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
    if (run.archives) hfcc_.emplace("127.0.0.2", port), ListArchives(run.archives);
    if (run.path) (run.path == kEibi ? eibi_ : hfcc_)->Answer(run.path, run.reply);
    EXPECT_EQ(Run(window), run.expected);
    EXPECT_EQ(File("eibi.txt"), hasEibi ? OneBroadcast() : ThreeBroadcasts());
    EXPECT_EQ(CountsOf(window), "1 of 1 broadcast");  // what the first run brought
  }
  std::string archives;  // of the menu; the one chosen at the start stays
  for (const MenuEntry& entry : Entries(GetMenu(window))) {
    if (entry.text.ends_with(".zip")) archives += (entry.isChecked ? " +" : " ") + entry.text;
  }
  EXPECT_EQ(archives, " a1.zip b1.zip b2.zip b3.zip d1.zip f1.zip g1.zip +none.zip");
}

// As the machine's own server sends them: the EiBi file in chunks, all but one of the archives not at all.
TEST_F(Download, AWholeRunFromAWebServer) {
  namespace fs = std::filesystem;
  ASSERT_TRUE(std::getenv("WEB_FOLDER")) << "run me in scripts/with-web-server.sh";
  const fs::path season = SeasonArchive(), web = std::string("Z:") + std::getenv("WEB_FOLDER");
  const std::string archive = season.filename().string();
  std::string page = ReadFileBytes((season.parent_path() / "hfcc_index.html").string());
  if (page.empty()) page = "<UL><LI>HREF=\"gone.zip\"<LI>HREF=\"a/" + archive + "\"";
  for (const char* folder : {"dx", "data"}) fs::create_directories(web / folder);
  const std::string eibi = ReadFileBytes((season.parent_path() / "eibi.txt").string());
  ASSERT_TRUE(WriteFileBytes((web / "dx/eibi.txt").string(), eibi));
  ASSERT_TRUE(WriteFileBytes((web / "data/index.html").string(), page));
  ASSERT_TRUE(WriteFileBytes((web / "data" / archive).string(), ReadFileBytes(season.string())));
  SetPort(std::getenv("WEB_PORT"));
  EXPECT_EQ(Run(StartPlugin()), "EiBi database file downloaded. 1 HFCC database file downloaded.\r\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(documents_.DataFolder()), {}), 3) << "nothing is left aside";
  EXPECT_EQ(File("eibi.txt"), eibi);
  EXPECT_EQ(File(archive), ReadFileBytes(season.string()));
}

TEST_F(Download, AnErrorPageInPlaceOfEitherDocument) {
  hfcc_->Answer(kIndex, {ScriptedServer::Document("<ul>")});
  const HWND window = StartPlugin();
  const std::string aside = documents_.DataFolder() + "\\eibi.bak.new";
  eibi_->Answer(kEibi, {ScriptedServer::Document("No 0")});
  const HANDLE held = CreateFileA((documents_.DataFolder() + "\\eibi.txt").c_str(), GENERIC_READ, FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  Run(window);
  CloseHandle(held);
  EXPECT_EQ(File("eibi.txt"), ThreeBroadcasts()) << "what cannot be read is not nothing";
  std::filesystem::create_directory(aside);
  for (const std::string& page : {std::string("No 1"), std::string("<").append(OneBroadcast()), std::string("No 3")}) {
    eibi_->Answer(kEibi, {ScriptedServer::Document(page)});
    EXPECT_EQ(Run(window), "Retrieving the HFCC web page...\r\nIncorrect HFCC web page format!");
    const bool isKept = !std::filesystem::remove(aside);
    EXPECT_EQ(File("eibi.txt"), isKept ? page : ThreeBroadcasts());
  }
  EXPECT_EQ(File("eibi.bak"), ThreeBroadcasts()) << "the second page must not push it out";
  EXPECT_EQ(CountsOf(window), "3 of 3 broadcasts");
}

TEST_F(Download, AFirstStartAsksOnceAndDownloadsOnYes) {
  ListArchives("a26");
  const auto question = [] { return FakeHost::Find("Database files initialization needed"); };
  for (const WPARAM answer : {VK_ESCAPE, VK_RETURN}) {  // the first button is "Yes"
    for (const char* name : {"eibi.txt", "none.zip"}) Delete(name);
    host_.When([&] { return question() != nullptr; },
               [&] {
                 PostMessageA(question(), WM_KEYDOWN, answer, 1);
                 if (answer == VK_RETURN) host_.When(&IsDone, &Press);
               });
    const HWND window = StartPlugin();
    EXPECT_EQ(CountsOf(window), answer == VK_RETURN ? "1 of 1 broadcast" : "0 of 0 broadcasts");
    for (const int command : {SW_HIDE, SW_SHOW}) ShowWindow(window, command);
    PumpFor(50);
    EXPECT_FALSE(question() || Window());
    host_.Close(7);
  }
  EXPECT_EQ(File("a26.zip"), "content of a26");
}

TEST_F(Download, EndsInEveryPhaseInEveryWay) {
  const std::string part = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nEiBi";
  const struct {
    const char *status, *path;
    std::string bytes = {};
  } kPhases[] = {
      {"Downloading EiBi database...\r\nWaiting for EiBi data...", kEibi},
      {"Downloading EiBi database...\r\nDownloaded EiBi 4/9", kEibi, part},
      {"Retrieving the HFCC web page...\r\nWaiting for HFCC data...", kIndex},
      {"Downloading HFCC 1/2\r\nDownloaded HFCC 4/9", "/data/x.zip", part},
      {"EiBi database file downloaded. 2 HFCC database files downloaded.\r\n", ""},
  };
  for (int run = 0; run < 20; ++run) {
    const auto& [status, path, bytes] = kPhases[run / 4];
    SCOPED_TRACE(status);
    for (const char* name : {"x.zip", "y.zip"}) Delete(name);
    WriteSchedule(ThreeBroadcasts());
    eibi_->Answer(kEibi, {ScriptedServer::Document(OneBroadcast())});
    ListArchives("x y");
    (path == kEibi ? eibi_ : hfcc_)->Answer(path, {bytes, End::kStayOpen});
    const HWND window = StartPlugin();
    host_.When([&] { return Status() == status; },
               [&] {
                 if (run % 4 == 0) Press();
                 if (run % 4 == 1) PostMessageA(Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
                 if (run % 4 >= 2) host_.Close(7);
                 if (run % 4 == 3) host_.Done(), host_.Unload();
               });
    Choose(window, kCheck);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(IsWindow(window) && IsWindowEnabled(window), run % 4 < 2);
    EXPECT_EQ(File("eibi.txt"), path == kEibi ? ThreeBroadcasts() : OneBroadcast());
    EXPECT_EQ(File("x.zip"), path[0] == '\0' ? "content of x" : "");
    host_.Close(7);
    PumpFor(20);                // nothing that was on its way may arrive
    ASSERT_TRUE(host_.Load());  // an unload inside leaves a reference, which the next call gives back
    host_.Done();
    host_.Unload();
    EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
    EXPECT_EQ(GetModuleHandleA("marlux3-loopback.dll"), nullptr);
    ASSERT_TRUE(!host_.WasLate() && host_.Load());
  }
}
