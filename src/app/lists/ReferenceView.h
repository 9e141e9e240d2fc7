#pragma once

#include "app/lists/ListView.h"
#include "reference/ReferenceDialogs.h"

namespace corvanta::inline app {

// What the views of accounts, categories and payees have in common: rows with an editor and rules
// of the reference data.
class ReferenceView : public ListView {
  Q_OBJECT

 public:
  ReferenceView(const ViewPlace& place, ReferenceKind kind, ListTraits traits, QWidget* parent);

 protected:
  void Add() override { Edit(0); }
  void Edit(std::int64_t key) override;
  void Delete(std::int64_t key) override;
  [[nodiscard]] DialogPlace DialogHere() const;
  // Shows what came of an editor.
  void Apply(const DialogResult& result);

 private:
  ReferenceKind kind_;
};

}  // namespace corvanta::inline app
