#pragma once

#include "controls/CommandEdge.h"
