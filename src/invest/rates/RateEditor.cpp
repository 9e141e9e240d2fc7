#include "invest/rates/RateEditor.h"

#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Save Warning";
// Further off, one of the two amounts has lost its meaning.
constexpr double kLargestRate = 1e9;

}  // namespace

std::vector<RateRecord> RateEditor::Rows() {
  return ledger_.Rates().All();
}

std::optional<Warning> RateEditor::CheckPair(const RateForm& form) {
  if (form.from.empty()) return Warning{kTitle, "You need to select a Currency", "cmbFrom"};
  if (form.to.empty()) return Warning{kTitle, "You need to select a Currency", "cmbTo"};
  if (form.from == form.to) {
    return Warning{kTitle, "A rate is between two different currencies", "cmbTo"};
  }
  return std::nullopt;
}

std::optional<Warning> RateEditor::Check(const RateForm& form) {
  if (const auto warning = CheckPair(form)) return warning;
  const double rate = form.rate.value_or(0);
  if (rate <= 0 || rate > kLargestRate || rate < 1 / kLargestRate) {
    return Warning{kTitle, "Please enter a valid value for Rate", "txtRate"};
  }
  return std::nullopt;
}

std::int64_t RateEditor::Save(const RateForm& form) {
  return ledger_.Rates().Keep(
      {0, form.from, form.to, form.day, form.rate.value_or(0), kEnteredRate});
}

bool RateEditor::Download(const RateForm& form) {
  std::vector<std::string> fields;
  const bool hasAnswered = market_.FetchRate(form.from, form.to, fields);
  if (market_.Trouble().wasStopped) return false;
  // What only stands in for a rate is none to keep.
  if (hasAnswered && market_.Trouble().text.empty()) return true;
  platform_.prompts.Tell("Download Currency",
                         hasAnswered ? market_.Trouble().text : "Could not connect to website");
  return false;
}

bool RateEditor::Delete(Keys rateIds) {
  if (rateIds.empty()) return false;
  if (!platform_.prompts.Ask("Delete Items?", "Do you want to delete all selected items?")) {
    return false;
  }
  ledger_.Rates().Delete(rateIds);
  return true;
}

}  // namespace corvanta::inline invest
