#pragma once

#include "ledger/register/RowFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// --category, --payee, --investment, --keyword and --text: which rows a command keeps to, as the
// filters of the window do.
class FilterArguments {
 public:
  void Declare(Parser& command);
  // The filter; nullopt for a name that is none, which has then been told.
  [[nodiscard]] std::optional<RowFilter> Find(clsCorvanta& ledger, Session& session) const;
  // The keys of the rows that the filter shows; nullopt without one, which shows all. `accountId`
  // keeps it to the rows of an account; 0 for all.
  [[nodiscard]] static std::optional<KeySet> KeysOf(clsCorvanta& ledger, const RowFilter& filter,
                                                    std::int64_t accountId);

 private:
  std::vector<std::string> categories_;
  std::vector<std::string> payees_;
  std::vector<std::string> investments_;
  std::vector<std::string> keywords_;
  std::string text_;
};

}  // namespace corvanta::inline cli
