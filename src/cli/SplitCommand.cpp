#include "cli/SplitCommand.h"

#include "cli/Arguments.h"
#include "cli/EntryArguments.h"
#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "entry/EntryRules.h"
#include "ledger/clsCorvanta.h"
#include "store/Connection.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace corvanta {
namespace {

constexpr const char* kTitle = "Allocate Item";

AllocationParent ParentOf(const TransactionDetails& row) {
  return {row.transactionId, AllocationSource::Transaction, std::fabs(row.amount),
          row.amount > 0 ? 1 : -1, row.currency};
}

// Why the row cannot be split; nullopt when it can.
std::optional<Warning> CheckParent(const TransactionDetails& row) {
  if (row.allocatedItem != 0) {
    return Warning{
        kTitle, "This is a line of transaction " + std::to_string(row.allocatedItem) + ".", {}};
  }
  if (row.action != 0) return Warning{kTitle, "An investment transaction is not split.", {}};
  if (row.transferId != 0) {
    return Warning{
        "Allocate Item Warning", "Please select a Type (Not Transfer) to allocate an Item", {}};
  }
  return std::nullopt;
}

}  // namespace

CLI::App* SplitCommand::Declare(CLI::App& parser) {
  command_ = parser.add_subcommand(
      "split", "The lines of a split transaction: listed alone, with options changed");
  transaction_.DeclareOne(*command_);
  const auto add = [&](const char* name, std::vector<std::string>& values, const char* meaning) {
    return command_->add_option(name, values, meaning)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->expected(1)
        ->allow_extra_args(false);
  };
  add("--category", categories_, "Begins a line: Category or Category:SubCategory");
  add("--amount", amounts_, "Of the line before it, counted as the transaction's own amount is")
      ->type_name("N")
      ->check(NumberFault);
  add("--description", descriptions_, "Of the line before it");
  add("--reference", references_, "Of the line before it");
  command_->add_option("--delete", deleted_, "Delete the lines of these keys")
      ->type_name("ID,ID")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->delimiter(',');
  command_->add_flag("--replace", replaces_, "Delete all lines that are there");
  command_->final_callback([this] { CollectLines(); });
  return command_;
}

// The options of one line stand behind each other, so their order says what belongs together.
void SplitCommand::CollectLines() {
  struct Part {
    std::vector<std::string>& values;
    std::string Line::*field;
    std::size_t taken = 0;
  };
  std::vector<std::pair<std::string, Part>> parts = {
      {"--category", {categories_, &Line::category}},
      {"--amount", {amounts_, &Line::amount}},
      {"--description", {descriptions_, &Line::description}},
      {"--reference", {references_, &Line::reference}}};
  for (const CLI::Option* option : command_->parse_order()) {
    const auto part = std::ranges::find(parts, option->get_name(), [](auto& p) { return p.first; });
    if (part == parts.end()) continue;
    if (part->first == "--category") {
      lines_.emplace_back();
    } else if (lines_.empty()) {
      throw CLI::ValidationError(part->first, "a line begins with its --category");
    }
    std::string& field = lines_.back().*part->second.field;
    if (!field.empty()) throw CLI::ValidationError(part->first, "given twice for one line");
    field = part->second.values[part->second.taken++];
  }
  for (const Line& line : lines_) {
    if (line.amount.empty()) {
      throw CLI::ValidationError("--amount", "missing for \"" + line.category + "\"");
    }
  }
}

ExitStatus SplitCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Changes() ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transaction_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  if (const auto warning = CheckParent(rows->front())) {
    return session.Refuse(warning->title, warning->text);
  }
  AllocationEditor editor(ledger, session.Machine(), ParentOf(rows->front()));
  if (!Changes()) {
    List(editor, session);
    return ExitStatus::Done;
  }
  if (RefuseClosed(*rows, session)) return ExitStatus::Refused;
  return Change(editor, ledger, session);
}

std::optional<SplitCommand::Plan> SplitCommand::PlanChange(AllocationEditor& editor,
                                                           clsCorvanta& ledger,
                                                           Session& session) const {
  Plan plan;
  const std::vector<AllocationForm> present = editor.Lines();
  for (const std::int64_t key : deleted_) {
    if (std::ranges::find(present, key, &AllocationForm::key) != present.end()) continue;
    session.Tell(kTitle, "The transaction has no line " + std::to_string(key) + ".");
    return std::nullopt;
  }
  for (const AllocationForm& line : present) {
    if (replaces_ || std::ranges::find(deleted_, line.key) != deleted_.end()) {
      plan.leaving.push_back(line.key);
    } else {
      ++plan.staying;
      plan.shares += line.amount.value_or(0);
    }
  }
  for (const Line& line : lines_) {
    const CategoryName name = CategoryOf(ledger, line.category);
    const double amount = editor.Parent().sign * NumberOf(line.amount);
    plan.added.push_back(
        {0, name.category, name.subCategory, amount, line.description, line.reference});
    plan.shares += amount;
    if (const auto warning = editor.Check(plan.added.back())) {
      session.Tell(warning->title, warning->text);
      return std::nullopt;
    }
  }
  return plan;
}

ExitStatus SplitCommand::Change(AllocationEditor& editor, clsCorvanta& ledger,
                                Session& session) const {
  const std::optional<Plan> plan = PlanChange(editor, ledger, session);
  if (!plan) return ExitStatus::Refused;
  // A transaction that is no longer split keeps its amount.
  const bool isSplit = plan->staying + plan->added.size() > 0;
  if (isSplit && !editor.AgreeToSum(plan->shares)) return ExitStatus::Refused;
  for (const AllocationForm& line : plan->added) {
    if (!editor.AgreeToCategory(line)) return ExitStatus::Refused;
  }
  const UndoLog::Step step = ledger.Undo().Begin(kTitle);
  Transaction all = ledger.Store().Begin();
  for (const AllocationForm& line : plan->added) editor.Write(line);
  for (const std::int64_t key : plan->leaving) editor.Delete(key);
  all.Commit();
  session.Tell("Split", std::to_string(plan->added.size()) + " added, " +
                            std::to_string(plan->leaving.size()) + " deleted");
  return ExitStatus::Done;
}

void SplitCommand::List(AllocationEditor& editor, Session& session) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Category"},
                     {"Description"},
                     {"Ref"},
                     {editor.AmountHeading(), OutputKind::Money}});
  for (const AllocationForm& line : editor.Lines()) {
    table.AddRow({line.key, AllocationEditor::CategoryText(line), line.description, line.reference,
                  line.amount.value_or(0)});
  }
  session.Print(table);
}

}  // namespace corvanta
