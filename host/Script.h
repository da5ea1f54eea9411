// Marlux host. Commands, one a line, that drive a session.
//
//   start [HANDLE]                          close HANDLE
//   notify HANDLE CODE [A [B [C]]]          retune HZ
//   audio off | tone | noise [RATE CHANNELS 16 | float]      audiolog N   (a line at each Nth block, 50 at first)
//   block normal | null | size N            what Start and HostBlock(0x4005) hand over from now on
//   wait MS                                 waitfor TEXT [MS]           waitwindow CAPTION [MS]
//   choose ITEM                             post CAPTION MESSAGE [W [L]]
//   load PATH      unload      log FILE     echo TEXT      quit      # a comment
//
// Numbers are decimal or 0x hexadecimal; a text with blanks stands in double quotes. `waitfor` finds each line of the
// log once: the next one searches behind it. `choose` takes an item of a plug-in's menu bar, "&" included; `post` and
// `waitwindow` mean windows that take input: none that is disabled by a box. Unload and quit close the instances first.
//
// The window's timer calls Step, so that a script goes on while a plug-in runs a message loop of its own, even inside a
// command that has not returned. A command that fails ends the script and the program with exit code 1.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/LineSource.h"
#include "host/Session.h"

class Script {
 public:
  explicit Script(Session& session) : session_(session) {}

  [[nodiscard]] bool Open(const std::string& path) { return open_ = source_.Open(path); }
  [[nodiscard]] bool IsOpen() const { return open_; }
  void Step();  // runs the commands that are ready

 private:
  using Words = std::vector<std::string>;
  struct Command {
    const char* name;
    size_t fewest, most;  // arguments
    bool (Script::*run)(const Words& arguments);
  };
  static const Command kCommands[];

  [[nodiscard]] bool IsWaiting();
  void Run(const std::string& line);
  void Fail(int lineNumber, const std::string& reason);
  [[nodiscard]] bool Complain(const std::string& reason);

  bool Start(const Words& arguments);
  bool Close(const Words& arguments);
  bool Notify(const Words& arguments);
  bool Retune(const Words& arguments);
  bool Audio(const Words& arguments);
  bool AudioLog(const Words& arguments);
  bool Block(const Words& arguments);
  bool Wait(const Words& arguments);
  bool WaitFor(const Words& arguments);
  bool WaitWindow(const Words& arguments);
  bool WaitForText(const Words& arguments, bool isCaption);
  bool Choose(const Words& arguments);
  bool Post(const Words& arguments);
  bool Load(const Words& arguments);
  bool Unload(const Words& arguments);
  bool Log(const Words& arguments);
  bool Echo(const Words& arguments);
  bool Quit(const Words& arguments);

  Session& session_;
  LineSource source_;
  bool open_ = false;
  int lineNumber_ = 0;  // of the command begun last
  bool waiting_ = false;
  int waitLine_ = 0;
  uint32_t waitBegin_ = 0;
  uint32_t waitMs_ = 0;
  std::string waitText_;         // empty: for the time alone
  bool waitsForWindow_ = false;  // the text is a caption
  int64_t searchFrom_ = 0;       // number of the first log line that the next `waitfor` may find
};
