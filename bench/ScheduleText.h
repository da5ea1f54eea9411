// Marlux 3. The schedule that runs are measured on: an eibi.txt as it is, and its body repeated to other numbers of
// rows.
#pragma once

#include <cstdint>
#include <string>

class ScheduleText {
 public:
  static constexpr uint32_t kHeaderLines = 17;
  static constexpr uint32_t kMaximumLines = 0x40000;  // the reader drops what follows
  static constexpr uint32_t kMaximumRows = kMaximumLines - kHeaderLines;

  explicit ScheduleText(std::string given);

  [[nodiscard]] uint32_t Rows() const noexcept { return rows_; }  // of the given text; 0 when it is no schedule
  [[nodiscard]] const std::string& Given() const noexcept { return given_; }
  // At least as many rows as the reader takes: the last ones are left to its limit.
  [[nodiscard]] const std::string& Largest() const noexcept { return largest_; }
  [[nodiscard]] std::string Cut(uint32_t rows) const;  // header and the first rows of the largest

 private:
  std::string given_;
  std::string largest_;
  size_t body_ = 0;  // where the header ends
  uint32_t rows_ = 0;
};

// A folder of its own with an eibi.txt in it, for as long as the object lives.
class ScheduleFolder {
 public:
  explicit ScheduleFolder(const std::string& text);
  ~ScheduleFolder();
  ScheduleFolder(const ScheduleFolder&) = delete;
  ScheduleFolder& operator=(const ScheduleFolder&) = delete;

  [[nodiscard]] const char* Path() const noexcept { return path_.c_str(); }

 private:
  std::string path_;
};

[[nodiscard]] std::string ReadWholeFile(const std::string& path);  // empty when it cannot be read
// As the folder's eibi.txt; makes the folder. An empty archive beside it keeps a start from asking for databases.
void WriteSchedule(const std::string& folder, const std::string& text);
