#include "cli/transactions/SplitLines.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Allocate Item";
constexpr const char* kTwice = "given twice for one line";

// The next of the values that an option was given.
class Values {
 public:
  explicit Values(const std::vector<std::string>& values) : values_(values) {}
  const std::string& Next() { return values_[taken_++]; }

 private:
  const std::vector<std::string>& values_;
  std::size_t taken_ = 0;
};

}  // namespace

void SplitLines::Declare(Parser& command) {
  const auto add = [&](const char* name, auto& values, const char* meaning) {
    return command.AddOption(name, values, meaning)->Repeated();
  };
  add("--category", categories_, "Begins a new line: Category or Category:SubCategory");
  add("--edit", edited_, "Begins the changes to the line of this key")->TypeName("ID");
  add("--amount", amounts_, "Of the line before it, counted as the whole amount is")
      ->TypeName("N")
      ->Check(NumberFault);
  add("--description", descriptions_, "Of the line before it");
  add("--reference", references_, "Of the line before it");
  command.AddOption("--delete", deleted_, "Delete the lines of these keys")
      ->TypeName("ID,ID")
      ->Several()
      ->Delimiter(',');
  command.AddFlag("--replace", replaces_, "Delete all lines that are there");
  command.Finally([this, &command] { CollectLines(command); });
}

// The options of one line stand behind each other, so their order says what belongs together.
void SplitLines::CollectLines(const Parser& command) {
  struct Part {
    std::optional<std::string> Line::*field;
    Values values;
  };
  std::vector<std::pair<std::string, Part>> parts = {
      {"--category", {&Line::category, Values(categories_)}},
      {"--amount", {&Line::amount, Values(amounts_)}},
      {"--description", {&Line::description, Values(descriptions_)}},
      {"--reference", {&Line::reference, Values(references_)}}};
  std::size_t edits = 0;
  bool isEdit = false;  // of a line that has no category yet
  for (const Argument& argument : command.GivenArguments()) {
    const std::string name = argument.Name();
    if (name == "--edit") {
      lines_.emplace_back().key = edited_[edits++];
      isEdit = true;
      continue;
    }
    const auto part = std::ranges::find(parts, name, [](auto& p) { return p.first; });
    if (part == parts.end()) continue;
    if (name == "--category" && !isEdit) lines_.emplace_back();
    if (name == "--category") isEdit = false;
    if (lines_.empty()) throw UsageError(name, "a line begins with its --category");
    std::optional<std::string>& field = lines_.back().*part->second.field;
    if (field) throw UsageError(name, kTwice);
    field = part->second.values.Next();
  }
  CheckLines();
}

void SplitLines::CheckLines() const {
  for (const Line& line : lines_) {
    if (!line.key && !line.amount) {
      throw UsageError("--amount", "missing for \"" + *line.category + "\"");
    }
    if (line.key && EditOf(*line.key) != &line) {
      throw UsageError("--edit", "line " + std::to_string(*line.key) + " is given twice");
    }
  }
}

ExitStatus SplitLines::Run(AllocationEditor& editor, clsCorvanta& ledger, Session& session) const {
  if (Changes()) return Change(editor, ledger, session);
  List(editor, session);
  return ExitStatus::Done;
}

bool SplitLines::Leaves(std::int64_t key) const {
  return replaces_ || std::ranges::find(deleted_, key) != deleted_.end();
}

const SplitLines::Line* SplitLines::EditOf(std::int64_t key) const {
  const auto line = std::ranges::find(lines_, std::optional(key), &Line::key);
  return line == lines_.end() ? nullptr : &*line;
}

bool SplitLines::CheckKeys(const std::vector<AllocationForm>& present, Session& session) const {
  std::vector<std::int64_t> keys = deleted_;
  keys.insert(keys.end(), edited_.begin(), edited_.end());
  for (const std::int64_t key : keys) {
    if (std::ranges::find(present, key, &AllocationForm::key) == present.end()) {
      session.Tell(kTitle, "There is no line " + std::to_string(key) + " in it.");
      return false;
    }
  }
  for (const std::int64_t key : edited_) {
    if (!Leaves(key)) continue;
    session.Tell(kTitle, "Line " + std::to_string(key) + " is to be edited and to be deleted.");
    return false;
  }
  return true;
}

AllocationForm SplitLines::Changed(AllocationForm line, const Line& given,
                                   const AllocationEditor& editor, clsCorvanta& ledger) {
  if (given.category) {
    const CategoryName name = CategoryOf(ledger, *given.category);
    line.category = name.category;
    line.subCategory = name.subCategory;
  }
  if (given.amount) line.amount = editor.Parent().sign * NumberOf(*given.amount);
  line.description = given.description.value_or(line.description);
  line.reference = given.reference.value_or(line.reference);
  return line;
}

std::optional<SplitLines::Plan> SplitLines::PlanChange(AllocationEditor& editor,
                                                       clsCorvanta& ledger,
                                                       Session& session) const {
  Plan plan;
  const std::vector<AllocationForm> present = editor.Lines();
  if (!CheckKeys(present, session)) return std::nullopt;
  for (const AllocationForm& line : present) {
    if (const Line* edit = EditOf(line.key)) {
      plan.written.push_back(Changed(line, *edit, editor, ledger));
      ++plan.edited;
    } else if (Leaves(line.key)) {
      plan.leaving.push_back(line.key);
    } else {
      ++plan.staying;
      plan.sum += line.amount.value_or(0);
    }
  }
  for (const Line& line : lines_) {
    if (!line.key) plan.written.push_back(Changed({}, line, editor, ledger));
  }
  for (const AllocationForm& line : plan.written) {
    plan.sum += line.amount.value_or(0);
    if (const auto warning = editor.Check(line)) {
      session.Tell(warning->title, warning->text);
      return std::nullopt;
    }
  }
  return plan;
}

ExitStatus SplitLines::Change(AllocationEditor& editor, clsCorvanta& ledger,
                              Session& session) const {
  const std::optional<Plan> plan = PlanChange(editor, ledger, session);
  if (!plan) return ExitStatus::Refused;
  // What is no longer split keeps its amount.
  const bool isSplit = plan->staying + plan->written.size() > 0;
  if (isSplit && !editor.AgreeToSum(plan->sum)) return ExitStatus::Refused;
  for (const AllocationForm& line : plan->written) {
    if (!editor.AgreeToCategory(line)) return ExitStatus::Refused;
  }
  const UndoLog::Step step = ledger.Undo().Begin(kTitle);
  Transaction all = ledger.Store().Begin();
  for (const AllocationForm& line : plan->written) editor.Write(line);
  for (const std::int64_t key : plan->leaving) editor.Delete(key);
  all.Commit();
  std::string changed = std::to_string(plan->written.size() - plan->edited) + " added, ";
  if (plan->edited > 0) changed += std::to_string(plan->edited) + " changed, ";
  session.Tell("Split", changed + std::to_string(plan->leaving.size()) + " deleted");
  return ExitStatus::Done;
}

void SplitLines::List(AllocationEditor& editor, Session& session) {
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

}  // namespace corvanta::inline cli
