#include "output/cam_export.h"
