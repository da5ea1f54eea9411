#include "foundation/FolderFiles.h"

#include "foundation/SystemHandle.h"

std::vector<TmyString> FolderFiles(const TmyString& folder) {
  std::vector<TmyString> names;
  WIN32_FIND_DATAA entry = {};
  const FindHandle find(HandleOrNull(FindFirstFileA((folder + "\\*").Chars(), &entry)));
  if (!find) return names;
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(entry.cFileName);
  } while (FindNextFileA(find.get(), &entry));
  return names;
}

TmyString FolderOf(const TmyString& file) {
  char whole[MAX_PATH] = "";
  char* name = nullptr;
  const DWORD length = GetFullPathNameA(file.Chars(), sizeof whole, whole, &name);
  if (length == 0 || length >= sizeof whole || !name) return {};
  name[-1] = 0;
  return whole;
}
