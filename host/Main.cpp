// Marlux host. Start, the one message loop, end.
#include <windows.h>

#include "host/CallLog.h"
#include "host/HostWindow.h"
#include "host/Options.h"
#include "host/Script.h"
#include "host/Session.h"

namespace {

constexpr int kUsageError = 2;

// To standard error; started from a desktop, which has none, in a box.
int Complain(const std::string& text) {
  const std::string written = "marlux-host: " + text + "\n";
  const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
  DWORD count = 0;
  if (errors && WriteFile(errors, written.data(), static_cast<DWORD>(written.size()), &count, nullptr))
    return kUsageError;
  MessageBoxA(nullptr, text.c_str(), "Marlux Host", MB_ICONERROR | MB_OK);
  return kUsageError;
}

// A quit message is the host's to post, and this host posts none: one that comes is a plug-in's fault.
int RunLoop(HWND window, Session& session) {
  for (;;) {
    MSG message;
    const BOOL got = GetMessageA(&message, nullptr, 0, 0);
    if (got == 0) session.Log().Add(LogKind::kError, "a plug-in posted WM_QUIT into the host's message loop");
    if (got > 0 && !IsDialogMessageA(window, &message)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
    if (session.FinishRequests()) return session.ExitCode();
  }
}

}  // namespace

int main(int count, char** arguments) {
  Options options;
  std::string reason;
  if (!options.Parse(count, arguments, reason)) return Complain(reason + "\n\n" + Options::kUsage);
  const bool scripted = !options.script.empty();

  CallLog log;
  Session session(log);
  Script script(session);
  if (!options.log.empty() && !log.OpenFile(options.log)) return Complain(options.log + " cannot be written");
  if (scripted && !script.Open(options.script)) return Complain(options.script + " cannot be read");
  HostWindow window(session, script);
  if (!window.Create(options.minimized)) return Complain("the window cannot be made");

  const bool mayBeAbsent = scripted && !options.pluginGiven;  // the script may load one
  const bool there = GetFileAttributesA(options.plugin.c_str()) != INVALID_FILE_ATTRIBUTES;
  if (there || !mayBeAbsent) {
    const bool loaded = session.Load(options.plugin);
    if (!loaded && scripted) return Complain(options.plugin + " cannot be loaded");
    if (loaded && !scripted) session.Start();
  }
  const int exitCode = RunLoop(window.Window(), session);
  return exitCode == 0 && scripted && log.ErrorCount() > 0 ? 1 : exitCode;
}
