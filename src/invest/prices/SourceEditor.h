#pragma once

#include "invest/prices/MarketData.h"
#include "invest/prices/SourceBook.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline invest {

// What the two types of sources are called.
[[nodiscard]] std::string_view TypeWords(std::string_view type);
// What the kinds of answers are called.
[[nodiscard]] std::string_view KindWords(AnswerKind kind);

// The rules behind the sources of prices and exchange rates. Operations throw StoreError.
class SourceEditor {
 public:
  // Both outlive this object.
  SourceEditor(clsCorvanta& ledger, Platform& platform);

  // By type and name.
  [[nodiscard]] std::vector<SourceRow> Sources() { return sources_.SourcesOf({}); }
  // The source that is asked for exchange rates, the first by name; 0 for none.
  [[nodiscard]] std::int64_t AskedForRates();
  // What a person should know of a source: that it is asked first, wants a key, or came with the
  // program; empty for nothing.
  [[nodiscard]] std::string Remark(const SourceRow& source);

  // nullopt when there is no such source.
  [[nodiscard]] std::optional<SourceRow> Load(std::int64_t dataId);
  // A new one of that type.
  [[nodiscard]] static SourceRow New(std::string_view type);
  // The first rule that is broken.
  [[nodiscard]] std::optional<Warning> Check(const SourceRow& form);
  // Writes what Check accepts; returns its key.
  std::int64_t Save(SourceRow form);
  // Asks first. What an investment has as its source is kept, which is told. True when it is gone.
  bool Delete(std::int64_t dataId);
  // Makes a source of exchange rates the one that is asked; returns its name from then on.
  std::string PutFirst(std::int64_t dataId) { return sources_.PutFirst(dataId); }

  // What is asked with what a person has typed: a symbol, or two currencies by their codes with
  // anything between them ("EUR USD"); nullopt when it is none.
  [[nodiscard]] static std::optional<SourceQuestion> QuestionOf(std::string_view type,
                                                                std::string_view typed);
  // Asks the source as it stands in the form, and stores nothing.
  [[nodiscard]] MarketData::Trial Test(const SourceRow& form, const SourceQuestion& question) {
    return market_.Try(Settled(form), question);
  }
  // What a test has found, in words.
  [[nodiscard]] std::string Result(const MarketData::Trial& trial) const;

 private:
  [[nodiscard]] std::optional<Warning> CheckAnswer(const SourceRow& form) const;
  // Without blanks around its texts, and without what its kind of answer has no use for.
  [[nodiscard]] static SourceRow Settled(SourceRow form);

  clsCorvanta& ledger_;
  Platform& platform_;
  SourceBook sources_;
  MarketData market_;
};

}  // namespace corvanta::inline invest
