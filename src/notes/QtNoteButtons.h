// The two buttons with which the editors of transactions lead to what belongs to the row.
#pragma once

#include <cstdint>

class QPushButton;

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline notes {

// Says on the buttons ("&Keywords...", "&Files...") how many the transaction has, and in their tool
// tips which; for the key 0 what they are for. Throws StoreError.
void ShowNotes(std::int64_t transactionId, QPushButton& keywords, QPushButton& files,
               clsCorvanta& ledger);

}  // namespace corvanta::inline notes
