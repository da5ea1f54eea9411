// Marlux 3. What every test program needs of the file system: a folder of its own, and whole files in one call.
#pragma once

#include <string>
#include <string_view>

// A fresh, empty folder under the temp path, removed with all its content at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& Path() const noexcept { return path_; }  // absolute, no backslash at the end
  [[nodiscard]] std::string File(std::string_view name) const { return path_ + "\\" + std::string(name); }

 private:
  std::string path_;
};

// Makes the file or replaces it. False when it could not be written whole.
[[nodiscard]] bool WriteFileBytes(const std::string& path, std::string_view bytes);
// The empty text when the file cannot be read.
[[nodiscard]] std::string ReadFileBytes(const std::string& path);
