#pragma once

#include "cli/EditorCommand.h"
#include "reference/PaymentEditor.h"

namespace corvanta {

// payment: the ways in which is paid.
class PaymentCommand : public EditorCommand<PaymentEditor, PaymentRecord, &PaymentRecord::paymentId,
                                            &PaymentRecord::payment, &clsCorvanta::Payments> {
 public:
  PaymentCommand() : EditorCommand({"payment", "Payment Type", "payment type", "payment types"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
