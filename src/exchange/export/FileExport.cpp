#include "exchange/export/FileExport.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/CurrencyOf.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Clock.h"
#include "platform/CurrencyDecimals.h"
#include "platform/ExportWords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr std::array<std::pair<std::string_view, ExportKind>, 5> kExtensions = {
    {{".csv", ExportKind::Csv},
     {".xls", ExportKind::Xls},
     {".xlsx", ExportKind::Xlsx},
     {".ofx", ExportKind::Ofx},
     {".qif", ExportKind::Qif}}};

std::function<double()> SystemRandom() {
  return [engine = std::mt19937(std::random_device{}())]() mutable {
    return std::uniform_real_distribution<double>(0, 1)(engine);
  };
}

// An end that the view does not have stands for today, as the first or last day there is does.
Date Bound(const std::optional<Date>& day, Date today) {
  const bool isOpen = !day || day->Year() <= 1 || day->Year() >= 9999;
  return isOpen ? today : *day;
}

}  // namespace

std::optional<ExportKind> ExportKindOf(std::string_view path) {
  const std::string name = ToLower(path);
  const auto* const known = std::ranges::find_if(
      kExtensions, [&](const auto& entry) { return name.ends_with(entry.first); });
  return known == kExtensions.end() ? std::nullopt : std::optional(known->second);
}

FileExport::FileExport(clsCorvanta& ledger, Platform& platform)
    : FileExport(ledger, platform, SystemRandom()) {}

FileExport::FileExport(clsCorvanta& ledger, Platform& platform, std::function<double()> random)
    : ledger_(ledger), platform_(platform), random_(std::move(random)) {}

std::optional<Warning> FileExport::Check(std::string_view path) {
  if (ExportKindOf(path)) return std::nullopt;
  return Warning{kFileExportWarning, kNeedsExtension, ""};
}

bool FileExport::Confirm(const std::string& account, const std::string& path) {
  return platform_.prompts.Ask(kFileExport, "Do you wish to export from the account " + account +
                                                " into the file - " + path);
}

std::string FileExport::Content(std::int64_t accountId, ExportRows rows,
                                const std::optional<Period>& period, ExportKind kind) {
  switch (kind) {
    case ExportKind::Qif:
      return QifExport(ledger_, platform_.locale, rows);
    case ExportKind::Ofx:
      return OfxExport(StatementOf(accountId, period), WithPayees(rows), platform_.clock.Now(),
                       random_);
    case ExportKind::Xls:
      return platform_.spreadsheet.Render(TableOf(accountId, rows), SpreadsheetForm::Xls);
    case ExportKind::Xlsx:
      return platform_.spreadsheet.Render(TableOf(accountId, rows), SpreadsheetForm::Xlsx);
    case ExportKind::Csv:
      break;
  }
  return CsvExport(rows);
}

void FileExport::Write(std::int64_t accountId, ExportRows rows, const std::optional<Period>& period,
                       const std::string& path, FormerFile former) {
  const ExportKind kind = ExportKindOf(path).value_or(ExportKind::Csv);
  const std::string content = Content(accountId, rows, period, kind);
  platform_.files.Save(path, content, former);
  platform_.prompts.Tell(kFileExport, kind == ExportKind::Qif ? path + "\r\n" + kFileExportComplete
                                                              : kFileExportComplete);
}

// The view shows the other account of a transfer, a statement the payee.
std::vector<RegisterRow> FileExport::WithPayees(ExportRows rows) {
  std::vector<RegisterRow> result(rows.begin(), rows.end());
  for (RegisterRow& row : result) {
    if (!row.isTransfer) continue;
    if (const auto details = ledger_.Transactions().ReadTransaction(row.transactionId)) {
      row.payee = details->payee;
    }
  }
  return result;
}

OfxStatement FileExport::StatementOf(std::int64_t accountId, const std::optional<Period>& period) {
  const Date today = platform_.clock.Today();
  OfxStatement statement;
  statement.start = Bound(period ? std::optional(period->from) : std::nullopt, today);
  statement.end = Bound(period ? std::optional(period->to) : std::nullopt, today);
  const std::optional<AccountRecord> account = ledger_.Accounts().ReadAccount(accountId);
  if (!account) return statement;
  statement.accountNo = account->accountNo;
  for (const CurrencyRecord& currency : ledger_.References().Currencies()) {
    if (currency.currencyId == account->currencyId) statement.currency = currency.currency;
  }
  for (const BankRecord& bank : ledger_.References().Banks()) {
    if (bank.bankId == account->bankId) statement.sortCode = bank.sortcode;
  }
  return statement;
}

SpreadsheetTable FileExport::TableOf(std::int64_t accountId, ExportRows rows) {
  using enum SpreadsheetKind;
  SpreadsheetTable table;
  table.name = "Transactions";
  table.columns = {{"Date", SpreadsheetKind::Date},
                   {"Payee", Text},
                   {"Category", Text},
                   {"Payment", Text},
                   {"Reference", Text},
                   {"Description", Text},
                   {"Status", Text},
                   {"Paid Out", Money},
                   {"Paid In", Money}};
  const int decimals = CurrencyDecimals(CurrencyOf(ledger_, accountId));
  for (const RegisterRow& row : rows) {
    const bool isOut = row.amount < 0;
    const SpreadsheetCell amount = std::fabs(row.amount);
    table.rows.push_back(
        {{row.date, row.payee, row.category, row.payment, row.reference, row.description,
          row.status, isOut ? amount : SpreadsheetCell(), isOut ? SpreadsheetCell() : amount},
         decimals});
  }
  return table;
}

}  // namespace corvanta::inline exchange
