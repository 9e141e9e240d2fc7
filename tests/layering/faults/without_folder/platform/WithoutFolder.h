#include "Date.h"
