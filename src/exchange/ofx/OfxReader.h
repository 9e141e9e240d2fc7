#pragma once

#include "exchange/import/ImportRecord.h"
#include "exchange/ofx/OfxText.h"
#include "exchange/ofx/OfxTrades.h"

#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// Reads the statements of bank and card accounts in an OFX file, and the cash of those of
// investment accounts, whose trades are told and left out. Only what stands inside a transaction
// becomes part of it, and only the statement's own account element names its account. A transaction
// in which the file ends is left out.
class OfxReader {
 public:
  explicit OfxReader(std::string_view text) : elements_(text) {}

  void Run(ImportSink& sink);

 private:
  void Open(const OfxElement& element);
  void Close(const std::string& name, std::size_t offset);
  void TransactionField(const OfxElement& element);
  void StatementField(const OfxElement& element);
  void BeginStatement(const std::string& name);
  [[nodiscard]] bool IsOtherAccount(const std::string& name) const;
  void BeginTransaction(const OfxElement& element);
  void EndTransaction(std::size_t offset);
  void KeepCheque();
  void EndFile();

  OfxText elements_;
  ImportSink* sink_ = nullptr;
  bool goesOn_ = true;

  ImportAccount account_;       // of the statement
  bool accountIsTold_ = false;  // told with its first transaction: an empty one chooses nothing
  bool inTransaction_ = false;
  bool inPayee_ = false;
  bool inInvestment_ = false;  // a statement of one
  bool inList_ = false;        // of a statement's transactions
  OfxTrades trades_;
  std::string other_;  // an element that holds another account than the statement's
  ImportRecord record_;
  bool hasFields_ = false;
  std::string payeeName_;
  std::string cheque_;  // its number
};

}  // namespace corvanta::inline exchange
