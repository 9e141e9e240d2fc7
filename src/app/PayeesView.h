#pragma once

#include "app/ReferenceView.h"
#include "ledger/ReferenceRecords.h"

namespace corvanta {

// The view of "PayeeShow": who pays and is paid.
class PayeesView : public ReferenceView {
  Q_OBJECT

 public:
  // `addAction` is what a data file without payees offers.
  PayeesView(QAction* addAction, QWidget* parent);

  void ShowPayees(const std::vector<PayeeRecord>& payees);

 private:
  QAction* addAction_;
};

}  // namespace corvanta
