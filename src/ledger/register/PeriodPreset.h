#pragma once

#include "ledger/register/Period.h"
#include "platform/Date.h"

#include <array>
#include <optional>

namespace corvanta::inline ledger {

// The days that are asked for again and again.
enum class PeriodPreset { ThisMonth, LastMonth, ThisYear, LastTwelveMonths, All };
inline constexpr std::array kPeriodPresets = {PeriodPreset::ThisMonth, PeriodPreset::LastMonth,
                                              PeriodPreset::ThisYear,
                                              PeriodPreset::LastTwelveMonths, PeriodPreset::All};

// Months and years are whole ones, with what is still to come in them; the last twelve months end
// today. nullopt for all days.
[[nodiscard]] std::optional<Period> DaysOf(PeriodPreset preset, Date today);

}  // namespace corvanta::inline ledger
