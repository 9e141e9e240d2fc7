#include "entry/TransactionEditor.h"
