#include "core/settings_file.h"
