#include "ledger/clsCorvanta.h"

namespace corvanta {

clsCorvanta::clsCorvanta(Connection& connection, Platform& platform)
    : connection_(connection), platform_(platform) {}

}  // namespace corvanta
