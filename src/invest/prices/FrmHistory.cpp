#include "invest/prices/FrmHistory.h"

#include "controls/AmountEdit.h"
#include "controls/DateField.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "exchange/text/FileText.h"
#include "invest/prices/FrmPriceImport.h"
#include "invest/ucEntryList.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"

#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta::inline invest {
namespace {
constexpr int kListWidth = 54 * kRhythm;
constexpr int kListHeight = 28 * kRhythm;
}  // namespace

FrmHistory::FrmHistory(const InvestPlace& place, std::int64_t investmentId)
    : QtEntryListDialog(QStringLiteral("FrmHistory"), place),
      editor_(place.ledger, place.platform, investmentId),
      decimals_(Settings(place.platform.registry).InvestmentDecimals()),
      pages_(new QStackedWidget(this)),
      lvHistory_(new ucEntryList("lvHistory", tr("Prices"),
                                 {{tr("Investment"), "An investment", 2, false, true},
                                  {tr("Date"), "00/00/0000", 1},
                                  {tr("Price"), "00,000.000000", 1, true}},
                                 pages_)),
      empty_(new EmptyState(pages_)),
      dtStock_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtPrice_(new AmountEdit(place.platform.locale, this, AmountText::Rounded)) {
  setWindowTitle(tr("Stock Price History"));
  MakeList();
  MakeFields();
  auto* import = MakeButton(tr("&Import..."), "cmdImport");
  import->setToolTip(tr("Bring in the prices of a CSV file"));
  connect(import, &QPushButton::clicked, this, &FrmHistory::Import);
  MakeCommands(tr("Fetch the latest price and store it as today's"), {import});
  connect(lvHistory_, &ucEntryList::ChoiceChanged, this, &FrmHistory::ShowChosen);
  connect(lvHistory_, &ucEntryList::DeletePressed, this, &FrmHistory::Delete);
  Run([this] { Fill(); });
  KeepContents();
}

void FrmHistory::MakeList() {
  lvHistory_->SetWidths(ToQt(Settings(Place().platform.registry).Text(Setting::chH)));
  lvHistory_->setFrameShape(QFrame::NoFrame);
  empty_->Show(QStringLiteral("currency"), tr("No prices yet"),
               tr("Enter a price with its date below, or download one."), nullptr);
  pages_->addWidget(lvHistory_);
  pages_->addWidget(empty_);
  pages_->setFrameShape(QFrame::StyledPanel);
  pages_->setMinimumSize(kListWidth, kListHeight);
  AddAbove(pages_);
}

void FrmHistory::MakeFields() {
  AddField(tr("D&ate:"), dtStock_, "dtStock");
  AddField(tr("&Price:"), txtPrice_, "txtPrice");
  txtPrice_->SetDecimals(decimals_);
  txtPrice_->SetAmount(0);
}

void FrmHistory::Fill(std::optional<Date> chosen) {
  const QString name = ToQt(editor_.Investment());
  lvHistory_->Clear();
  rows_ = editor_.Rows();
  for (const PriceRecord& row : rows_) {
    lvHistory_->AddRow({name, ToQt(Place().platform.locale.FormatShortDate(row.date)),
                        ToQt(Place().platform.locale.FormatNumber(row.price, decimals_))});
  }
  pages_->setCurrentIndex(rows_.empty() ? 1 : 0);
  if (!chosen) return;
  const auto found = std::ranges::find(rows_, *chosen, &PriceRecord::date);
  if (found != rows_.end()) lvHistory_->selectRow(static_cast<int>(found - rows_.begin()));
}

std::vector<std::int64_t> FrmHistory::ChosenKeys() const {
  std::vector<std::int64_t> keys;
  for (const std::size_t row : lvHistory_->ChosenRows()) keys.push_back(rows_.at(row).historyId);
  return keys;
}

void FrmHistory::ShowChosen() {
  const std::vector<std::size_t> chosen = lvHistory_->ChosenRows();
  AllowDelete(!chosen.empty());
  if (chosen.empty()) return;
  // Of several the one that was chosen last.
  const auto current = static_cast<std::size_t>(std::max(0, lvHistory_->currentIndex().row()));
  const bool isChosen = std::ranges::find(chosen, current) != chosen.end();
  const PriceRecord& price = rows_.at(isChosen ? current : chosen.front());
  dtStock_->SetDay(price.date);
  txtPrice_->SetAmount(price.price);
  KeepContents();
}

void FrmHistory::New() {
  lvHistory_->clearSelection();
  txtPrice_->SetAmount(0);
  FocusFirstField();
  KeepContents();
}

void FrmHistory::Accept() {
  Run([this] {
    if (!dtStock_->IsDay()) {
      return Warn({"Save Warning", "You need to enter a valid Date", "dtStock"});
    }
    const std::optional<double> price = txtPrice_->Amount();
    if (const auto warning = HistoryEditor::Check(price)) return Warn(*warning);
    const Date day = dtStock_->Day();
    editor_.Save(day, *price);
    MarkChanged();
    Fill(day);
    FocusFirstField();
    KeepContents();
  });
}

void FrmHistory::Delete() {
  Run([this] {
    if (!editor_.Delete(ChosenKeys())) return;
    MarkChanged();
    Fill();
    txtPrice_->clear();
    KeepContents();
  });
}

void FrmHistory::Download() {
  Run([this] {
    bool isStored = false;
    {
      const WaitCursor waiting;
      isStored = editor_.Download();
    }
    Note(ToQt(editor_.Note()));
    if (!isStored) return LeadToSources();
    MarkChanged();
    Fill(Place().platform.clock.Today());
  });
}

void FrmHistory::Import() {
  Run([this] {
    const auto path = Place().platform.prompts.OpenFile(
        {"Select File to Import", "CSV Files (*.csv *.txt);;All Files", "*", {}, {}});
    if (!path) return;
    FileText file = ReadFileText(*path);
    if (file.fault) return Warn({"Import Prices", *file.fault, ""});
    FrmPriceImport form({Place().platform, Place().ledger, Place().rates, this},
                        editor_.InvestmentId(), std::move(file.text));
    form.exec();
    if (!form.IsChanged()) return;
    MarkChanged();
    Fill();
  });
}

void FrmHistory::done(int result) {
  Run([this] {
    Settings(Place().platform.registry).SetText(Setting::chH, FromQt(lvHistory_->Widths()));
  });
  QtEntryListDialog::done(result);
}

}  // namespace corvanta::inline invest
