#include "plugin/DataFolders.h"

#include <windows.h>
// The shell's header needs the one above first.
#include <shlobj.h>

#include <new>
#include <string>
#include <string_view>

#include "foundation/TmyRegistry.h"

namespace {

// A path without its beginning, or none at all, leads to other files, and those that are missed count as not there.
TmyString Whole(std::string_view path) {
  TmyString text(path);
  if (text.Length() != path.size()) throw std::bad_alloc();
  return text;
}

std::string InCodePage(const wchar_t* path) {
  char text[MAX_PATH] = "";
  return WideCharToMultiByte(CP_ACP, 0, path, -1, text, MAX_PATH, nullptr, nullptr) ? text : "";
}

// Letters that the system's code page lacks become others, and the path would lead to a folder that is not there. The
// short name of the same folder has none such, where the drive has short names.
std::string NameOf(const wchar_t* path) {
  wchar_t other[MAX_PATH] = L"";
  const std::string name = InCodePage(path);
  if (MultiByteToWideChar(CP_ACP, 0, name.c_str(), -1, other, MAX_PATH) && wcscmp(path, other) == 0) return name;
  const DWORD length = GetShortPathNameW(path, other, MAX_PATH);
  return length > 0 && length < MAX_PATH ? InCodePage(other) : name;
}

}  // namespace

TmyString DocumentsFolder() {
  // A documents folder that does not exist counts as a failure at first; it is made with the rest of the path.
  for (const int flags : {0, CSIDL_FLAG_DONT_VERIFY}) {
    wchar_t path[MAX_PATH] = L"";
    if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_PERSONAL | flags, nullptr, SHGFP_TYPE_CURRENT, path))) {
      return Whole(NameOf(path));
    }
  }
  return {};
}

namespace {

TmyString Environment(const char* name) {
  std::string value;
  DWORD length = GetEnvironmentVariableA(name, nullptr, 0);
  while (length > value.size()) {  // it may grow between two calls
    value.resize(length);
    length = GetEnvironmentVariableA(name, value.data(), static_cast<DWORD>(value.size()));
  }
  return TmyString(std::string_view(value.data(), length));
}

TmyString Created(const TmyString& above, std::string_view names) {
  TmyString path = Whole(std::string(above.View()).append(names));
  CreateFolders(path);
  return path;
}

}  // namespace

void CreateFolders(const TmyString& path) {
  const std::string whole(path.View());
  const size_t drive = whole.find(":\\");
  const size_t first = drive == std::string::npos ? 1 : drive + 2;
  for (size_t end = whole.find('\\', first); end != std::string::npos; end = whole.find('\\', end + 1)) {
    CreateDirectoryA(whole.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryA(whole.c_str(), nullptr);
}

TmyString DataFolder() {
  return Created(DocumentsFolder(), "\\Corvane\\Marlux3");
}

TmyString RecordingsFolder() {
  return Created(DataFolder(), "\\Recordings");
}

TmyString PluginFolder() {
  TmyString folder = Environment("ZQN_PLUGIN_PATH");
  if (!folder.IsEmpty()) return folder;
  TmyRegistry key;
  if (!key.Open(HKEY_LOCAL_MACHINE, "Software\\ZQN", KEY_READ)) return {};
  return key.ReadString("SearchPath", {});
}

TmyString HelpFile() {
  const TmyString folder = PluginFolder();
  return folder.IsEmpty() ? TmyString() : folder + "\\marlux3.chm";  // not that of a drive's root
}
