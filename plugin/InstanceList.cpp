#include "plugin/InstanceList.h"

InstanceList& Instances() noexcept {
  static constinit InstanceList list;
  return list;
}

void InstanceList::Push(PluginInstance& instance) noexcept {
  instance.next_ = head_;
  head_ = &instance;
}

void InstanceList::Remove(PluginInstance& instance) noexcept {
  PluginInstance** link = &head_;
  while (*link && *link != &instance) link = &(*link)->next_;
  if (*link) *link = instance.next_;
  instance.next_ = nullptr;
  if (newest_ == &instance) newest_ = head_;
}

PluginInstance* InstanceList::Find(uint32_t hostHandle) const noexcept {
  PluginInstance* instance = head_;
  while (instance && instance->hostHandle_ != hostHandle) instance = instance->next_;
  return instance;
}

void InstanceList::Notify(uint32_t hostHandle, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  // Nothing is touched after the call: the instance may be gone.
  if (PluginInstance* const instance = Find(hostHandle)) instance->Notification(code, a, b, c);
}
