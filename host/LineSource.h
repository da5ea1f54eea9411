// Marlux host. The lines of a script as they come: from a file, or from standard input without ever waiting for it.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

class LineSource {
 public:
  [[nodiscard]] bool Open(const std::string& path);  // "-" is standard input
  // The next whole line without its end; nothing when none is there yet.
  [[nodiscard]] std::optional<std::string> Next();
  [[nodiscard]] bool AtEnd();

 private:
  // What has been read and not yet handed out, shared with the reader.
  struct Inflow;
  static void Read(HANDLE file, Inflow& inflow);

  std::shared_ptr<Inflow> inflow_;
};
