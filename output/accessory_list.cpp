#include "output/accessory_list.h"
