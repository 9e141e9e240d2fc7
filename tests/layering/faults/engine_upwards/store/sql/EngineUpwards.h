#include "store/datafile/Compact.h"
