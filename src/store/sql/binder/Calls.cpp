#include "store/sql/binder/Calls.h"

#include "platform/TextCase.h"

#include <array>
#include <string>

namespace corvanta::jet {
namespace {

// Year, month and the like are written out rather than called, for a call back per row costs more
// than the query.
constexpr std::array kCalls = {
    CallForm{"lcase", 1, ValueType::Text, "jet_lower($1)"},
    CallForm{"ucase", 1, ValueType::Text, "jet_upper($1)"},
    CallForm{"len", 1, ValueType::Integer, "length($T1)"},
    CallForm{"trim", 1, ValueType::Text, "trim($T1)"},
    CallForm{"ltrim", 1, ValueType::Text, "ltrim($T1)"},
    CallForm{"rtrim", 1, ValueType::Text, "rtrim($T1)"},
    CallForm{"mid", 2, ValueType::Text, "substr($T1, $2)"},
    CallForm{"mid", 3, ValueType::Text, "substr($T1, $2, $3)"},
    CallForm{"left", 2, ValueType::Text, "substr($T1, 1, $2)"},
    CallForm{"right", 2, ValueType::Text, "jet_right($T1, $2)"},
    CallForm{"instr", 2, ValueType::Integer, "jet_instr(1, $1, $2)"},
    CallForm{"instr", 3, ValueType::Integer, "jet_instr($1, $2, $3)"},
    CallForm{"replace", 3, ValueType::Text, "replace($T1, $T2, $T3)"},
    CallForm{"cstr", 1, ValueType::Text, "$T1"},
    CallForm{"cint", 1, ValueType::Integer, "jet_round($1, 0)"},
    CallForm{"clng", 1, ValueType::Integer, "jet_round($1, 0)"},
    CallForm{"cdbl", 1, ValueType::Double, "CAST($1 AS REAL)"},
    CallForm{"val", 1, ValueType::Double, "CAST($1 AS REAL)"},
    CallForm{"round", 1, ValueType::Double, "jet_round($1, 0)"},
    CallForm{"round", 2, ValueType::Double, "jet_round($1, $2)"},
    CallForm{"int", 1, ValueType::Double, "jet_floor($1)"},
    CallForm{"fix", 1, ValueType::Integer, "CAST($1 AS INTEGER)"},
    CallForm{"sgn", 1, ValueType::Integer, "jet_sign($1)"},
    CallForm{"year", 1, ValueType::Integer, "CAST(substr($1, 1, 4) AS INTEGER)"},
    CallForm{"month", 1, ValueType::Integer, "CAST(substr($1, 6, 2) AS INTEGER)"},
    CallForm{"day", 1, ValueType::Integer, "CAST(substr($1, 9, 2) AS INTEGER)"},
    CallForm{"hour", 1, ValueType::Integer, "CAST(substr($1, 12, 2) AS INTEGER)"},
    CallForm{"minute", 1, ValueType::Integer, "CAST(substr($1, 15, 2) AS INTEGER)"},
    CallForm{"second", 1, ValueType::Integer, "CAST(substr($1, 18, 2) AS INTEGER)"},
    CallForm{"weekday", 1, ValueType::Integer, "jet_weekday($1)"},
    CallForm{"date", 0, ValueType::Date, "jet_today()"},
    CallForm{"now", 0, ValueType::Date, "jet_now()"},
    CallForm{"dateadd", 3, ValueType::Date, "jet_dateadd($1, $2, $3)"},
    CallForm{"datediff", 3, ValueType::Integer, "jet_datediff($1, $2, $3)"},
    CallForm{"datediff", 4, ValueType::Integer, "jet_datediff($1, $2, $3, $4)"},
    CallForm{"datediff", 5, ValueType::Integer, "jet_datediff($1, $2, $3, $4)"},
    CallForm{"dateserial", 3, ValueType::Date, "jet_dateserial($1, $2, $3)"},
    CallForm{"count", 1, ValueType::Integer, "count($1)"},
    CallForm{"avg", 1, ValueType::Double, "avg($1)"},
    CallForm{"iif", 3, ValueType::Null, "", CallKind::Iif},
    CallForm{"isnull", 1, ValueType::Bool, "", CallKind::IsNull},
    CallForm{"nz", 2, ValueType::Null, "", CallKind::Nz},
    CallForm{"sum", 1, ValueType::Null, "sum", CallKind::SameType},
    CallForm{"min", 1, ValueType::Null, "min", CallKind::SameType},
    CallForm{"max", 1, ValueType::Null, "max", CallKind::SameType},
    CallForm{"abs", 1, ValueType::Null, "abs", CallKind::SameType}};

constexpr CallForm kCountRows{"count", 1, ValueType::Integer, "count(*)", CallKind::CountRows};

}  // namespace

const CallForm* FindCall(std::string_view name, std::size_t arguments, bool& isKnown) {
  const std::string folded = FoldCase(name);
  isKnown = false;
  for (const CallForm& call : kCalls) {
    if (call.name != folded) continue;
    if (call.arguments == arguments) return &call;
    isKnown = true;
  }
  return nullptr;
}

const CallForm& CountRowsCall() {
  return kCountRows;
}

}  // namespace corvanta::jet
