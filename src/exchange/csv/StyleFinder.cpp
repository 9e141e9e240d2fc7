#include "exchange/csv/StyleFinder.h"

#include "exchange/csv/CsvReader.h"
#include "exchange/ofx/OfxReader.h"
#include "exchange/qif/QifReader.h"

namespace corvanta::inline exchange {
namespace {

// Hands on what a reader finds, with names as long as the ledger's may be.
class NameCutter : public ImportSink {
 public:
  explicit NameCutter(ImportSink& sink) : sink_(sink) {}

  void OnAccount(const ImportAccount& account) override {
    ImportAccount cut = account;
    cut.name = CutName(account.name);
    sink_.OnAccount(cut);
  }
  void OnListedAccount(const ImportAccount& account) override {
    ImportAccount cut = account;
    cut.name = CutName(account.name);
    sink_.OnListedAccount(cut);
  }
  void OnSecurity(const std::string& name, const std::string& symbol) override {
    sink_.OnSecurity(CutName(name), symbol);
  }
  [[nodiscard]] bool OnRecord(ImportRecord& record) override {
    CutNames(record);
    return sink_.OnRecord(record);
  }
  void OnProblem(std::size_t line, const std::string& text) override {
    sink_.OnProblem(line, text);
  }

 private:
  ImportSink& sink_;
};

void ReadFile(ImportKind kind, std::string_view text, const ImportJob& job, const Locale& locale,
              ImportSink& sink) {
  switch (kind) {
    case ImportKind::Qif:
      return QifReader(text).Run(sink);
    case ImportKind::Ofx:
      return OfxReader(text).Run(sink);
    case ImportKind::Csv:
      return CsvReader(text, job.csv, locale).Run(sink);
  }
}

}  // namespace

bool StyleFinder::OnRecord(ImportRecord& record) {
  constexpr std::size_t kAskEvery = 1024;
  dates_.Add(record.date.text);
  for (const ImportValue* value :
       {&record.amount, &record.price, &record.quantity, &record.commission}) {
    numbers_.Add(value->text);
  }
  for (const ImportSplit& split : record.splits) numbers_.Add(split.amount.text);
  if (++records_ % kAskEvery == 0 && goesOn_ && !goesOn_()) wasStopped_ = true;
  return !wasStopped_;
}

ImportStyle StyleFinder::Find(ImportKind kind, const ImportJob& job, const Locale& locale) const {
  ImportStyle style;
  style.mark = job.decimalMark;
  // A statement in OFX groups no digits.
  if (kind == ImportKind::Ofx) return style;
  if (kind == ImportKind::Qif) {
    style.order = job.dateOrder.value_or(dates_.Find(locale));
    style.tolerance = DateTolerance::AnyProven;
    style.emptyIsZero = true;
  } else {
    style.order = job.csv.order;
    style.stopsAtFault = true;
    if (job.csv.decimalMark) style.mark = job.csv.decimalMark;
  }
  if (!style.mark) style.mark = numbers_.Find(locale);
  return style;
}

void ReadImport(ImportKind kind, std::string_view text, const ImportJob& job, const Locale& locale,
                ImportSink& sink) {
  NameCutter cutter(sink);
  ReadFile(kind, text, job, locale, cutter);
}

}  // namespace corvanta::inline exchange
