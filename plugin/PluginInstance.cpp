#include "plugin/PluginInstance.h"

#include "plugin/InstanceList.h"

PluginInstance::~PluginInstance() {
  Instances().Remove(*this);
}
