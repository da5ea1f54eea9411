#include "host/Options.h"

#include <windows.h>

const char Options::kUsage[] =
    "marlux-host [PLUGIN.DLL] [--dll PLUGIN.DLL] [--script FILE|-] [--log FILE] [--minimized] [/l]\n\n"
    "PLUGIN.DLL\tthe plug-in; without one, marlux3.dll beside this program\n"
    "--script\tcommands from a file or from standard input; the program ends with them\n"
    "--log\ta file that gets the log, which also goes to standard output\n"
    "--minimized\tkeeps the window out of the way\n"
    "/l\tfor the plug-in, which reads the command line too: it traces to the debugger";

namespace {

std::string BesideTheProgram(const char* name) {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string own(path, length);
  return own.substr(0, own.rfind('\\') + 1) + name;
}

}  // namespace

bool Options::Parse(int count, char** arguments, std::string& reason) {
  plugin = BesideTheProgram("marlux3.dll");
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    std::string* value = nullptr;
    if (argument == "--script") value = &script;
    if (argument == "--log") value = &log;
    if (argument == "--dll") value = &plugin;
    if (value && i + 1 < count) {
      *value = arguments[++i];
      pluginGiven = pluginGiven || value == &plugin;
    } else if (value) {
      reason = argument + " needs a value";
      return false;
    } else if (argument == "--minimized") {
      minimized = true;
    } else if (argument.starts_with("--")) {
      reason = "unknown option " + argument;
      return false;
    } else if (argument != "/l") {
      plugin = argument;
      pluginGiven = true;
    }
  }
  return true;
}
