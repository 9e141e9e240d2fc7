#include "store/sql/writer/Writer.h"
