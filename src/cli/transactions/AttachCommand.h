#pragma once

#include "cli/Command.h"
#include "cli/arguments/TransactionsArgument.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {
struct AttachmentRecord;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline cli {

// attach list, add, open, save and delete: the files that are attached to a transaction. attach
// check and attach unused: those of the whole data file.
class AttachCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  // Chooses one of the transaction's files where it has several.
  void DeclareWhich(Parser& command);
  ExitStatus RunOnFile(clsCorvanta& ledger, Session& session) const;
  ExitStatus RunOnTransaction(clsCorvanta& ledger, Session& session) const;
  ExitStatus List(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Check(clsCorvanta& ledger, Session& session) const;
  ExitStatus Unused(clsCorvanta& ledger, Session& session) const;
  ExitStatus Add(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Open(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Save(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  ExitStatus Delete(clsCorvanta& ledger, std::int64_t transactionId, Session& session) const;
  // Told where there is none, or not one alone.
  [[nodiscard]] std::optional<AttachmentRecord> TheOne(clsCorvanta& ledger,
                                                       std::int64_t transactionId,
                                                       Session& session) const;
  // The same, told where its file is missing, too.
  [[nodiscard]] std::optional<AttachmentRecord> TheFile(clsCorvanta& ledger,
                                                        std::int64_t transactionId,
                                                        Session& session) const;

  Parser* list_ = nullptr;
  Parser* add_ = nullptr;
  Parser* open_ = nullptr;
  Parser* save_ = nullptr;
  Parser* check_ = nullptr;
  Parser* unused_ = nullptr;
  TransactionsArgument transaction_;
  std::string file_;
  std::string keep_;
  std::optional<std::string> which_;
};

}  // namespace corvanta::inline cli
