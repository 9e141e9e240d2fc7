#pragma once

#include "app/ViewHost.h"
#include "reports/query/ReportRequest.h"

#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

class QPushButton;

namespace corvanta::inline controls {
class FlowLayout;
}

namespace corvanta::inline app {

class FilterChip;

// The payments that a forecast counts as if they were expected: each stands there as long as it
// counts, can be opened and is taken off with a key. A button adds another one.
class WhatIfBar : public QWidget {
  Q_OBJECT

 public:
  WhatIfBar(const ViewPlace& place, QWidget* parent);

  // Shows those. Sends no signal.
  void Show(const std::vector<WhatIf>& payments);
  [[nodiscard]] const std::vector<WhatIf>& Payments() const { return payments_; }

 Q_SIGNALS:
  void Changed();

 private:
  void AddChip(std::size_t number);
  [[nodiscard]] QString TextOf(const WhatIf& payment) const;
  // Asks for one in the place of that; nullopt: for another one.
  void Ask(std::optional<std::size_t> number);
  void Remove(std::size_t number);

  ViewPlace place_;
  std::vector<WhatIf> payments_;
  FlowLayout* line_;
  QPushButton* cmdWhatIf_;
  std::vector<FilterChip*> chips_;
};

}  // namespace corvanta::inline app
