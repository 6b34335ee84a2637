#include "project/project_file.h"
