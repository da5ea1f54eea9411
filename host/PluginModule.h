// Marlux host. A loaded plug-in library and its four entry points.
#pragma once

#include <windows.h>

#include <string>

#include "host/Protocol.h"

class PluginModule {
 public:
  PluginModule() = default;
  PluginModule(const PluginModule&) = delete;
  PluginModule& operator=(const PluginModule&) = delete;
  ~PluginModule() { Unload(); }

  // False with the reason when the file is no library or lacks an entry point.
  [[nodiscard]] bool Load(const std::string& path, std::string& reason);
  void Unload();  // the entry points are gone afterwards; Done is the caller's to call
  [[nodiscard]] bool IsLoaded() const { return module_ != nullptr; }
  [[nodiscard]] const std::string& Path() const { return path_; }  // whole; stays after Unload

  // Null while nothing is loaded.
  PluginInit init = nullptr;
  PluginStart start = nullptr;
  PluginNotify notify = nullptr;
  PluginDone done = nullptr;

 private:
  HMODULE module_ = nullptr;
  std::string path_;
};
