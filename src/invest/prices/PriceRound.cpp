#include "invest/prices/PriceRound.h"

#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/StatusWords.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline invest {
namespace {

constexpr const char* kNoAnswer = "The service does not answer.";

// "Acme, Bolt and 3 more"
std::string Names(const std::vector<std::string>& names) {
  constexpr std::size_t kMaxShown = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(kMaxShown, names.size()); ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  if (names.size() > kMaxShown)
    text += " and " + std::to_string(names.size() - kMaxShown) + " more";
  return text;
}

}  // namespace

std::vector<PriceRound::Asked> PriceRound::All() const {
  std::vector<Asked> all;
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select P.PayeeID, P.Payee, P.DataID from tblPayees P INNER JOIN tblStockData D ON D.DataID "
      "= P.DataID Where P.Investment = 1 AND D.[URL] <> '' Order by P.Payee, P.PayeeID");
  for (; !rows.Eof(); rows.MoveNext()) {
    all.push_back({rows.Int(0), std::string(rows.Text(1)), rows.Int(2)});
  }
  return all;
}

PriceRound::Result PriceRound::Download(const std::vector<Asked>& investments,
                                        const Stored& stored) {
  Result result;
  dead_.clear();
  const UndoLog::Step step = ledger_.Undo().Begin("Download Prices");
  const StatusWords words(platform_.progress, "Downloading prices... (Esc stops)");
  for (std::size_t i = 0; i < investments.size() && !result.wasStopped; ++i) {
    platform_.progress.SetStep(i, investments.size());
    result.wasStopped = !platform_.progress.Yield();
    if (!result.wasStopped) DownloadOne(investments[i], stored, result);
  }
  return result;
}

void PriceRound::DownloadOne(const Asked& asked, const Stored& stored, Result& result) {
  if (dead_.contains(asked.dataId)) {
    result.remarks.push_back({asked, kNoAnswer});
    return;
  }
  const PriceOutcome outcome = download_.Download(asked.investmentId);
  result.wasStopped = outcome.wasStopped;
  if (outcome.isServiceDead) dead_.insert(asked.dataId);
  if (outcome.stored) {
    ++result.stored;
    if (stored) stored(asked, *outcome.stored);
  }
  std::string why = outcome.refusal ? outcome.refusal->text + "." : std::string();
  if (!outcome.note.empty()) why += (why.empty() ? "" : " ") + outcome.note;
  if (!why.empty()) result.remarks.push_back({asked, why, outcome.stored.has_value()});
}

std::string RemarksText(const std::vector<PriceRound::Remark>& remarks) {
  constexpr std::size_t kMaxLines = 8;
  std::vector<std::pair<std::string, std::vector<std::string>>> groups;
  for (const PriceRound::Remark& remark : remarks) {
    auto group = std::ranges::find(groups, remark.why, [](const auto& each) { return each.first; });
    if (group == groups.end()) group = groups.insert(groups.end(), {remark.why, {}});
    group->second.push_back(remark.asked.investment);
  }
  std::string text;
  for (std::size_t i = 0; i < std::min(kMaxLines, groups.size()); ++i) {
    text += Names(groups[i].second) + ": " + groups[i].first + "\n";
  }
  if (groups.size() > kMaxLines) {
    text += "... and " + std::to_string(groups.size() - kMaxLines) + " other reasons\n";
  }
  return text;
}

}  // namespace corvanta::inline invest
