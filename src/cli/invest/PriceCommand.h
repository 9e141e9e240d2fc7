#pragma once

#include "cli/Command.h"
#include "cli/arguments/InvestmentArgument.h"
#include "exchange/csv/CsvMapping.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline cli {

// price list|set|import: the stored prices of an investment.
class PriceCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus List(clsCorvanta& ledger, std::int64_t investmentId, Session& session) const;
  ExitStatus Set(clsCorvanta& ledger, const NamedItem& investment, Session& session) const;
  // What the columns of the file are, by what was said; nullopt, told, when that makes no sense.
  [[nodiscard]] std::optional<CsvMapping> Mapping(const std::string& text, Session& session) const;
  ExitStatus Import(clsCorvanta& ledger, const NamedItem& investment, Session& session) const;

  Parser* set_ = nullptr;
  Parser* import_ = nullptr;
  InvestmentArgument investment_;
  std::string price_;
  std::string date_;
  std::string file_;
  std::string separator_;
  std::string order_;
  std::string mapping_;
  std::string saveMapping_;
  int dateColumn_ = 0;
  int priceColumn_ = 0;
  int skip_ = -1;
};

}  // namespace corvanta::inline cli
