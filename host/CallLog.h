// Marlux host. The log: one line an event, to the window, to a file and to standard output.
//
//        128  callback  instance=1 SetFrequency(0x800) a=9420000 b=0 c=0
//
// First the milliseconds since the host began, right-aligned in 8 columns, then the kind in 9, then the event.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

enum class LogKind { kHost, kCall, kCallback, kNotify, kAudio, kScript, kError };

struct LogLine {
  uint32_t milliseconds;
  LogKind kind;
  std::string text;
};

[[nodiscard]] const char* KindName(LogKind kind);

class CallLog {
 public:
  CallLog() : begin_(GetTickCount()) {}
  CallLog(const CallLog&) = delete;
  CallLog& operator=(const CallLog&) = delete;
  ~CallLog() { CloseFile(); }

  // Replaces what the file had. Lines logged before are written first, so that every file is whole.
  [[nodiscard]] bool OpenFile(const std::string& path);
  void Add(LogKind kind, std::string text);
  void Clear();  // in the window only: line numbers and files go on

  [[nodiscard]] const std::vector<LogLine>& Lines() const { return lines_; }
  [[nodiscard]] std::string WholeText() const;
  // The number of the first line at or after number `from` whose text contains `text`; -1 when there is none.
  [[nodiscard]] int64_t Find(const std::string& text, int64_t from) const;
  [[nodiscard]] uint32_t ErrorCount() const { return errors_; }

  std::function<void()> onChange;

 private:
  void CloseFile();

  uint32_t begin_;
  std::vector<LogLine> lines_;
  int64_t cleared_ = 0;  // lines that Clear has taken away
  uint32_t errors_ = 0;
  HANDLE file_ = INVALID_HANDLE_VALUE;
};
