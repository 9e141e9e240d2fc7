// What the import dialog asks of a file that is not as the chosen account is.
#include "exchange/import/AccountNames.h"
#include "exchange/import/ImportEditor.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

// As a person knows the account: its name, its number, or both.
std::string LabelOf(const ImportAccount& account) {
  if (account.name.empty()) return account.number;
  return account.number.empty() ? account.name : account.name + " (" + account.number + ")";
}

std::string ListOf(const std::vector<FileSurvey::Account>& accounts) {
  constexpr std::size_t kMax = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(accounts.size(), kMax); ++i) {
    text += (i == 0 ? "" : ", ") + LabelOf(accounts[i].account);
  }
  const std::size_t rest = accounts.size() - std::min(accounts.size(), kMax);
  return rest == 0 ? text : text + " and " + std::to_string(rest) + " more";
}

AccountQuestion QuestionAbout(const std::vector<FileSurvey::Account>& accounts,
                              const ImportTarget* named, const std::string& chosen) {
  if (accounts.size() > 1) {
    return {"The file belongs to " + std::to_string(accounts.size()) + " accounts: " +
                ListOf(accounts) + ". Import into these, or all of it into " + chosen + "?",
            "Into the accounts of the file", "All of it into " + chosen};
  }
  const std::string label = LabelOf(accounts.front().account);
  if (named != nullptr) {
    const std::string known = EqualFolded(label, named->name) ? "" : ", which is " + named->name;
    return {"The file belongs to " + label + known + ". Import into that account, or into " +
                chosen + "?",
            "Into " + named->name, "Into " + chosen};
  }
  return {"The file belongs to " + label + ": a new account, or is it " + chosen + "?",
          "A new account, " + label, "It is " + chosen};
}

CurrencyQuestion QuestionAbout(const ImportAccount& account, const ImportTarget& target) {
  const std::string in = " is in " + std::string(Trim(account.currency));
  return {(account.IsNamed() ? "What the file says of " + LabelOf(account) : "The file") + in +
              ", and " + target.name + " is in " + target.currency +
              ". Is each amount to be booked as it stands, as so many " + target.currency + "?",
          "Book the amounts as they stand, in " + target.currency};
}

}  // namespace

std::optional<AccountQuestion> ImportEditor::Question(const ImportForm& form) {
  if (accounts_.empty() || form.accountId.value_or(0) == 0) return std::nullopt;
  const AccountNames names(ledger_.Store());
  const ImportTarget* chosen = names.Get(*form.accountId);
  if (chosen == nullptr) return std::nullopt;
  const bool areAllChosen = std::ranges::all_of(
      accounts_, [&](const auto& entry) { return names.Find(entry.account) == chosen; });
  if (areAllChosen) return std::nullopt;
  return QuestionAbout(accounts_, names.Find(accounts_.front().account), chosen->name);
}

std::optional<CurrencyQuestion> ImportEditor::AskCurrency(const ImportForm& form) {
  if (currencies_.empty()) return std::nullopt;
  const AccountNames names(ledger_.Store());
  const ImportTarget* chosen = names.Get(form.accountId.value_or(0));
  const auto targetOf = [&](const ImportAccount& account) {
    const bool goesToChosen = !account.IsNamed() || form.chosenTakesAll.value_or(false);
    return goesToChosen ? chosen : names.Find(account);
  };
  for (const ImportAccount& account : currencies_) {
    // A new account gets the currency of the file.
    const ImportTarget* target = targetOf(account);
    if (target == nullptr || target->currency.empty()) continue;
    if (EqualFolded(target->currency, Trim(account.currency))) continue;
    return QuestionAbout(account, *target);
  }
  return std::nullopt;
}

std::optional<Warning> ImportEditor::CheckCurrency(const ImportForm& form) {
  if (form.takesFigures) return std::nullopt;
  const std::optional<CurrencyQuestion> question = AskCurrency(form);
  return question ? std::optional(Warning{kFileImport, question->text, kCurrencyField})
                  : std::nullopt;
}

}  // namespace corvanta::inline exchange
