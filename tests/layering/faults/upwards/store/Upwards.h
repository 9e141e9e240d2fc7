#include "ledger/clsCorvanta.h"
