#pragma once

#include "controls/QtText.h"
