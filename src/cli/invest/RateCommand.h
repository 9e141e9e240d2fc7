#pragma once

#include "cli/Command.h"
#include "cli/arguments/NamedItem.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// rate FROM TO fetches an exchange rate; rate list and rate set are about those that are known.
class RateCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus Fetch(clsCorvanta& ledger, Session& session) const;
  ExitStatus List(clsCorvanta& ledger, Session& session) const;
  ExitStatus Set(clsCorvanta& ledger, Session& session) const;
  // A currency of the data file; nullopt, told, when there is none of that code.
  [[nodiscard]] static std::optional<NamedItem> Find(clsCorvanta& ledger, const std::string& code,
                                                     Session& session);

  Parser* list_ = nullptr;
  Parser* set_ = nullptr;
  std::string from_;
  std::string to_;
  std::string rate_;
  std::string date_;
};

}  // namespace corvanta::inline cli
