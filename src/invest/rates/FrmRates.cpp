#include "invest/rates/FrmRates.h"

#include "controls/AmountEdit.h"
#include "controls/DateField.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "invest/rates/CurrencyConverter.h"
#include "invest/rates/ucCurrencyBox.h"
#include "invest/ucEntryList.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

#include <QPushButton>

#include <algorithm>

namespace corvanta::inline invest {
namespace {
constexpr int kListWidth = 66 * kRhythm;
constexpr int kListHeight = 28 * kRhythm;
}  // namespace

FrmRates::FrmRates(const InvestPlace& place)
    : QtEntryListDialog(QStringLiteral("FrmRates"), place),
      editor_(place.ledger, place.platform),
      lvRates_(new ucEntryList("lvRates", tr("Exchange Rates"),
                               {{tr("From"), "WWW", 0},
                                {tr("To"), "WWW", 0},
                                {tr("Date"), "00/00/0000", 1},
                                {tr("Rate"), "00,000.000000", 1, true},
                                {tr("Source"), "European Central Bank", 2, false, true}},
                               this)),
      cmbFrom_(new ucCurrencyBox(place.ledger.References().Currencies(), this)),
      cmbTo_(new ucCurrencyBox(place.ledger.References().Currencies(), this)),
      dtRate_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtRate_(new AmountEdit(place.platform.locale, this)) {
  setWindowTitle(tr("Exchange Rates"));
  lvRates_->setMinimumSize(kListWidth, kListHeight);
  AddAbove(lvRates_);
  MakeFields();
  MakeCommands(tr("Fetch today's rate between the two currencies"));
  connect(lvRates_, &ucEntryList::ChoiceChanged, this, &FrmRates::ShowChosen);
  connect(lvRates_, &ucEntryList::DeletePressed, this, &FrmRates::Delete);
  Run([this] { Fill(); });
  KeepContents();
}

void FrmRates::MakeFields() {
  AddField(tr("&From:"), cmbFrom_, "cmbFrom");
  AddField(tr("&To:"), cmbTo_, "cmbTo");
  AddField(tr("D&ate:"), dtRate_, "dtRate");
  AddField(tr("&Rate:"), txtRate_, "txtRate");
  txtRate_->setToolTip(tr("Units of the second currency for one of the first"));
}

void FrmRates::Fill(std::int64_t chosen) {
  const CurrencyConverter numbers(Place().rates, Place().platform.locale);
  lvRates_->Clear();
  rows_ = editor_.Rows();
  for (const RateRecord& row : rows_) {
    lvRates_->AddRow({ToQt(row.from), ToQt(row.to),
                      ToQt(Place().platform.locale.FormatShortDate(row.date)),
                      ToQt(numbers.PlainNumber(row.rate)), ToQt(row.source)});
  }
  const auto found = std::ranges::find(rows_, chosen, &RateRecord::rateId);
  if (found != rows_.end()) lvRates_->selectRow(static_cast<int>(found - rows_.begin()));
  if (rows_.empty()) {
    Note(
        tr("Rates that are fetched are listed here with their day and source; the latest one "
           "serves where none can be fetched."));
  }
}

void FrmRates::ShowChosen() {
  const std::vector<std::size_t> chosen = lvRates_->ChosenRows();
  AllowDelete(!chosen.empty());
  if (chosen.empty()) return;
  const RateRecord& rate = rows_.at(chosen.front());
  cmbFrom_->SetCode(rate.from);
  cmbTo_->SetCode(rate.to);
  dtRate_->SetDay(rate.date);
  txtRate_->SetAmount(rate.rate);
  KeepContents();
}

void FrmRates::New() {
  lvRates_->clearSelection();
  txtRate_->SetAmount(0);
  FocusFirstField();
  KeepContents();
}

RateForm FrmRates::Form() {
  cmbFrom_->Settle();
  cmbTo_->Settle();
  return {cmbFrom_->Code(), cmbTo_->Code(), dtRate_->Day(), txtRate_->Amount()};
}

void FrmRates::Accept() {
  Run([this] {
    const RateForm form = Form();
    if (const auto warning = RateEditor::Check(form)) return Warn(*warning);
    if (!dtRate_->IsDay()) {
      return Warn({"Save Warning", "You need to enter a valid Date", "dtRate"});
    }
    const std::int64_t key = editor_.Save(form);
    MarkChanged();
    Fill(key);
    FocusFirstField();
    KeepContents();
  });
}

void FrmRates::Delete() {
  Run([this] {
    std::vector<std::int64_t> keys;
    for (const std::size_t row : lvRates_->ChosenRows()) keys.push_back(rows_.at(row).rateId);
    if (!editor_.Delete(keys)) return;
    MarkChanged();
    Fill();
    txtRate_->SetAmount(0);
    KeepContents();
  });
}

void FrmRates::Download() {
  Run([this] {
    const RateForm form = Form();
    if (const auto warning = RateEditor::CheckPair(form)) return Warn(*warning);
    bool isKept = false;
    {
      const WaitCursor waiting;
      isKept = editor_.Download(form);
    }
    Note(ToQt(editor_.Note()));
    if (!isKept) return LeadToSources();
    MarkChanged();
    const auto latest =
        Place().ledger.Rates().Latest(form.from, form.to, Place().platform.clock.Today());
    Fill(latest ? latest->rateId : 0);
  });
}

}  // namespace corvanta::inline invest
