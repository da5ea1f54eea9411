#include "bench/ScheduleText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace {

// The index behind so many lines, or the end of the text.
size_t Behind(const std::string& text, size_t from, uint32_t lines) {
  for (; lines > 0; --lines) {
    const size_t end = text.find('\n', from);
    if (end == std::string::npos) return text.size();
    from = end + 1;
  }
  return from;
}

}  // namespace

ScheduleText::ScheduleText(std::string given) : given_(std::move(given)) {
  body_ = Behind(given_, 0, kHeaderLines);
  rows_ = static_cast<uint32_t>(std::count(given_.begin() + static_cast<ptrdiff_t>(body_), given_.end(), '\n'));
  largest_ = given_;
  if (rows_ == 0) return;
  for (uint32_t have = rows_; have < kMaximumRows; have += rows_) largest_.append(given_, body_);
}

std::string ScheduleText::Cut(uint32_t rows) const {
  return largest_.substr(0, Behind(largest_, body_, rows));
}

ScheduleFolder::ScheduleFolder(const std::string& text)
    : path_((std::filesystem::temp_directory_path() / "marlux-bench").string()) {
  WriteSchedule(path_, text);
}

ScheduleFolder::~ScheduleFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string ReadWholeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteSchedule(const std::string& folder, const std::string& text) {
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "\\eibi.txt", std::ios::binary) << text;
  std::ofstream(folder + "\\none.zip", std::ios::binary);
}
