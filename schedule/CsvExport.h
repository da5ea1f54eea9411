// Marlux 3. Writing a CSV file: every cell in double quotes, commas between them, lines ended with CR LF. The file
// appears whole or not at all: it is written aside and swapped in.
//
//   CsvExport file(path);
//   for (...) file.AddLine(cells);
//   const uint32_t error = file.Finish();
#pragma once

#include <string>

#include "foundation/SystemHandle.h"
#include "foundation/TmyString.h"
#include "foundation/TmyStringList.h"

class CsvExport {
 public:
  explicit CsvExport(const TmyString& path);
  ~CsvExport();  // without Finish nothing is left behind
  CsvExport(const CsvExport&) = delete;
  CsvExport& operator=(const CsvExport&) = delete;

  [[nodiscard]] static TmyString LineOf(const TmyStringList& cells);
  void AddLine(const TmyStringList& cells);  // nothing after an error
  // The system's code of the first error, ERROR_SUCCESS when the file is there now. Called once.
  [[nodiscard]] DWORD Finish();

 private:
  void Open();
  void Flush();

  TmyString path_;
  char aside_[MAX_PATH] = "";  // taking no memory: nobody else could delete the file that has this name
  std::string pending_;        // lines not written yet; a string that keeps its room
  SystemHandle file_;
  DWORD error_ = ERROR_SUCCESS;
};
