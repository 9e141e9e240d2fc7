#include "app/register/RegisterCells.h"

#include "app/register/RegisterModel.h"
#include "controls/QtText.h"
#include "ledger/investments/TradeText.h"
#include "platform/Locale.h"

#include <QStringList>

namespace corvanta::inline app {

// Most columns are known without reading the row, so that a search passes over them quickly.
QString RegisterCells::Text(int row, int column) const {
  const RegisterEntry& entry = model_.Entry(row);
  if (entry.transactionId == 0) return {};
  switch (column) {
    case RegisterModel::kDate:
      return ToQt(locale_.FormatShortDate(entry.date));
    case RegisterModel::kPayee:
      return PayeeText(row, entry);
    case RegisterModel::kCategory:
      return CategoryText(row, entry);
    case RegisterModel::kPayment:
      return ToQt(model_.Names().Payment(entry.paymentId));
    case RegisterModel::kRef:
      return ToQt(model_.Row(row).reference);
    case RegisterModel::kDescription:
      return ToQt(model_.Row(row).description);
    case RegisterModel::kStatus:
      return ToQt(entry.status);
    case RegisterModel::kPaidOut:
      return entry.amount < 0 ? ToQt(locale_.FormatNumber(entry.amount)) : QString();
    case RegisterModel::kPaidIn:
      return entry.amount < 0 ? QString() : ToQt(locale_.FormatNumber(entry.amount));
    case RegisterModel::kBalance:
      return ToQt(locale_.FormatNumber(entry.balance));
    case RegisterModel::kAccount:
      return ToQt(model_.Names().Account(entry.accountId));
    default:
      return {};
  }
}

QString RegisterCells::Addition(int row, int column) const {
  if (column == RegisterModel::kPayee) {
    // Where there is little room, no other column says it.
    const QString trade = ToQt(TradeText(model_.Row(row), locale_));
    QString marks = MarksText(model_.Row(row), model_.IsAhead(row));
    for (const RegisterLine& line : model_.Lines(model_.Key(row))) {
      const QString text = line.description.isEmpty() ? QString() : u' ' + line.description;
      marks += QStringLiteral("; ") + line.category + text + u' ' + model_.AmountText(line.amount);
    }
    return trade.isEmpty() || marks.isEmpty() ? trade + marks
                                              : trade + QStringLiteral(", ") + marks;
  }
  if (column != RegisterModel::kCategory) return {};
  const QString category = CategoryName(model_.Entry(row));
  return category == Text(row, column) ? QString() : category;
}

QString RegisterCells::CategoryName(const RegisterEntry& entry) const {
  const std::string* category = model_.Names().Category(entry.categoryId);
  return category == nullptr ? QString() : ToQt(*category);
}

QString RegisterCells::CategoryText(int row, const RegisterEntry& entry) const {
  const bool isTrade = model_.Names().IsInvestment(entry.payeeId);
  const std::string trade = isTrade ? TradeText(model_.Row(row), locale_) : std::string();
  return trade.empty() ? CategoryName(entry) : ToQt(trade);
}

QString RegisterCells::PayeeText(int row, const RegisterEntry& entry) const {
  if (entry.transferId != 0) return ToQt(model_.Row(row).payee);
  return ToQt(model_.Names().Payee(entry.payeeId));
}

QString RegisterCells::Title(int column) {
  switch (column) {
    case RegisterModel::kDate:
      return RegisterModel::tr("Date");
    case RegisterModel::kPayee:
      return RegisterModel::tr("Payee");
    case RegisterModel::kCategory:
      return RegisterModel::tr("Category");
    case RegisterModel::kPayment:
      return RegisterModel::tr("Payment");
    case RegisterModel::kRef:
      return RegisterModel::tr("Ref");
    case RegisterModel::kDescription:
      return RegisterModel::tr("Description");
    case RegisterModel::kStatus:
      return RegisterModel::tr("Status");
    case RegisterModel::kPaidOut:
      return RegisterModel::tr("Paid Out");
    case RegisterModel::kPaidIn:
      return RegisterModel::tr("Paid In");
    case RegisterModel::kBalance:
      return RegisterModel::tr("Balance");
    case RegisterModel::kAccount:
      return RegisterModel::tr("Account");
    default:
      return {};
  }
}

QString MarksText(const RegisterRow& row, bool isAhead) {
  QStringList marks;
  if (isAhead) marks.append(RegisterModel::tr("still to come"));
  if (row.isSplit) marks.append(RegisterModel::tr("split"));
  if (row.isTransfer) marks.append(RegisterModel::tr("transfer"));
  if (row.scheduleId != 0) marks.append(RegisterModel::tr("from a schedule"));
  if (row.hasAttachment) marks.append(RegisterModel::tr("file attached"));
  if (!row.keywords.empty()) {
    marks.append(RegisterModel::tr("keywords: %1").arg(ToQt(row.keywords)));
  }
  return marks.join(QStringLiteral(", "));
}

}  // namespace corvanta::inline app
