// Marlux 3. Lines of the EiBi schedule with the given fields in their columns.
#pragma once

#include <cstdio>
#include <string>

[[nodiscard]] inline std::string EibiLine(const char* khz, const char* time = "0900-1000", const char* days = "",
                                          const char* station = "Radio Example", const char* language = "E",
                                          const char* remarks = "ka") {
  char line[256];
  std::snprintf(line, sizeof line, "%-14s%-10s%-6s%-4s%-25s%-4s%-12s%s", khz, time, days, "D", station, language, "CEu",
                remarks);
  return line;
}

// What a file has in front of its broadcasts: lines that would be some themselves.
[[nodiscard]] inline std::string EibiHeader(int lines = 17) {
  std::string text;
  for (int i = 0; i < lines; ++i) text += EibiLine("6005") + "\r\n";
  return text;
}
