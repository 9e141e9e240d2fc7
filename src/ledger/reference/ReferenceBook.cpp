#include "ledger/reference/ReferenceBook.h"

#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {

std::vector<CurrencyRecord> ReferenceBook::Currencies() {
  std::vector<CurrencyRecord> currencies;
  Recordset rows =
      core_.store.OpenRecordset("Select * from tblCurrency Order by Description, CurrencyID");
  for (; !rows.Eof(); rows.MoveNext()) {
    currencies.push_back({rows.Int("CurrencyID"), rows.Text("Currency"), rows.Text("Description")});
  }
  return currencies;
}

std::vector<PeriodRecord> ReferenceBook::Periods() {
  std::vector<PeriodRecord> periods;
  Recordset rows = core_.store.OpenRecordset("Select * from tblPeriods Order by PeriodID");
  for (; !rows.Eof(); rows.MoveNext()) {
    periods.push_back({rows.Int("PeriodID"), rows.Text("Period"), rows.Text("Description")});
  }
  return periods;
}

std::optional<TextProblem> ReferenceBook::TooLong(std::string_view table,
                                                  std::initializer_list<NewText> texts) {
  const TableDef* definition = core_.store.Table(table);
  if (definition == nullptr) return std::nullopt;
  for (const NewText& text : texts) {
    const ColumnDef* column = definition->Column(text.column);
    if (column == nullptr || column->kind != ColumnKind::Text) continue;
    if (TextLength(text.text) <= static_cast<std::size_t>(column->size)) continue;
    return TextProblem{column->name, "The text is too long: " + column->name + " holds at most " +
                                         std::to_string(column->size) + " characters."};
  }
  return std::nullopt;
}

void ReferenceBook::MergePayees(std::int64_t sourceId, std::int64_t targetId) {
  const UndoLog::Step step = core_.undo.Begin("Merge Payees");
  core_.Merge("PayeeID", sourceId, targetId);
}

}  // namespace corvanta::inline ledger
