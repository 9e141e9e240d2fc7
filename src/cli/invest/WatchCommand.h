#pragma once

#include "cli/Command.h"
#include "invest/WatchList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline invest {
class StockLookup;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// watch stocks, watch currencies: the two watch lists: what is on them, adding to them, deleting
// from them, and the latest values of what is on them.
class WatchCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  struct Parsers {
    Parser* list = nullptr;
    Parser* add = nullptr;
    Parser* remove = nullptr;
    Parser* download = nullptr;
  };
  void DeclareList(Parser& command, Parsers& parsers);
  ExitStatus Add(StockLookup& lookup, clsCorvanta& ledger, Session& session) const;
  ExitStatus Delete(StockLookup& lookup, Session& session) const;
  // The source that is asked for, or the first; 0 where there is none, nullopt when it was refused.
  [[nodiscard]] std::optional<std::int64_t> FindSource(StockLookup& lookup, Session& session) const;
  ExitStatus Download(StockLookup& lookup, clsCorvanta& ledger, Session& session) const;

  Parsers stocks_;
  Parsers currencies_;
  Parser* stocksParser_ = nullptr;
  std::string symbol_;
  std::vector<std::string> symbols_;
  std::string source_;
  std::string currency_;
};

}  // namespace corvanta::inline cli
