#include "exchange/import/ImportSummary.h"

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kMaxKept = 1000;

void AddCount(std::string& text, const std::string& what, std::size_t count) {
  if (count > 0) text += what + ": " + std::to_string(count) + "\n";
}

std::string Headline(const ImportSummary& summary) {
  if (summary.outcome == ImportOutcome::Dropped) return "Nothing was imported.\n";
  if (summary.BroughtNothing()) return "Nothing was imported from this file.\n";
  return {};
}

}  // namespace

void ImportSummary::AddProblem(std::size_t line, std::string text) {
  ++problemCount;
  if (problems.size() < kMaxKept) problems.push_back({line, std::move(text)});
}

bool ImportSummary::BroughtNothing() const {
  return imported + investments == 0 &&
         std::ranges::none_of(accounts, [](const ImportedAccount& each) { return each.isNew; });
}

std::int64_t ImportSummary::AccountToShow(std::int64_t preferred) const {
  const auto isPreferred = [&](const auto& account) { return account.accountId == preferred; };
  if (std::ranges::any_of(accounts, isPreferred)) return preferred;
  const auto most = std::ranges::max_element(accounts, {}, &ImportedAccount::transactions);
  return most == accounts.end() ? 0 : most->accountId;
}

std::string ImportSummary::Text(std::size_t mostProblems) const {
  std::string text = stop.empty() ? std::string() : stop + "\n";
  text += Headline(*this);
  if (outcome != ImportOutcome::Dropped) {
    AddCount(text, "Transactions imported", imported);
    AddCount(text, "Investment transactions imported", investments);
    for (const ImportedAccount& account : accounts) {
      if (account.transactions == 0)
        text += "New account without transactions: " + account.name + "\n";
      AddCount(text, (account.isNew ? "Into the new account " : "Into ") + account.name,
               account.transactions);
    }
    AddCount(text, "Duplicates skipped", duplicates);
    AddCount(text, "Transfers paired", transfers);
    AddCount(text, "Transfers without their other half", loneHalves);
    AddCount(text, "Split lines that name an account", splitTransfers);
    AddCount(text, "Splits that differ from their total; their lines were taken", unequalSplits);
    AddCount(text, "Amounts rounded to the decimals of their currency", rounded);
    AddCount(text, "Texts shortened", shortened);
  }
  AddCount(text, "Not understood or left out", problemCount);
  const std::size_t shown = std::min(mostProblems, problems.size());
  for (std::size_t i = 0; i < shown; ++i) {
    const ImportProblem& problem = problems[i];
    text += problem.line == 0 ? problem.text + "\n"
                              : "Line " + std::to_string(problem.line) + ": " + problem.text + "\n";
  }
  if (problemCount > shown) text += "and " + std::to_string(problemCount - shown) + " more\n";
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace corvanta::inline exchange
