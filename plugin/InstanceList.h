// Marlux 3. The running instances of the plug-in, newest first, and the way of a notification to the right one.
#pragma once

#include "plugin/PluginInstance.h"

class InstanceList {
 public:
  InstanceList() noexcept = default;
  InstanceList(const InstanceList&) = delete;
  InstanceList& operator=(const InstanceList&) = delete;

  void Push(PluginInstance& instance) noexcept;  // at the front; an instance is pushed once
  // An instance that is not in the list leaves it as it is. If it is the newest one, the head takes its place.
  void Remove(PluginInstance& instance) noexcept;
  [[nodiscard]] PluginInstance* Find(uint32_t hostHandle) const noexcept;  // the first match from the head, or null
  // Hands a notification to the instance with that handle; without one it is dropped.
  void Notify(uint32_t hostHandle, uint32_t code, uint32_t a, uint32_t b, uint32_t c);

  // The instance made last, whether it is in the list yet or not. Null when there is none.
  [[nodiscard]] PluginInstance* Newest() const noexcept { return newest_; }
  void SetNewest(PluginInstance* instance) noexcept { newest_ = instance; }

 private:
  PluginInstance* head_ = nullptr;
  PluginInstance* newest_ = nullptr;
};

// The process's one list. Only the user-interface thread uses it.
[[nodiscard]] InstanceList& Instances() noexcept;

[[nodiscard]] inline PluginInstance* NewestInstance() noexcept {
  return Instances().Newest();
}
inline void SetNewestInstance(PluginInstance* instance) noexcept {
  Instances().SetNewest(instance);
}
