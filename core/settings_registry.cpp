#include "core/settings_registry.h"
