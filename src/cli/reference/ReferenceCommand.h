#pragma once

#include "cli/Command.h"
#include "cli/Session.h"
#include "cli/arguments/NamedItem.h"
#include "cli/output/OutputTable.h"
#include "reference/Deletion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

// NAME [list], NAME add, NAME rename, NAME delete: what the commands of all named things share. A
// command says in its overrides what it is a command of.
class ReferenceCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 protected:
  struct Words {
    std::string command;  // "payment"
    std::string title;    // of messages: "Payment Type"
    std::string kind;     // "payment type"
    std::string plural;   // "payment types"
  };
  explicit ReferenceCommand(Words words) : words_(std::move(words)) {}

  // The options of "add" beside the name.
  virtual void DeclareAdd(Parser& add);
  // Further forms of the command.
  virtual void DeclareMore(Parser& command);

  [[nodiscard]] virtual OutputTable List(clsCorvanta& ledger) = 0;
  // All that can be named.
  [[nodiscard]] virtual std::vector<NamedItem> Items(clsCorvanta& ledger) = 0;
  // The key of what was made; nullopt, told, when a rule refuses it.
  virtual std::optional<std::int64_t> Add(clsCorvanta& ledger, Session& session,
                                          const std::string& name) = 0;
  // Like Add. The key is one of Items().
  virtual std::optional<std::int64_t> Rename(clsCorvanta& ledger, Session& session,
                                             std::int64_t key, const std::string& name) = 0;
  // Asks first.
  virtual Deletion Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) = 0;

  [[nodiscard]] std::optional<NamedItem> Find(clsCorvanta& ledger, Session& session,
                                              const std::string& typed);
  [[nodiscard]] const Words& Texts() const { return words_; }

 private:
  ExitStatus RunList(Session& session);
  ExitStatus RunAdd(clsCorvanta& ledger, Session& session);
  ExitStatus RunRename(clsCorvanta& ledger, Session& session);
  ExitStatus RunDelete(clsCorvanta& ledger, Session& session);

  Words words_;
  Parser* add_ = nullptr;
  Parser* rename_ = nullptr;
  Parser* delete_ = nullptr;
  std::string name_;  // the item, or the name of a new one
  std::string newName_;
};

}  // namespace corvanta::inline cli
