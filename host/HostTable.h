// The stand-in host's table of services: 28 slots with the C calling
// convention, over the live objects of every project.
#pragma once

#include "plugin/cfgInterface.h"

// The table. A handle is a pointer to a HostObject; a handle that names no
// live object, a null array or a null name gives the slot's failure result.
TCfgSlotFn* CfgHostTable();
