#include "invest/prices/FrmSources.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "invest/prices/FrmSource.h"
#include "invest/prices/SourcePresets.h"
#include "invest/ucEntryList.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"

#include <QPushButton>

#include <algorithm>

namespace corvanta::inline invest {
namespace {
constexpr int kListWidth = 80 * kRhythm;
constexpr int kListHeight = 38 * kRhythm;
}  // namespace

FrmSources::FrmSources(const InvestPlace& place, std::int64_t dataId)
    : FormDialog(QStringLiteral("FrmSources"), place.platform.prompts, place.parent),
      place_(place),
      editor_(place.ledger, place.platform),
      lvSources_(new ucEntryList("lvSources", tr("Data Sources"),
                                 {{tr("Name"), "Financial Times Stock", 2, false, true},
                                  {tr("For"), "Exchange rates", 0},
                                  {tr("Answer"), "CSV column", 0},
                                  {tr("Note"), "Came with the program", 1, false, true}},
                                 this)) {
  setWindowTitle(tr("Data Sources"));
  lvSources_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvSources_->setMinimumSize(kListWidth, kListHeight);
  AddAbove(lvSources_);
  MakeCommands();
  connect(lvSources_, &ucEntryList::ChoiceChanged, this, &FrmSources::EnableCommands);
  connect(lvSources_, &ucEntryList::DeletePressed, this, &FrmSources::Delete);
  connect(lvSources_, &QAbstractItemView::activated, this, &FrmSources::Edit);
  Run([&] { Fill(dataId != 0 ? dataId : editor_.AskedForRates()); });
  lvSources_->setFocus();
}

void FrmSources::MakeCommands() {
  auto* another = MakeButton(tr("&New..."), "cmdNew");
  auto* preset = MakeButton(tr("&Ready-Made..."), "cmdPreset");
  preset->setToolTip(tr("Add a service that is described already"));
  cmdEdit_ = MakeButton(tr("&Edit..."), "cmdEdit");
  cmdDelete_ = MakeButton(tr("&Delete"), "cmdDelete");
  cmdFirst_ = MakeButton(tr("Ask &First"), "cmdFirst");
  cmdFirst_->setToolTip(
      tr("Ask this one for exchange rates: the first by name is asked, so it is renamed"));
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  cmdEdit_->setDefault(true);
  AddButtonRow({another, preset, cmdEdit_, cmdDelete_, cmdFirst_}, {close});
  connect(another, &QPushButton::clicked, this, &FrmSources::New);
  connect(preset, &QPushButton::clicked, this, &FrmSources::NewFromPreset);
  connect(cmdEdit_, &QPushButton::clicked, this, &FrmSources::Edit);
  connect(cmdDelete_, &QPushButton::clicked, this, &FrmSources::Delete);
  connect(cmdFirst_, &QPushButton::clicked, this, &FrmSources::PutFirst);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

// The row that was chosen stays so, or the one that took its place.
void FrmSources::Fill(std::int64_t chosen) {
  const int former = std::max(0, lvSources_->currentIndex().row());
  lvSources_->Clear();
  rows_ = editor_.Sources();
  int row = std::min(former, static_cast<int>(rows_.size()) - 1);
  for (const SourceRow& source : rows_) {
    if (source.dataId == chosen) row = lvSources_->RowCount();
    const bool isManual = source.url.empty();
    lvSources_->AddRow({ToQt(source.name), tr(TypeWords(source.type).data()),
                        isManual ? tr("By hand") : tr(KindWords(source.kind).data()),
                        tr(editor_.Remark(source).c_str())});
  }
  if (row >= 0) lvSources_->selectRow(row);
  EnableCommands();
}

const SourceRow* FrmSources::Chosen() const {
  const int row = lvSources_->currentIndex().row();
  return row < 0 ? nullptr : &rows_.at(static_cast<std::size_t>(row));
}

void FrmSources::EnableCommands() {
  const SourceRow* chosen = Chosen();
  cmdEdit_->setEnabled(chosen != nullptr);
  cmdDelete_->setEnabled(chosen != nullptr);
  cmdFirst_->setEnabled(chosen != nullptr && EqualFolded(chosen->type, kCurrencySource) &&
                        chosen->dataId != editor_.AskedForRates());
}

void FrmSources::New() {
  OpenEditor(0, nullptr);
}

void FrmSources::NewFromPreset() {
  std::vector<std::string> names;
  for (const SourcePreset& preset : SourcePresets()) {
    names.push_back(std::string(preset.name) + (preset.WantsKey() ? " (wants a key)" : ""));
  }
  const auto choice = place_.platform.prompts.Choose("Ready-Made Sources", kPresetsUntried, names);
  if (!choice) return;
  const SourceRow row = SourcePresets()[*choice].Row();
  OpenEditor(0, &row);
}

void FrmSources::Edit() {
  if (const SourceRow* chosen = Chosen()) OpenEditor(chosen->dataId, nullptr);
}

void FrmSources::OpenEditor(std::int64_t dataId, const SourceRow* preset) {
  Run([&] {
    FrmSource form({place_.platform, place_.ledger, place_.rates, this});
    if (!form.Open(dataId)) return Fill(0);
    if (preset != nullptr) form.Propose(*preset, tr(kPresetsUntried));
    form.exec();
    if (!form.IsChanged()) return;
    MarkChanged();
    Fill(form.SavedKey() != 0 ? form.SavedKey() : dataId);
  });
}

void FrmSources::Delete() {
  const SourceRow* chosen = Chosen();
  if (chosen == nullptr) return;
  Run([&] {
    const bool isDefault = chosen->dataId <= kLastDefaultSource;
    if (!editor_.Delete(chosen->dataId)) return;
    MarkChanged();
    Fill(0);
    if (isDefault) Note(tr("It came with the program: File, Validate puts it back."));
  });
}

void FrmSources::PutFirst() {
  const SourceRow* chosen = Chosen();
  if (chosen == nullptr) return;
  Run([&] {
    const std::int64_t dataId = chosen->dataId;
    const QString name = ToQt(editor_.PutFirst(dataId));
    MarkChanged();
    Fill(dataId);
    Note(tr("“%1” is asked for exchange rates now.").arg(name));
  });
}

}  // namespace corvanta::inline invest
