#include "project/sections.h"
