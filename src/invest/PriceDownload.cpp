#include "invest/PriceDownload.h"

#include "ledger/PriceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Download Warning";
constexpr const char* kUnreachable = "Could not connect to website";

}  // namespace

PriceDownload::PriceDownload(clsCorvanta& ledger, Platform& platform)
    : ledger_(ledger), platform_(platform), market_(ledger, platform) {}

std::optional<StoredPrice> PriceDownload::DownloadInvestmentPrice(std::int64_t investmentId) {
  note_.clear();
  isServiceDead_ = false;
  const std::optional<Question> question = Read(investmentId);
  if (!question) return std::nullopt;
  if (question->symbol.empty()) {
    platform_.prompts.Tell("Save Warning", "You need to enter a Symbol");
    return std::nullopt;
  }
  const std::optional<double> price = Fetch(*question);
  if (!price) return std::nullopt;
  const Date today = platform_.clock.Today();
  ledger_.Prices().StorePrice(investmentId, today, *price);
  return StoredPrice{today, *price};
}

std::optional<PriceDownload::Question> PriceDownload::Read(std::int64_t investmentId) {
  const Recordset row = ledger_.Store().OpenRecordset(
      "Select P.Symbol, CC.Currency as AccountCode, CI.Currency as InvestCode, P.DataID, "
      "P.[Conversion] from ((tblPayees P LEFT JOIN tblCurrency CC ON CC.CurrencyID = P.CurrencyID) "
      "LEFT JOIN tblCurrency CI ON CI.CurrencyID = P.InvestCurrencyID) "
      "WHERE Investment = 1 AND P.PayeeID = " +
      SqlNumber(investmentId));
  if (row.Eof()) return std::nullopt;
  Question question;
  question.symbol = Trim(row.Text("Symbol"));
  question.accountCurrency = row.Text("AccountCode");
  question.investCurrency = row.Text("InvestCode");
  question.dataId = row.Int("DataID");
  // 0 is what an upgraded file has where nobody entered one.
  const double conversion = row.Double("Conversion");
  question.conversion = conversion > 0 ? conversion : 1;
  return question;
}

std::optional<double> PriceDownload::Fetch(const Question& question) {
  std::vector<std::string> fields;
  if (!market_.FetchQuote(question.symbol, fields, question.dataId)) {
    isServiceDead_ = market_.Trouble().isServiceDead;
    TellUnreachable();
    return std::nullopt;
  }
  const std::optional<double> value =
      fields.size() > 1 ? market_.NumberOf(fields[1]) : std::nullopt;
  if (!value) {
    note_ = market_.Trouble().text;
    Tell("Invalid Symbol " + question.symbol + " entered");
    return std::nullopt;
  }
  const double price = *value * question.conversion;
  if (price == 0 || question.accountCurrency == question.investCurrency) return price;
  const std::optional<double> rate = RateOf(question);
  if (!rate) return std::nullopt;
  return *rate > 0 ? price * *rate : price;
}

std::optional<double> PriceDownload::RateOf(const Question& question) {
  std::vector<std::string> fields;
  const std::string& from = question.investCurrency;
  const std::string& to = question.accountCurrency;
  if (!market_.FetchRate(from, to, fields)) {
    TellUnreachable();
    return std::nullopt;
  }
  const std::optional<double> rate = market_.NumberOf(fields.at(1));
  note_ = market_.Trouble().text;
  if (!note_.empty()) {
    note_ += " One " + from + " was taken for one " + to + ".";
    Tell(note_);
  }
  return rate;
}

void PriceDownload::TellUnreachable() {
  if (market_.Trouble().wasStopped) return;
  note_ = market_.Trouble().text;
  Tell(kUnreachable);
}

void PriceDownload::Tell(const std::string& text) {
  platform_.prompts.Tell(kTitle, text);
}

}  // namespace corvanta::inline invest
