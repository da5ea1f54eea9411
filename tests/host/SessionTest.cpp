#include "host/Session.h"

#include "host/Script.h"
#include "tests/support/Test.h"

// What scripts that are right do is seen wherever the host runs the plug-in: in the test of kills and in the tours.
TEST(SessionTest, BadScriptsFail) {
  const TemporaryFolder folder;
  for (const char* line :
       {"nonsense", "start x", "start 4294967296", "close 5", "notify 1", "notify 1 0x", "audio loud", "audio tone 5",
        "block size", "wait", "waitfor nothing 30", "waitwindow Nothing 30", "choose Nothing", "post Nothing 16",
        "audiolog 0", "retune -1", "load nothing.dll"}) {
    CallLog log;
    Session session(log);
    Script script(session);
    const std::string path = folder.File("bad.script");
    ASSERT_TRUE(WriteFileBytes(path, line + std::string("\nwait 60\n")) && script.Open(path));
    const DWORD begin = GetTickCount();
    while (!session.IsQuitting() && GetTickCount() - begin < 2000) script.Step();
    EXPECT_EQ(session.ExitCode(), 1) << line;
    EXPECT_GT(log.Find("script line 1: ", 0), -1) << line;
  }
}
