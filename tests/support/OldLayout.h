#pragma once

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta {

// Turns an open sample data file into one of an earlier version: split parents list their lines'
// keys as text, money is CURRENCY, schedules have a BankChk column, a split schedule (1 over
// 3 and 4) with the flag set, no quote source beyond the sixth.
void MakeOldLayout(Connection& connection);

}  // namespace corvanta
