#include "safety/FrmRestore.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "invest/ucEntryList.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTime>
#include <QVBoxLayout>

#include <filesystem>

namespace corvanta::inline safety {
namespace {

constexpr int kListWidth = 60 * kRhythm;
constexpr int kListHeight = 11 * kRhythm;
constexpr QSize kComfortable(131 * kRhythm, 64 * kRhythm);

QLabel* Caption(const QString& text, QWidget& list, QWidget* parent) {
  auto* caption = new QLabel(text, parent);
  caption->setBuddy(&list);
  return caption;
}

}  // namespace

FrmRestore::FrmRestore(RestoreEditor& editor, const SafetyPlace& place)
    : FormDialog(QStringLiteral("FrmRestore"), place.platform.prompts, place.parent),
      place_(place),
      editor_(editor),
      lvBackups_(new ucEntryList("lvBackups", tr("Backups"),
                                 {{tr("Made"), "00/00/0000 00:00", 0},
                                  {tr("File"), "Corvanta 2026-11-22 18-30.dat", 1, false, true},
                                  {tr("Folder"), "/media/someone/Backups", 2, false, true}},
                                 this)),
      lvChanges_(
          new ucEntryList("lvChanges", tr("What would change"),
                          {{tr("Account or List"), "Current account at the bank", 3, false, true},
                           {tr("Changes"), "000 back, 000 go", 2},
                           {tr("Rows now"), "Rows now", 0, true},
                           {tr("Rows then"), "Rows then", 0, true},
                           {tr("Balance now"), "-000,000.00", 1, true},
                           {tr("Balance then"), "-000,000.00", 1, true},
                           {tr("From"), "00/00/0000", 0},
                           {tr("To"), "00/00/0000", 0}},
                          this)) {
  setWindowTitle(tr("Restore"));
  MakeLists();
  auto* browse = MakeButton(tr("&Other File..."), "cmdBrowse");
  browse->setToolTip(tr("Choose a backup that lies elsewhere"));
  cmdAccept_ = MakeButton(tr("&Restore"), "cmdAccept");
  cmdAccept_->setEnabled(false);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({browse}, {cmdAccept_, cancel});
  connect(browse, &QPushButton::clicked, this, &FrmRestore::Browse);
  connect(cmdAccept_, &QPushButton::clicked, this, &FrmRestore::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(lvBackups_, &ucEntryList::ChoiceChanged, this, &FrmRestore::LookAtChosen);
  Run([this] { FillSources(); });
  resize(sizeHint().expandedTo(kComfortable).boundedTo(screen()->availableSize()));
  lvBackups_->setFocus();
}

void FrmRestore::MakeLists() {
  auto* lists = new QWidget(this);
  auto* rows = new QVBoxLayout(lists);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kRhythm / 2);
  lvBackups_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvBackups_->setMinimumSize(kListWidth, kListHeight);
  lvChanges_->setMinimumSize(kListWidth, kListHeight);
  rows->addWidget(Caption(tr("&Backups:"), *lvBackups_, lists));
  rows->addWidget(lvBackups_, 1);
  rows->addSpacing(kRhythm / 2);
  rows->addWidget(Caption(tr("&What would change:"), *lvChanges_, lists));
  rows->addWidget(lvChanges_, 2);
  AddAbove(lists);
}

void FrmRestore::FillSources() {
  sources_ = editor_.Sources();
  const Locale& locale = place_.platform.locale;
  for (const RestoreSource& source : sources_) {
    const std::filesystem::path path(source.path);
    QString made = tr("Before restoring");
    if (source.made) {
      made = ToQt(locale.FormatShortDate(source.made->date)) + u' ' +
             QTime(0, 0).addSecs(source.made->seconds).toString(QStringLiteral("HH:mm"));
    }
    lvBackups_->AddRow({made, ToQt(path.filename().string()), ToQt(path.parent_path().string())});
  }
  if (sources_.empty()) Note(tr("No backup of this data file was found. Choose one elsewhere."));
}

void FrmRestore::LookAtChosen() {
  const std::vector<std::size_t> chosen = lvBackups_->ChosenRows();
  if (!chosen.empty()) Look(sources_.at(chosen.front()).path);
}

void FrmRestore::Browse() {
  const auto path = place_.platform.prompts.OpenFile(
      {"Select File to Restore", "Data Files", "*.dat", "dat", std::string()});
  if (!path) return;
  lvBackups_->clearSelection();
  Look(*path);
}

void FrmRestore::Look(const std::string& path) {
  plan_.reset();
  Run([&] {
    if (const auto warning = editor_.Check(path)) return Warn(*warning);
    plan_ = editor_.Look(path);
  });
  ShowPlan();
}

void FrmRestore::ShowPlan() {
  lvChanges_->Clear();
  cmdAccept_->setEnabled(plan_.has_value());
  cmdAccept_->setDefault(plan_.has_value());
  if (!plan_) return;
  for (const AccountChange& change : plan_->changes) lvChanges_->AddRow(CellsOf(change));
  for (const ListChange& change : plan_->lists) lvChanges_->AddRow(CellsOf(change));
  if (plan_->losesPassword) {
    return Note(
        tr("Shown is %1. Afterwards nobody is asked for a password.").arg(ToQt(plan_->path)));
  }
  Note(plan_->IsChange()
           ? tr("Shown is %1.").arg(ToQt(plan_->path))
           : tr("The data file holds what %1 holds: nothing would change.").arg(ToQt(plan_->path)));
}

QString FrmRestore::CountText(std::size_t count) const {
  return ToQt(place_.platform.locale.FormatNumber(static_cast<double>(count), 0));
}

QStringList FrmRestore::CountsOf(std::size_t added, std::size_t removed,
                                 std::size_t changed) const {
  QStringList what;
  if (added > 0) what.append(tr("%1 back").arg(CountText(added)));
  if (removed > 0) what.append(tr("%1 go").arg(CountText(removed)));
  if (changed > 0) what.append(tr("%1 as before").arg(CountText(changed)));
  return what;
}

QStringList FrmRestore::CellsOf(const ListChange& change) const {
  return {ToQt(change.what),
          CountsOf(change.added, change.removed, change.changed).join(tr(", ")),
          CountText(change.now),
          CountText(change.then),
          QString(),
          QString(),
          QString(),
          QString()};
}

QStringList FrmRestore::CellsOf(const AccountChange& change) const {
  const Locale& locale = place_.platform.locale;
  const auto rows = [&](const auto& state) { return state ? CountText(state->rows) : QString(); };
  const auto balance = [&](const auto& state) {
    return state ? ToQt(locale.FormatNumber(state->balance)) : QString();
  };
  const auto day = [&](std::optional<Date> date) {
    return date ? ToQt(locale.FormatShortDate(*date)) : QString();
  };
  QStringList what;
  if (!change.now) what.append(tr("comes back"));
  if (!change.then) what.append(tr("goes"));
  what += CountsOf(change.added, change.removed, change.changed);
  const auto& shown = change.then ? change.then : change.now;
  return {ToQt(change.Name()), what.join(tr(", ")),  rows(change.now), rows(change.then),
          balance(change.now), balance(change.then), day(shown->from), day(shown->to)};
}

void FrmRestore::Accept() {
  Run([this] {
    if (!plan_) return;
    const bool isWanted = place_.platform.prompts.Ask("Restore", editor_.QuestionOf(*plan_));
    if (!isWanted) return;
    decided_ = plan_;
    accept();
  });
}

}  // namespace corvanta::inline safety
