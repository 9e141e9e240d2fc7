#include "app/search/HitsTable.h"

#include "app/lists/RowsText.h"
#include "app/search/HitsModel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "ledger/search/SearchIndex.h"
#include "platform/Date.h"
#include "platform/Locale.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>

namespace corvanta::inline app {

HitsTable::HitsTable(const Locale& locale, QWidget* parent)
    : ListTable(parent), model_(new HitsModel(locale, this)) {
  setObjectName(QStringLiteral("lvfound"));
  setAccessibleName(tr("Found in all accounts"));
  setAlternatingRowColors(true);
  setModel(model_);
  const auto text = [this](const QString& sample) {
    return fontMetrics().horizontalAdvance(sample) + 2 * kRhythm + kRhythm / 2;
  };
  const int word = text(QStringLiteral("Abcdef..."));
  const int date = text(ToQt(locale.FormatShortDate(*Date::FromYmd(2028, 12, 28)))) + kRhythm;
  const int money = TabularWidth(fontMetrics(), ToQt(locale.FormatNumber(-99999.99))) + 3 * kRhythm;
  std::vector<Column> columns(HitsModel::kColumns);
  columns[HitsModel::kAccount] = {text(QStringLiteral("An account's name")), 3, word};
  columns[HitsModel::kDate] = {date, 0, date - kRhythm / 2};
  columns[HitsModel::kPayee] = {text(QStringLiteral("A name of usual size")), 4, word};
  columns[HitsModel::kCategory] = {text(QStringLiteral("Category:Sub-category")), 3, word, 2};
  columns[HitsModel::kDescription] = {text(QStringLiteral("Description")), 3, word, 1};
  columns[HitsModel::kAmount] = {money, 0, money, 0, true};
  columns[HitsModel::kCurrency] = {text(QStringLiteral("Currency")) + kRhythm, 0, 0, 3};
  SetColumns(std::move(columns));
}

void HitsTable::SetHits(std::shared_ptr<const SearchIndex> index, std::vector<SearchHit> hits) {
  const SearchHit* former = Chosen();
  const std::int64_t key = former == nullptr ? 0 : former->transactionId;
  model_->SetHits(std::move(index), std::move(hits));
  if (model_->rowCount() > 0) selectRow(std::max(0, model_->RowOf(key)));
}

ChosenTotals HitsTable::Totals() const {
  ChosenTotals totals;
  for (const int row : ChosenRowsOf(*this)) {
    totals.Add(model_->Hit(row).amount, FromQt(model_->Currency(row)));
  }
  return totals;
}

const SearchHit* HitsTable::Chosen() const {
  const int row = currentIndex().row();
  return row < 0 || row >= model_->rowCount() ? nullptr : &model_->Hit(row);
}

void HitsTable::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) return ListTable::keyPressEvent(event);
  QGuiApplication::clipboard()->setText(RowsAsText(*this, ChosenRowsOf(*this)));
}

}  // namespace corvanta::inline app
