#pragma once

#include "reference/ReferenceTest.h"
#include "support/DialogTest.h"

namespace corvanta {

// Dialogs of the reference data on a data file of their own.
class FrmReferenceTest : public DialogTest<ReferenceTest> {};

}  // namespace corvanta
