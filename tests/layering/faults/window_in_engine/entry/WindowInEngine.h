#include "entry/FrmAccountTrans.h"
