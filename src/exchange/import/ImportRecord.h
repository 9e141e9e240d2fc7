// What the readers of all formats find in a file, as it stands there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline exchange {

// A text with the number of its line.
struct ImportValue {
  std::string text;
  std::size_t line = 0;
};

struct ImportCategory {
  std::string category;
  std::string subCategory;
  std::string account;  // of a transfer: the other account, instead of a category
};

// "Food:Dining:Out" is Food and "Dining Out"; "Account:Savings" is a transfer.
[[nodiscard]] ImportCategory ReadImportCategory(std::string_view text);

struct ImportSplit {
  ImportCategory category;
  std::string memo;
  ImportValue amount;
};

// The name of a payee, category, account or investment as long as such a name may be, which is 100
// characters: where it is longer, runs of blanks are one, and what is too long even so ends between
// two characters as a person sees them.
[[nodiscard]] std::string CutName(std::string_view name);

// What makes the sign of an amount beside the one that it carries.
enum class AmountSide {
  AsItStands,
  Expense,  // money out where it is written without a sign
  Debit,    // money out whatever its sign
  Credit    // money in whatever its sign
};

// The amount with the sign that its side gives it.
[[nodiscard]] double OnSide(double amount, AmountSide side);

struct ImportRecord {
  std::size_t line = 0;    // where it begins
  std::size_t offset = 0;  // in the text, of what follows it
  ImportValue date;
  ImportValue amount;
  AmountSide side = AmountSide::AsItStands;
  std::string payee;
  std::string memo;
  std::string reference;
  bool isBankId = false;  // the reference is the bank's own mark of this entry
  ImportCategory category;
  std::vector<ImportSplit> splits;
  std::string fault;  // why the reader could not read it, in words for a person

  // Of an investment's record.
  bool isInvestment = false;
  std::string action;
  std::string security;
  ImportValue price;
  ImportValue quantity;
  ImportValue commission;
};

// The record's payee; "Transfer" where it names none.
[[nodiscard]] std::string PayeeOf(const ImportRecord& record);

// Cuts the names of the record and keeps each that has lost something whole in the memo beside it.
void CutNames(ImportRecord& record);

// An account that the file names; all empty for the one that the person chose.
struct ImportAccount {
  std::string name;
  std::string number;
  std::string group;     // of a new one, as the file format calls it, such as "ccard"
  std::string currency;  // of a new one, its code

  [[nodiscard]] bool IsNamed() const { return !name.empty() || !number.empty(); }
};

// Takes what a reader finds, in the file's order.
class ImportSink {
 public:
  virtual ~ImportSink() = default;

  // The records that follow are this account's.
  virtual void OnAccount(const ImportAccount& account) = 0;
  // An account of a list, which says nothing of the records that follow.
  virtual void OnListedAccount(const ImportAccount&) {}
  virtual void OnSecurity(const std::string& name, const std::string& symbol) = 0;
  // The record may be taken apart. False stops the reader.
  [[nodiscard]] virtual bool OnRecord(ImportRecord& record) = 0;
  // Something that is not understood or left out, in words for a person.
  virtual void OnProblem(std::size_t line, const std::string& text) = 0;
};

}  // namespace corvanta::inline exchange
