#include "host/Session.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <fstream>

#include "host/HostWindow.h"
#include "host/Script.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string BesideTheTest(const std::string& name) {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::string(path).substr(0, std::string(path).rfind('\\') + 1) + name;
}

std::vector<std::string> Texts(const CallLog& log) {
  std::vector<std::string> texts;
  for (const LogLine& line : log.Lines()) texts.push_back(KindName(line.kind) + (" " + line.text));
  return texts;
}

class SessionTest : public testing::Test {
 protected:
  SessionTest() { EXPECT_TRUE(session_.Load(BesideTheTest("test-plugin-dll.dll"))); }

  // Runs a script as the program does; its exit code.
  int RunScript(const std::string& text) {
    const std::string path = BesideTheTest("test-host.script");
    std::ofstream(path) << text;
    Script script(session_);
    EXPECT_TRUE(script.Open(path));
    HostWindow window(session_, script);
    if (!window.Create(true)) return -1;  // no desktop
    MSG message;
    while (!session_.FinishRequests()) {
      if (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    }
    DeleteFileA(path.c_str());
    return session_.ExitCode();
  }

  CallLog log_;
  Session session_{log_};
};

}  // namespace

TEST_F(SessionTest, RoutesCallbacksAndDropsInstancesThatLeave) {
  log_.Clear();
  EXPECT_TRUE(session_.Start(7));
  EXPECT_TRUE(session_.Start());
  EXPECT_FALSE(session_.Start(7));
  EXPECT_FALSE(session_.Start(99));
  log_.Clear();
  EXPECT_TRUE(session_.Notify(7, 0x102, 9420000));
  EXPECT_EQ(session_.State().hz, 9420000);
  EXPECT_EQ(session_.State().setBy, 7u);
  EXPECT_TRUE(session_.Notify(7, 0x101));
  EXPECT_FALSE(session_.Close(7));
  EXPECT_TRUE(session_.Notify(7, 0x102, 1));
  EXPECT_THAT(Texts(log_), ElementsAre("notify instance=7 Code(0x102) a=9420000 b=0 c=0",
                                       "callback instance=7 SetFrequency(0x800) a=9420000 b=0 c=0",
                                       "notify instance=7 Code(0x101) a=0 b=0 c=0",
                                       "callback instance=7 InstanceState(0x1509) a=4294967295 b=0 c=0",
                                       "callback instance=7 InstanceGone(0x4000) a=0 b=6 text=\"Trial\"",
                                       "error there is no instance 7", "notify instance=7 Code(0x102) a=1 b=0 c=0",
                                       "error a callback comes from 0x00001007, which is no instance (any more)",
                                       "callback instance=0x00001007 SetFrequency(0x800) a=1 b=0 c=0"));
  ASSERT_EQ(session_.Instances().size(), 1u);
  EXPECT_EQ(session_.Instances()[0].handle, 1u);
}

TEST_F(SessionTest, AnswersTheFrequencyAlsoAboveThirtyOneBits) {
  session_.Start();
  for (const auto& [hz, answer] : {std::pair(2147483647LL, "-> 2147483647"), {2147483650LL, "-> 2362232013"}}) {
    session_.Retune(hz);
    EXPECT_THAT(log_.Lines().back().text, HasSubstr(answer));
  }
}

TEST_F(SessionTest, ScriptRunsToItsEndAlsoInsideALoopOfThePlugin) {
  const std::string script =
      "# comment\r\n"
      "start\naudio tone 44100 2 float\nwaitfor \"MediaState(0x1101) a=8 b=44100 c=1764\" 3000\naudio off\n"
      "notify 1 0x103\nnotify 1 0x104\nwait 30\nnotify 1 0x103\necho inside\nunload\necho between\n"
      "load \"" +
      BesideTheTest("test-plugin-dll.dll") + "\"\nstart 3";
  EXPECT_EQ(RunScript(script), 0);
  EXPECT_EQ(log_.ErrorCount(), 0u);
  int64_t at = 0;
  for (const char* line : {"inside", "Done", "between", "instance=3 InstanceGone"}) {
    const int64_t found = log_.Find(line, at);
    EXPECT_GT(found, at) << line;
    at = found;
  }
  EXPECT_EQ(log_.Lines().back().text, "unloaded");
}

TEST_F(SessionTest, BadScriptsFail) {
  for (const char* line :
       {"nonsense", "start x", "start 4294967296", "close 5", "notify 1", "notify 1 0x", "audio loud", "audio tone 5",
        "block size", "wait", "waitfor nothing 30", "waitwindow Nothing 30", "choose Nothing", "post Nothing 16",
        "audiolog 0", "retune -1", "load nothing.dll"}) {
    CallLog log;
    Session session(log);
    Script script(session);
    const std::string path = BesideTheTest("bad.script");
    std::ofstream(path) << line << "\nwait 60\n";
    ASSERT_TRUE(script.Open(path));
    const DWORD begin = GetTickCount();
    while (!session.IsQuitting() && GetTickCount() - begin < 2000) script.Step();
    EXPECT_EQ(session.ExitCode(), 1) << line;
    EXPECT_GT(log.Find("script line 1: ", 0), -1) << line;
    DeleteFileA(path.c_str());
  }
}
