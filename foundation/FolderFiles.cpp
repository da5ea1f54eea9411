#include "foundation/FolderFiles.h"

#include <windows.h>

#include <memory>

namespace {

struct FindCloser {
  void operator()(HANDLE find) const noexcept { FindClose(find); }
};
using FindHandle = std::unique_ptr<void, FindCloser>;

}  // namespace

std::vector<TmyString> FolderFiles(const TmyString& folder) {
  std::vector<TmyString> names;
  WIN32_FIND_DATAA entry = {};
  const HANDLE first = FindFirstFileA((folder + "\\*").Chars(), &entry);
  if (first == INVALID_HANDLE_VALUE) return names;
  const FindHandle find(first);
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(entry.cFileName);
  } while (FindNextFileA(first, &entry));
  return names;
}
