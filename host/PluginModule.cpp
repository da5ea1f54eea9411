#include "host/PluginModule.h"

namespace {

std::string WholePath(const std::string& path) {
  char whole[MAX_PATH];
  const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, whole, nullptr);
  return length > 0 && length < MAX_PATH ? whole : path;
}

template <class Function>
bool Take(HMODULE module, const char* name, Function& function, std::string& missing) {
  // Through void*, which every function pointer of this platform survives.
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
  if (!function) missing += std::string(missing.empty() ? "" : ", ") + name;
  return function != nullptr;
}

}  // namespace

bool PluginModule::Load(const std::string& path, std::string& reason) {
  path_ = WholePath(path);
  // Its own folder comes first in the search for what it needs, as a host's plug-in folder does.
  module_ = LoadLibraryExA(path_.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module_) {
    reason = Text("%s did not load, system error %lu", path_.c_str(), GetLastError());
    return false;
  }
  std::string missing;
  Take(module_, "zqnPluginInit", init, missing);
  Take(module_, "zqnPluginStart", start, missing);
  Take(module_, "zqnPluginNotify", notify, missing);
  Take(module_, "zqnPluginDone", done, missing);
  if (missing.empty()) return true;
  reason = path_ + " does not export " + missing;
  Unload();
  return false;
}

void PluginModule::Unload() {
  init = nullptr;
  start = nullptr;
  notify = nullptr;
  done = nullptr;
  if (module_) FreeLibrary(module_);
  module_ = nullptr;
}
