#include "cli/reports/ShownReport.h"

#include "cli/Session.h"
#include "invest/rates/WebRates.h"
#include "platform/Platform.h"
#include "reports/query/ReportRunner.h"

#include <optional>
#include <utility>

namespace corvanta::inline cli {

ShownReport::ShownReport(DataFile file, Session& session)
    : file_(std::move(file)), ledger_(*file_.connection, session.Machine()) {}

std::unique_ptr<ShownReport> ShownReport::Run(Session& session, const Fill& fill) {
  std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return nullptr;
  std::unique_ptr<ShownReport> shown(new ShownReport(std::move(*file), session));
  if (!fill(shown->request_, shown->ledger_)) return nullptr;
  WebRates rates(shown->ledger_, session.Machine());
  shown->table_ = RunReport(shown->ledger_, shown->request_, rates, session.Machine());
  if (!shown->table_.notice.empty()) session.Tell(shown->table_.name, shown->table_.notice);
  return shown;
}

}  // namespace corvanta::inline cli
