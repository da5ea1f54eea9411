#include "tests/support/TestEnvironment.h"

#include <windows.h>

#include <fstream>
#include <iterator>

namespace {

void RemoveFolder(const std::string& path) {
  WIN32_FIND_DATAA entry;
  const HANDLE search = FindFirstFileA((path + "\\*").c_str(), &entry);
  if (search != INVALID_HANDLE_VALUE) {
    do {
      const std::string name = entry.cFileName;
      if (name == "." || name == "..") continue;
      const std::string full = path + "\\" + name;
      if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        RemoveFolder(full);
      } else {
        SetFileAttributesA(full.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileA(full.c_str());
      }
    } while (FindNextFileA(search, &entry));
    FindClose(search);
  }
  RemoveDirectoryA(path.c_str());
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  static unsigned made = 0;
  char root[MAX_PATH + 1];
  GetTempPathA(sizeof(root), root);
  do {
    path_ = std::string(root) + "marlux3-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made);
  } while (!CreateDirectoryA(path_.c_str(), nullptr) && GetLastError() == ERROR_ALREADY_EXISTS);
}

TemporaryFolder::~TemporaryFolder() {
  RemoveFolder(path_);
}

std::string TemporaryFolder::File(std::string_view name) const {
  return path_ + "\\" + std::string(name);
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
