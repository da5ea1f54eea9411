// Marlux 3. The running instances of the plug-in, newest first, and the way of a notification to the right one.
#pragma once

#include "foundation/Compiler.h"

class InstanceList;

// What the list knows of a main window. It leaves the process's list by itself when it is destroyed, if it has not done
// so before.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the list never destroys, and nobody else does through it
class PluginInstance {
 public:
  PluginInstance() noexcept = default;
  PluginInstance(const PluginInstance&) = delete;
  PluginInstance& operator=(const PluginInstance&) = delete;

  // The host's own number of this instance.
  [[nodiscard]] uint32_t HostHandle() const noexcept { return hostHandle_; }
  void SetHostHandle(uint32_t handle) noexcept { hostHandle_ = handle; }
  [[nodiscard]] PluginInstance* NextInstance() const noexcept { return next_; }

  // One call of the host, see HostNotification. The instance may destroy itself inside.
  virtual void Notification(uint32_t code, uint32_t a, uint32_t b, uint32_t c) = 0;

 protected:
  virtual ~PluginInstance();

 private:
  friend class InstanceList;

  uint32_t hostHandle_ = 0;
  PluginInstance* next_ = nullptr;  // not owned: windows own themselves
};

class InstanceList {
 public:
  InstanceList() noexcept = default;
  InstanceList(const InstanceList&) = delete;
  InstanceList& operator=(const InstanceList&) = delete;

  void Push(PluginInstance& instance) noexcept;  // at the front; an instance is pushed once
  // An instance that is not in the list leaves it as it is. If it is the newest one, the head takes its place.
  void Remove(PluginInstance& instance) noexcept;
  [[nodiscard]] PluginInstance* Find(uint32_t hostHandle) const noexcept;  // the first match from the head, or null
  [[nodiscard]] PluginInstance* Head() const noexcept { return head_; }
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
