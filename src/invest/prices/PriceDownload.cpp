#include "invest/prices/PriceDownload.h"

#include "ledger/clsCorvanta.h"
#include "ledger/investments/PriceBook.h"
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
  const PriceOutcome outcome = Download(investmentId);
  note_ = outcome.note;
  if (outcome.refusal) {
    platform_.prompts.Tell(outcome.refusal->title, outcome.refusal->text);
  } else if (!outcome.note.empty()) {
    platform_.prompts.Tell(kTitle, outcome.note);
  }
  return outcome.stored;
}

PriceOutcome PriceDownload::Download(std::int64_t investmentId) {
  PriceOutcome outcome;
  const std::optional<Question> question = Read(investmentId);
  if (!question) return outcome;
  if (question->symbol.empty()) {
    outcome.refusal = Warning{"Save Warning", "You need to enter a Symbol", {}};
    return outcome;
  }
  const std::optional<double> price = Fetch(*question, outcome);
  if (!price) return outcome;
  outcome.stored = StoredPrice{platform_.clock.Today(), *price};
  ledger_.Prices().StorePrice(investmentId, outcome.stored->date, *price);
  return outcome;
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

std::optional<double> PriceDownload::Fetch(const Question& question, PriceOutcome& outcome) {
  std::vector<std::string> fields;
  if (!market_.FetchQuote(question.symbol, fields, question.dataId)) {
    outcome.isServiceDead = market_.Trouble().isServiceDead;
    Refuse(outcome);
    return std::nullopt;
  }
  const std::optional<double> value =
      fields.size() > 1 ? market_.NumberOf(fields[1]) : std::nullopt;
  if (!value) {
    outcome.note = market_.Trouble().text;
    outcome.refusal = Warning{kTitle, "Invalid Symbol " + question.symbol + " entered", {}};
    return std::nullopt;
  }
  const double price = *value * question.conversion;
  if (price == 0 || question.accountCurrency == question.investCurrency) return price;
  const std::optional<double> rate = RateOf(question, outcome);
  if (!rate) return std::nullopt;
  return *rate > 0 ? price * *rate : price;
}

std::optional<double> PriceDownload::RateOf(const Question& question, PriceOutcome& outcome) {
  std::vector<std::string> fields;
  const std::string& from = question.investCurrency;
  const std::string& to = question.accountCurrency;
  if (!market_.FetchRate(from, to, fields)) {
    Refuse(outcome);
    return std::nullopt;
  }
  if (const std::string& trouble = market_.Trouble().text; !trouble.empty()) {
    outcome.note = trouble + " One " + from + " was taken for one " + to + ".";
  }
  return market_.NumberOf(fields.at(1));
}

void PriceDownload::Refuse(PriceOutcome& outcome) const {
  outcome.wasStopped = market_.Trouble().wasStopped;
  if (outcome.wasStopped) return;
  outcome.note = market_.Trouble().text;
  outcome.refusal = Warning{kTitle, kUnreachable, {}};
}

}  // namespace corvanta::inline invest
