#include "tests/support/TestEnvironment.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

TemporaryFolder::TemporaryFolder() {
  static unsigned made = 0;
  char root[MAX_PATH + 1];
  GetTempPathA(sizeof(root), root);
  do {
    path_ = std::string(root) + "marlux3-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made);
  } while (!CreateDirectoryA(path_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

bool WriteFileBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

std::string ReadFileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
