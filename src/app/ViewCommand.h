#pragma once

#include <cstdint>
#include <string_view>

namespace corvanta {

inline constexpr std::string_view kAccountShow = "AccountShow";
inline constexpr std::string_view kTransactionShow = "TransactionShow";

// What the main window shows: the view's command and its parameters. Issuing it again shows the
// view as it was.
struct ViewCommand {
  std::string_view name = kAccountShow;  // one of the commands above
  std::int64_t accountId = 0;            // of the register

  bool operator==(const ViewCommand&) const = default;
};

}  // namespace corvanta
