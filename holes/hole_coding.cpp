#include "holes/hole_coding.h"
