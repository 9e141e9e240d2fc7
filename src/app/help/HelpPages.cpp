#include "app/help/HelpPages.h"

#include "controls/QtText.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr auto kPages = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"FrmMain", "contents.md"},
    {"FrmWelcome", "contents.md"},
    {"FrmTips", "contents.md"},
    {"FrmAbout", "contents.md"},
    {"FrmMessage", "contents.md"},
    {"FrmAccountTrans", "transactions.md"},
    {"FrmAllocate", "transactions.md"},
    {"FrmAccountAuto", "transactions.md"},
    {"FrmAccountTransMulti", "transactions.md"},
    {"FrmKeywordChoice", "transactions.md"},
    {"FrmAttachments", "transactions.md"},
    {"FrmSchedule", "schedules.md"},
    {"FrmAccounts", "reference-data.md"},
    {"FrmAccountTypes", "reference-data.md"},
    {"FrmBanks", "reference-data.md"},
    {"FrmCategory", "reference-data.md"},
    {"FrmPayees", "reference-data.md"},
    {"FrmPayments", "reference-data.md"},
    {"FrmKeywords", "reference-data.md"},
    {"FrmCurrencies", "reference-data.md"},
    {"FrmList", "reference-data.md"},
    {"FrmMerge", "reference-data.md"},
    {"FrmReconcile", "reconciling.md"},
    {"FrmImport", "importing.md"},
    {"FrmFilter", "finding.md"},
    {"FrmTextFilter", "finding.md"},
    {"FrmPalette", "finding.md"},
    {"FrmInvest", "investments.md"},
    {"FrmInvestTrans", "investments.md"},
    {"FrmCorporateAction", "investments.md"},
    {"FrmSources", "data-sources.md"},
    {"FrmSource", "data-sources.md"},
    {"FrmRates", "data-sources.md"},
    {"FrmStock", "data-sources.md"},
    {"FrmCurrency", "data-sources.md"},
    {"FrmHistory", "data-sources.md"},
    {"FrmPriceImport", "data-sources.md"},
    {"FrmCalculator", "calculators.md"},
    {"FrmLoan", "calculators.md"},
    {"FrmReport", "reports.md"},
    {"FrmColumns", "reports.md"},
    {"FrmExplain", "reports.md"},
    {"FrmWhatIf", "reports.md"},
    {"FrmPreview", "printing.md"},
    {"FrmPageSetup", "printing.md"},
    {"FrmBackup", "safety.md"},
    {"FrmRestore", "safety.md"},
    {"FrmSalvage", "safety.md"},
    {"FrmArchive", "safety.md"},
    {"FrmOptions", "options.md"},
    {"FrmPassword", "password.md"},
    {"FrmPassphrase", "password.md"},
    {"FrmRecoveryKey", "password.md"},
});
constexpr const char* kTitle = "Help";

}  // namespace

std::string_view HelpPageOf(std::string_view window) {
  const auto* found =
      std::ranges::find(kPages, window, [](const auto& page) { return page.first; });
  return found == kPages.end() ? std::string_view() : found->second;
}

QString HelpFolder() {
  const QString folder = QCoreApplication::applicationDirPath();
  const QString beside = folder + QStringLiteral("/docs");
  if (QDir(beside).exists()) return beside;
  return QDir::cleanPath(folder + QStringLiteral("/../share/doc/corvanta"));
}

void ShowHelp(std::string_view window, Platform& platform, const QString& folder) {
  const std::string_view page = HelpPageOf(window);
  const QString place = folder.isEmpty() ? HelpFolder() : folder;
  const QString path = place + u'/' + ToQt(page);
  if (page.empty()) {
    platform.prompts.Tell(kTitle,
                          "There is no page about this window yet. Help, Contents in the main "
                          "window lists the pages that there are. Most fields say what they are "
                          "for when the mouse rests on them.");
  } else if (!QFileInfo(path).isFile()) {
    platform.prompts.Tell(kTitle,
                          "The page was not found. It belongs into this place:\n" + FromQt(path),
                          Icon::Warning);
  } else if (!platform.opener.Open(FromQt(path))) {
    platform.prompts.Tell(kTitle,
                          "The system has no program that shows the page. Any text editor does; "
                          "the page is this file:\n" +
                              FromQt(path),
                          Icon::Warning);
  }
}

}  // namespace corvanta::inline app
