#pragma once

#include "exchange/import/ImportRecord.h"
#include "exchange/qif/QifRecord.h"
#include "exchange/text/Lines.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline exchange {

// Reads the lines of a QIF file: a header begins with "!", any other line with the letter of a
// field, and "^" ends an entry. The account that was named last is the one of the records that
// follow, whether it stands in a block of its own or in a list of accounts. An entry in which the
// file ends is left out: any of its values may be cut.
class QifReader {
 public:
  explicit QifReader(std::string_view text) : lines_(text) {}

  void Run(ImportSink& sink);

 private:
  // What the lines after a header are.
  enum class Section { None, Accounts, Bank, Investment, Securities, OtherList };

  void Header(std::string_view line);
  void TypeHeader(const std::string& header, std::string_view line);
  void Field(char code, std::string_view value);
  void AccountField(char code, std::string_view value);
  void SecurityField(char code, std::string_view value);
  void EndEntry();
  void EndAccount();
  void EndSection();
  void EndFile();

  LineReader lines_;
  ImportSink* sink_ = nullptr;
  Section section_ = Section::None;
  bool goesOn_ = true;

  QifRecord record_{QifRecord::Kind::Bank};
  bool isList_ = false;                // accounts are listed, not chosen
  std::vector<ImportAccount> listed_;  // in this block
  ImportAccount account_;
  bool isRecord_ = false;  // in a list of accounts: what no account has shows a transaction
  std::string securityName_;
  std::string securitySymbol_;

  // The entries without a header that is known, for the person to hear of.
  std::string unknown_;
  std::size_t unknownLine_ = 0;
  std::size_t unknownEntries_ = 0;
};

}  // namespace corvanta::inline exchange
