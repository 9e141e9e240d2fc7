#pragma once

#include "exchange/import/ImportJob.h"
#include "exchange/import/ImportKind.h"
#include "exchange/import/ImportRecord.h"
#include "exchange/text/DateStyle.h"

#include <functional>
#include <optional>
#include <string_view>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline exchange {

// How the values of a file are read.
struct ImportStyle {
  DateOrder order = DateOrder::YearMonthDay;
  DateTolerance tolerance = DateTolerance::OrderOnly;
  std::optional<DecimalMark> mark;  // nullopt: each number's only one stands before its decimals
  bool emptyIsZero = false;         // an amount that is not there
  bool stopsAtFault = false;        // at the first value that is not understood
};

// Looks at all values of a file before any is read.
class StyleFinder : public ImportSink {
 public:
  // `goesOn` is asked now and then; false stops the reader.
  explicit StyleFinder(std::function<bool()> goesOn = {}) : goesOn_(std::move(goesOn)) {}

  void OnAccount(const ImportAccount&) override {}
  void OnSecurity(const std::string&, const std::string&) override {}
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t, const std::string&) override {}

  [[nodiscard]] ImportStyle Find(ImportKind kind, const ImportJob& job, const Locale& locale) const;
  [[nodiscard]] bool WasStopped() const { return wasStopped_; }

 private:
  std::function<bool()> goesOn_;
  DateOrderFinder dates_;
  DecimalMarkFinder numbers_;
  std::size_t records_ = 0;
  bool wasStopped_ = false;
};

// Reads the text as that kind of file. Names longer than the ledger's are cut, and stand whole in
// the memo beside them.
void ReadImport(ImportKind kind, std::string_view text, const ImportJob& job, const Locale& locale,
                ImportSink& sink);

}  // namespace corvanta::inline exchange
