#pragma once

#include "store/sql/Connection.h"

#include <string>

namespace corvanta {

// Takes away an access path of a data file, as a file of an old layout may lack it.
void DropAccessPath(const DataSource& source, const Clock& clock, const std::string& name);

}  // namespace corvanta
