#include "entry/EntryLists.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/TextCase.h"
#include "reference/CategoryEditor.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

namespace corvanta::inline entry {

std::vector<Choice> PayeeChoices(clsCorvanta& ledger) {
  std::vector<Choice> choices;
  for (PayeeRecord& row : ledger.References().Payees())
    choices.push_back({row.payeeId, std::move(row.payee)});
  return choices;
}

std::vector<Choice> PaymentChoices(clsCorvanta& ledger) {
  std::vector<Choice> choices;
  for (PaymentRecord& row : ledger.References().Payments()) {
    choices.push_back({row.paymentId, std::move(row.payment)});
  }
  return choices;
}

std::vector<std::string> CategoryNames(clsCorvanta& ledger) {
  std::vector<std::string> names;
  Recordset rows = ledger.Store().OpenRecordset(
      "SELECT * FROM tblCategory WHERE (IsNull(SubCategory) OR SubCategory = '') "
      "Order By Category");
  for (; !rows.Eof(); rows.MoveNext()) names.emplace_back(rows.Text("Category"));
  return names;
}

std::vector<std::string> SubCategoryNames(clsCorvanta& ledger, const std::string& category) {
  std::vector<std::string> names;
  for (CategoryRecord& row : ledger.Categories().Categories()) {
    if (row.subCategory.empty() || !EqualFolded(row.category, Trim(category))) continue;
    names.push_back(std::move(row.subCategory));
  }
  return names;
}

std::vector<Choice> CategoryPairs(clsCorvanta& ledger) {
  std::vector<Choice> choices;
  for (const CategoryRecord& row : ledger.Categories().Categories()) {
    choices.push_back({row.categoryId, FullName(row)});
  }
  return choices;
}

}  // namespace corvanta::inline entry
