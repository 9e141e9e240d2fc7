#pragma once

#include "cli/EditorCommand.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "reference/PaymentEditor.h"

namespace corvanta {

// payment: the ways in which is paid.
class PaymentCommand : public EditorCommand<PaymentEditor, PaymentRecord, &PaymentRecord::paymentId,
                                            &PaymentRecord::payment> {
 public:
  PaymentCommand() : EditorCommand({"payment", "Payment Type", "payment type", "payment types"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  std::vector<PaymentRecord> All(clsCorvanta& ledger) override {
    return ledger.References().Payments();
  }
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
