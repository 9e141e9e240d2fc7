#pragma once

#include "app/lists/ListView.h"
#include "ledger/investments/InvestmentRecord.h"

namespace corvanta::inline invest {
struct InvestTransRequest;
}

namespace corvanta::inline app {

// The view of "InvestmentTransShow": what was bought, sold and paid out, in all accounts, the
// newest first. It keeps to the window's filter and to the statuses that are ticked in the View
// menu.
class InvestmentTransView : public ListView {
  Q_OBJECT

 public:
  InvestmentTransView(const ViewPlace& place, QWidget* parent);

  [[nodiscard]] FilterStrip* Strip() const override { return strip_; }
  void Show(const ViewCommand& command) override;
  void LetGo() override { Empty(); }
  // Prices with another number of decimals want another width.
  void ApplySettings() override;
  [[nodiscard]] bool Can(EditTask task) const override;
  void Do(EditTask task) override;
  void MarkCommands(bool isShown) override;

 protected:
  void Add() override;
  void Edit(std::int64_t key) override;
  // All that are chosen.
  void Delete(std::int64_t key) override;

 private:
  void Open(const InvestTransRequest& request);
  void Copy();
  // Each into the account that it is of.
  void Paste();
  // The investment transactions on the clipboard.
  [[nodiscard]] std::vector<std::int64_t> Copied() const;

  FilterStrip* strip_;
};

}  // namespace corvanta::inline app
