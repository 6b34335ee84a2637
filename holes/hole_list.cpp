#include "holes/hole_list.h"
