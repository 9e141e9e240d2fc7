#include "app/reports/ReportRows.h"

#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportTable.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <string_view>

namespace corvanta::inline app {
namespace {

using Content = ReportColumn::Content;

constexpr int kSmallestText = 14 * kRhythm;
constexpr int kWidestText = 60 * kRhythm;
constexpr std::size_t kMeasured = 500;

class ReportRows : public ListRows {
 public:
  ReportRows(const ReportTable& table, const Locale& locale, int decimals)
      : table_(table), locale_(locale), decimals_(decimals), figure_(FigureColumn(table)) {}

  [[nodiscard]] std::size_t Count() const override { return table_.rows.size(); }
  [[nodiscard]] qint64 Key(std::size_t row) const override { return static_cast<qint64>(row) + 1; }
  [[nodiscard]] bool StaysBelow(std::size_t row) const override {
    return table_.rows[row].kind == ReportRowKind::Total;
  }
  [[nodiscard]] std::vector<SortKey> SortKeys(std::size_t column) const override {
    std::vector<SortKey> keys;
    keys.reserve(table_.rows.size());
    for (const ReportRow& row : table_.rows) {
      const ListCell cell = Cell(row, column);
      keys.push_back(cell.number ? SortKey(*cell.number) : SortKey(FoldCase(FromQt(cell.text))));
    }
    return keys;
  }
  [[nodiscard]] std::vector<ListRow> Make(const std::vector<std::size_t>& rows) const override {
    std::vector<ListRow> made;
    made.reserve(rows.size());
    for (const std::size_t row : rows) made.push_back(MakeRow(row));
    return made;
  }

 private:
  [[nodiscard]] ListRow MakeRow(std::size_t place) const {
    const ReportRow& row = table_.rows[place];
    ListRow made;
    made.key = Key(place);
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      made.cells.push_back(Cell(row, column));
      made.cells.back().isStrong = row.kind == ReportRowKind::Total;
    }
    if (row.kind == ReportRowKind::Group) made.icon = "plus";
    if (row.kind != ReportRowKind::Total) {
      made.amount = AmountOf(row);
      made.currency = row.currency;
    }
    return made;
  }

  // What the row adds to the chosen ones: a running balance is not what a transaction comes to.
  [[nodiscard]] std::optional<double> AmountOf(const ReportRow& row) const {
    // What is held on different days is no sum.
    if (table_.report == kNetWorth || table_.report == kBalanceForecast) return std::nullopt;
    const auto income = table_.Column("Income");
    const auto expense = table_.Column("Expense");
    if (row.transactionId != 0 && income && expense) {
      return Cell(row, *income).number.value_or(0) + Cell(row, *expense).number.value_or(0);
    }
    return figure_ ? Cell(row, *figure_).number : std::nullopt;
  }

  [[nodiscard]] ListCell Cell(const ReportRow& row, std::size_t column) const {
    if (column >= row.cells.size() || row.cells[column].IsNull()) return {};
    const Value& value = row.cells[column];
    const Content content = table_.columns[column].content;
    if (value.IsText()) {
      const auto day = content == Content::Date ? value.AsDate() : std::nullopt;
      if (!day) return {ToQt(value.Text())};
      return {ToQt(locale_.FormatShortDate(*day)), static_cast<double>(day->Serial())};
    }
    const double number = value.Double();
    if (content == Content::Count) return {ToQt(locale_.FormatNumber(number, 0)), number};
    if (content == Content::Quantity) {
      return {ToQt(locale_.FormatNumber(number, decimals_)), number};
    }
    return {ToQt(locale_.FormatNumber(number)), number};
  }

  const ReportTable& table_;
  const Locale& locale_;
  int decimals_;
  std::optional<std::size_t> figure_;
};

// Where there is no room, which columns are missed least; the rows say without them what they are.
struct Leaver {
  std::string_view header;
  int place;
};
constexpr int kEmptyLeaves = 1;
constexpr std::array kLeavers = {Leaver{"Ref", 2},          Leaver{"Status", 3},
                                 Leaver{"Description", 4},  Leaver{"Records", 5},
                                 Leaver{"Symbol", 6},       Leaver{"Commission", 7},
                                 Leaver{"Carried Over", 8}, Leaver{"Category", 10}};
constexpr int kOneCurrencyLeaves = 9;

int LeavesOf(const ReportColumn& column, bool isFirst) {
  if (isFirst) return 0;
  const auto found = std::ranges::find(kLeavers, column.header, &Leaver::header);
  return found == kLeavers.end() ? 0 : found->place;
}

// Whether no row has a text there.
bool IsEmpty(const ReportTable& table, std::size_t column) {
  return std::ranges::none_of(table.rows, [column](const ReportRow& row) {
    return column < row.cells.size() && row.cells[column].IsText() &&
           !row.cells[column].Text().empty();
  });
}

bool HasOneCurrency(const ReportTable& table) {
  return std::ranges::all_of(table.rows, [&table](const ReportRow& row) {
    return row.currency == table.rows.front().currency;
  });
}

int SampleWidth(const ReportColumn& column, const ListWidths& widths) {
  switch (column.content) {
    case Content::Date:
      return widths.Day();
    case Content::Count:
      return widths.Figure(99999, 0);
    case Content::Quantity:
      return widths.Figure(9999.99, 4);
    case Content::Money:
      return widths.Figure(-99999.99);
    case Content::Text:
      break;
  }
  return widths.Text(QStringLiteral("GBPGBP"));
}

// Totals are written stronger.
QFontMetrics MetricsOf(const ReportRow& row) {
  return QFontMetrics(
      ScaledFont(0, row.kind == ReportRowKind::Total ? QFont::DemiBold : QFont::Normal));
}

// What the longest of the figures takes, which is the smallest or the largest of them.
int WidestFigure(const ReportTable& table, std::size_t column, const Locale& locale, int decimals) {
  double least = 0;
  double most = 0;
  for (const ReportRow& row : table.rows) {
    if (column >= row.cells.size() || row.cells[column].IsNull()) continue;
    if (row.cells[column].IsText()) continue;
    least = std::min(least, row.cells[column].Double());
    most = std::max(most, row.cells[column].Double());
  }
  const Content content = table.columns[column].content;
  const int shown = content == Content::Count ? 0 : content == Content::Quantity ? decimals : -1;
  const QFontMetrics metrics(ScaledFont(0, QFont::DemiBold));
  const auto width = [&](double figure) {
    return TabularWidth(metrics, ToQt(locale.FormatNumber(figure, shown)));
  };
  return std::max(width(least), width(most)) + 3 * kRhythm;
}

int WidestText(const ReportTable& table, std::size_t column) {
  const std::size_t step = table.rows.size() / kMeasured + 1;
  int widest = 0;
  const auto measure = [&](const ReportRow& row) {
    if (column >= row.cells.size() || !row.cells[column].IsText()) return;
    widest = std::max(widest, MetricsOf(row).horizontalAdvance(ToQt(row.cells[column].Text())));
  };
  for (std::size_t row = 0; row < table.rows.size(); row += step) measure(table.rows[row]);
  measure(table.rows.back());
  return widest + 3 * kRhythm;
}

}  // namespace

std::vector<ListColumn> ColumnsOf(const std::vector<ReportColumn>& columns, const Locale& locale) {
  const ListWidths widths(locale);
  std::vector<ListColumn> made;
  for (const ReportColumn& column : columns) {
    const QString title = ToQt(column.header);
    const int own = std::max(SampleWidth(column, widths), widths.Text(title));
    ListColumn shown{title, own, 0, column.HoldsNumbers(), LeavesOf(column, made.empty())};
    const bool isName = column.content == Content::Text && column.header != "Currency" &&
                        column.header != "Status" && column.header != "Symbol";
    if (isName) {
      // Its totals say of which currency they are.
      const int total = QFontMetrics(ScaledFont(0, QFont::DemiBold))
                            .horizontalAdvance(QStringLiteral("Total (GBP)")) +
                        4 * kRhythm;
      // The first one says what the row is.
      shown.stretch = made.empty() ? 3 : 2;
      shown.width = std::max(own, widths.Text(QStringLiteral("A name of some length")));
      shown.smallest = std::max(made.empty() ? total : kSmallestText, widths.Text(title));
      if (column.header == "Ref") shown.width = shown.smallest;
    }
    made.push_back(shown);
  }
  return made;
}

std::vector<ListColumn> FittedColumns(const ReportTable& table, const Locale& locale,
                                      int decimals) {
  std::vector<ListColumn> columns = ColumnsOf(table.columns, locale);
  if (table.rows.empty()) return columns;
  const ListWidths widths(locale);
  for (std::size_t place = 0; place < columns.size(); ++place) {
    ListColumn& column = columns[place];
    const int title = widths.Text(column.title);
    const Content content = table.columns[place].content;
    if (column.isNumber) {
      const int figure = WidestFigure(table, place, locale, decimals);
      column.width = std::max(title, figure);
      // What a title has at its sides can be spared, of a figure nothing.
      column.smallest = std::max(title - kRhythm, figure);
    } else if (content == Content::Text) {
      const int sign = place == 0 ? 2 * kRhythm : 0;
      column.width =
          std::clamp(WidestText(table, place) + sign, title, std::max(title, kWidestText));
      column.smallest = std::min(column.smallest, column.width);
      if (place > 0 && IsEmpty(table, place)) column.leaves = kEmptyLeaves;
      if (table.columns[place].header == "Currency" && HasOneCurrency(table)) {
        column.leaves = kOneCurrencyLeaves;
      }
    }
  }
  return columns;
}

std::unique_ptr<ListRows> RowsOf(const ReportTable& table, const Locale& locale, int decimals) {
  return std::make_unique<ReportRows>(table, locale, decimals);
}

std::optional<std::size_t> FigureColumn(const ReportTable& table) {
  std::optional<std::size_t> last;
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    if (table.columns[column].content == Content::Money) last = column;
  }
  return last;
}

}  // namespace corvanta::inline app
