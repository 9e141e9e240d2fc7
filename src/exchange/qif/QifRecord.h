#pragma once

#include "exchange/import/ImportRecord.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// One entry of a QIF file's transactions, put together field by field.
class QifRecord {
 public:
  enum class Kind { Bank, Investment };
  explicit QifRecord(Kind kind) : kind_(kind) {}

  // Takes a field by its letter; `line` is where it stands.
  void Field(char code, std::string_view value, std::size_t line, ImportSink& sink);
  // Whether a field had a value.
  [[nodiscard]] bool HasFields() const { return hasFields_; }
  // Where it begins.
  [[nodiscard]] std::size_t Line() const { return record_.line; }
  // Hands over what has come together and begins anew; `offset` is where the file goes on. False
  // when the sink wants no more.
  bool End(std::size_t offset, ImportSink& sink);

 private:
  // What records of banks and of investments write alike; false for any other field.
  bool SharedField(char code, const ImportValue& here);
  void BankField(char code, const ImportValue& here, ImportSink& sink);
  void InvestmentField(char code, const ImportValue& here);
  void SplitField(char code, const ImportValue& here, ImportSink& sink);
  void DropOpenSplit(ImportSink& sink);

  Kind kind_;
  ImportRecord record_;
  bool hasFields_ = false;
  ImportSplit split_;
  bool splitIsOpen_ = false;  // a category or memo waits for its amount
  std::string otherAmount_;   // stands in where the record has no amount of its own
};

}  // namespace corvanta::inline exchange
