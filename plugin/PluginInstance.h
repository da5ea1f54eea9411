// Marlux 3. What the list of instances knows of a main window. It leaves the process's list by itself when it is
// destroyed, if it has not done so before.
#pragma once

#include "foundation/Compiler.h"

class InstanceList;

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the list never destroys, and nobody else does through it
class PluginInstance {
 public:
  PluginInstance() noexcept = default;
  PluginInstance(const PluginInstance&) = delete;
  PluginInstance& operator=(const PluginInstance&) = delete;

  // The host's own number of this instance.
  [[nodiscard]] uint32_t HostHandle() const noexcept { return hostHandle_; }
  void SetHostHandle(uint32_t handle) noexcept { hostHandle_ = handle; }

  // One call of the host, see HostNotification. The instance may destroy itself inside.
  virtual void Notification(uint32_t code, uint32_t a, uint32_t b, uint32_t c) = 0;

 protected:
  virtual ~PluginInstance();

 private:
  friend class InstanceList;

  uint32_t hostHandle_ = 0;
  PluginInstance* next_ = nullptr;  // not owned: windows own themselves
};
