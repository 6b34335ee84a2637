#include "project/accessory_lines.h"
