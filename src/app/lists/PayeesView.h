#pragma once

#include "app/lists/ReferenceView.h"

namespace corvanta::inline app {

// The view of "PayeeShow": who pays and is paid.
class PayeesView : public ReferenceView {
  Q_OBJECT

 public:
  PayeesView(const ViewPlace& place, QWidget* parent);

  void Show(const ViewCommand& command) override;
};

}  // namespace corvanta::inline app
