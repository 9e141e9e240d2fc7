#include "app/investments/HoldingRows.h"

#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "invest/holdings/Holdings.h"
#include "platform/Locale.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace corvanta::inline app {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("HoldingsView", text);
}

ListCell Percent(const std::optional<double>& part, const Locale& locale) {
  if (!part) return {};
  return {Tr("%1 %").arg(ToQt(locale.FormatNumber(*part * 100, 1))), *part};
}

}  // namespace

std::vector<ListColumn> HoldingColumns(const Locale& locale) {
  const ListWidths widths(locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int money = widths.Figure(-99999.99);
  const int price = widths.Figure(9999.99, 4);
  const auto amount = [&](const QString& title, int leaves) {
    return ListColumn{title, std::max(money, text(title)), 0, true, leaves};
  };
  return {{Tr("Account"), text(QStringLiteral("An account")), 2, false, 3},
          {Tr("Investment"), text(QStringLiteral("An investment's name")), 4, false, 0,
           text(QStringLiteral("An investment"))},
          {Tr("Symbol"), text(QStringLiteral("SYMBOL")), 0, false, 2},
          {Tr("Units"), price, 0, true},
          {Tr("Average Cost"), std::max(price, text(Tr("Average Cost"))), 0, true, 8},
          {Tr("Price"), price, 0, true, 10},
          {Tr("Price Date"), widths.Day(), 0, false, 1},
          amount(Tr("Value"), 0),
          {Tr("Share"), text(QStringLiteral("100.0 %")), 0, true, 4},
          amount(Tr("Not Realised"), 9),
          amount(Tr("Realised"), 6),
          amount(Tr("Dividends"), 5),
          {Tr("Money-Weighted"), text(Tr("Money-Weighted")), 0, true, 7},
          {Tr("Time-Weighted"), text(Tr("Time-Weighted")), 0, true, 5}};
}

std::int64_t HoldingKey(const Holding& holding) {
  constexpr int kHalf = 32;
  return (holding.accountId << kHalf) | holding.payeeId;
}

ListRow HoldingRow(const Holding& holding, const Locale& locale, int decimals) {
  const auto money = [&locale](double amount) {
    return ListCell{ToQt(locale.FormatNumber(amount)), amount};
  };
  const auto exact = [&locale, decimals](double amount) {
    return ListCell{ToQt(locale.FormatNumber(amount, decimals)), amount};
  };
  const auto& price = holding.price;
  const auto& weighted = holding.earned.timeWeighted;
  ListCell none{Tr("none"), -1, false, true};
  return {
      HoldingKey(holding),
      {{ToQt(holding.account)},
       {ToQt(holding.investment)},
       {ToQt(holding.symbol)},
       exact(holding.units),
       exact(holding.averageCost),
       price ? exact(price->price) : none,
       price ? ListCell{ToQt(locale.FormatShortDate(price->date)),
                        static_cast<double>(price->date.Serial())}
             : ListCell{},
       money(holding.value),
       Percent(holding.share, locale),
       money(holding.unrealised),
       money(holding.realised),
       money(holding.dividends),
       Percent(holding.earned.moneyWeighted, locale),
       Percent(weighted ? std::optional(weighted->annual.value_or(weighted->whole)) : std::nullopt,
               locale)},
      Tr("%1 in %2, cost %3 %4")
          .arg(ToQt(holding.investment), ToQt(holding.account),
               ToQt(locale.FormatNumber(holding.cost)), ToQt(holding.currency))};
}

QString HoldingFigure(const HoldingTotal& total, const Locale& locale) {
  QString text = Tr("Total (%1): %2, gain %3")
                     .arg(ToQt(total.currency), ToQt(locale.FormatNumber(total.value)),
                          ToQt(locale.FormatNumber(total.unrealised)));
  if (total.earned.moneyWeighted) {
    text +=
        Tr(", %1 % a year").arg(ToQt(locale.FormatNumber(*total.earned.moneyWeighted * 100, 1)));
  }
  return text;
}

}  // namespace corvanta::inline app
