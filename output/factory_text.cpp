#include "output/factory_text.h"
