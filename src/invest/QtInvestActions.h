#pragma once

class QComboBox;

namespace corvanta::inline invest {

// Fills the box with the six investment actions in the order of their codes, each with its code as
// its data.
void LoadInvestActions(QComboBox& combo);

}  // namespace corvanta::inline invest
