#include "app/reports/ExplainRows.h"

#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <QCoreApplication>

#include <algorithm>
#include <string>
#include <unordered_map>

namespace corvanta::inline app {
namespace {

constexpr int kRateDecimals = 4;

QString Tr(const char* text) {
  return QCoreApplication::translate("FrmExplain", text);
}

QString SignOf(const ExplainedRow& row) {
  return row.sign < 0 ? QStringLiteral("−") : QStringLiteral("+");
}

class ExplainRows : public ListRows {
 public:
  ExplainRows(const std::vector<ExplainedRow>& rows, const Locale& locale, int decimals)
      : rows_(rows), locale_(locale), decimals_(decimals) {}

  [[nodiscard]] std::size_t Count() const override { return rows_.size(); }
  [[nodiscard]] qint64 Key(std::size_t row) const override { return static_cast<qint64>(row) + 1; }
  [[nodiscard]] std::vector<SortKey> SortKeys(std::size_t column) const override {
    switch (static_cast<ExplainColumn>(column)) {
      case ExplainColumn::Date:
        return Each([](const ExplainedRow& row) {
          return row.date ? SortKey(static_cast<double>(row.date->Serial())) : SortKey();
        });
      case ExplainColumn::Account:
        return Named(&ExplainedRow::account);
      case ExplainColumn::Payee:
        return Named(&ExplainedRow::payee);
      case ExplainColumn::Amount:
        return Each([](const ExplainedRow& row) { return SortKey(row.amount); });
      case ExplainColumn::Currency:
        return Named(&ExplainedRow::currency);
      case ExplainColumn::Rate:
        return Each([](const ExplainedRow& row) { return SortKey(row.rate); });
      case ExplainColumn::Sign:
        return Each([](const ExplainedRow& row) { return SortKey(row.sign); });
      case ExplainColumn::Counts:
        break;
    }
    return Each([](const ExplainedRow& row) { return SortKey(row.contribution); });
  }
  [[nodiscard]] std::vector<ListRow> Make(const std::vector<std::size_t>& rows) const override {
    std::vector<ListRow> made;
    made.reserve(rows.size());
    for (const std::size_t row : rows) made.push_back(MakeRow(row));
    return made;
  }

 private:
  template <typename KeyOf>
  [[nodiscard]] std::vector<SortKey> Each(const KeyOf& keyOf) const {
    std::vector<SortKey> keys;
    keys.reserve(rows_.size());
    for (const ExplainedRow& row : rows_) keys.push_back(keyOf(row));
    return keys;
  }
  // Names are few: each is folded once.
  [[nodiscard]] std::vector<SortKey> Named(std::string ExplainedRow::*name) const {
    std::unordered_map<std::string, SortKey> known;
    return Each([&known, name](const ExplainedRow& row) {
      const auto [key, isNew] = known.try_emplace(row.*name);
      if (isNew) key->second = SortKey(FoldCase(row.*name));
      return key->second;
    });
  }
  [[nodiscard]] ListCell Figure(double number, int decimals) const {
    return {ToQt(locale_.FormatNumber(number, decimals)), number};
  }
  [[nodiscard]] ListRow MakeRow(std::size_t place) const {
    const ExplainedRow& row = rows_[place];
    ListCell day;
    if (row.date) {
      day = {ToQt(locale_.FormatShortDate(*row.date)), static_cast<double>(row.date->Serial())};
    }
    ListRow made;
    made.key = Key(place);
    made.cells = {day,
                  {ToQt(row.account)},
                  {ToQt(row.payee), std::nullopt, false, row.transactionId == 0},
                  Figure(row.amount, decimals_),
                  {ToQt(row.currency)},
                  Figure(row.rate, kRateDecimals),
                  {SignOf(row)},
                  Figure(row.contribution, decimals_)};
    return made;
  }

  const std::vector<ExplainedRow>& rows_;
  const Locale& locale_;
  int decimals_;
};

}  // namespace

std::vector<ListColumn> ExplainColumns(const Locale& locale) {
  const ListWidths widths(locale);
  const int money = widths.Figure(-999999.99);
  const int name = widths.Text(QStringLiteral("A name of some"));
  const QString currency = Tr("Currency");
  const QString rate = Tr("Rate");
  const QString sign = Tr("Sign");
  const QString counts = Tr("Counts As");
  return {{Tr("Date"), widths.Day()},
          {Tr("Account"), name, 2, false, 0, name / 2},
          {Tr("Payee"), name, 3, false, 0, name / 2},
          {Tr("Amount"), money, 0, true},
          {currency, widths.Text(currency), 0, false, 2},
          {rate, std::max(widths.Text(rate), widths.Figure(99.9999, kRateDecimals)), 0, true, 3},
          {sign, widths.Text(sign), 0, false, 1},
          {counts, std::max(money, widths.Text(counts)), 0, true}};
}

std::unique_ptr<ListRows> ExplainRowsOf(const std::vector<ExplainedRow>& rows, const Locale& locale,
                                        int decimals) {
  return std::make_unique<ExplainRows>(rows, locale, decimals);
}

}  // namespace corvanta::inline app
