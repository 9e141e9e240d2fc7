#include "safety/ArchiveEditor.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "safety/RestoreEditor.h"
#include "safety/WholePath.h"
#include "store/datafile/opening/FileSteps.h"

#include <filesystem>

namespace corvanta::inline safety {
namespace {

constexpr const char* kTitle = "Archive";

std::string Sentence(std::size_t rows, const char* why, const Platform& platform) {
  if (rows == 0) return {};
  const std::string verb = rows == 1 ? " stays: " : " stay: ";
  return RowsText(rows, platform) + verb + why + "\n";
}

}  // namespace

ArchiveForm ArchiveEditor::Load() const {
  ArchiveForm form;
  const int year = platform_.clock.Today().Year() - 1;
  form.before = Date::FromYmd(year, 1, 1);
  const std::filesystem::path path(file_.path);
  const std::string name = path.stem().string() + " until " + std::to_string(year - 1);
  form.path = (path.parent_path() / (name + ".dat")).string();
  for (const AccountRow& row : ledger_.Accounts().Accounts(StatusFilter{}, true)) {
    form.accounts.push_back(row.accountId);
  }
  return form;
}

std::optional<Warning> ArchiveEditor::Check(const ArchiveForm& form) const {
  if (!form.before) return Warning{kTitle, "You need to enter a valid Date", "dtBefore"};
  if (*form.before > platform_.clock.Today()) {
    return Warning{kTitle, "You need to enter a Date that is not in the future", "dtBefore"};
  }
  if (form.accounts.empty()) {
    return Warning{kTitle, "You need to select an Account", "lvAccounts"};
  }
  if (Trim(form.path).empty()) {
    return Warning{kTitle, "You need to enter an Archive file", "txtArchive"};
  }
  if (auto fault = WholePathFault(form.path, "archive file", kTitle, "txtArchive")) return fault;
  if (IdentityOf(form.path).has_value()) {
    return Warning{kTitle,
                   "There is a file " + form.path + " already. Enter another name for the archive.",
                   "txtArchive"};
  }
  return std::nullopt;
}

ArchivePlan ArchiveEditor::Plan(const ArchiveForm& form) const {
  return form.before ? PlanArchive(form, ledger_, platform_) : ArchivePlan();
}

std::string ArchiveEditor::Rest(const ArchivePlan& plan) const {
  return Sentence(plan.unreconciled, "no balanced statement holds them.", platform_) +
         Sentence(plan.transfers, "the other half of the transfer does not go.", platform_) +
         Sentence(plan.scheduled, "a payment before them is not made.", platform_) +
         Sentence(plan.held, "the holding cannot be carried over.", platform_);
}

bool ArchiveEditor::Save(const ArchiveForm& form) {
  const ArchivePlan plan = Plan(form);
  if (plan.keys.empty()) {
    platform_.prompts.Tell(kTitle,
                           "There are no transactions before that day to archive.\n" + Rest(plan));
    return false;
  }
  const std::string rows = RowsText(plan.keys.size(), platform_);
  const std::string question = rows + " before " + platform_.locale.FormatShortDate(*form.before) +
                               (plan.keys.size() == 1 ? " moves into " : " move into ") +
                               form.path + ". Every balance stays as it is.\n" + Rest(plan) +
                               "Do you wish to continue?";
  if (!platform_.prompts.Ask(kTitle, question)) return false;
  writer_.Write(plan, form.path);
  platform_.prompts.Tell(kTitle, rows + (plan.keys.size() == 1 ? " is" : " are") + " archived in " +
                                     form.path + ", which opens like any other data file.");
  return true;
}

}  // namespace corvanta::inline safety
