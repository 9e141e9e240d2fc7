#include "safety/FrmArchive.h"

#include "controls/DateField.h"
#include "controls/ListTable.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

#include <algorithm>

namespace corvanta::inline safety {
namespace {

constexpr int kListWidth = 60 * kRhythm;
constexpr int kListHeight = 14 * kRhythm;
constexpr int kPathWidth = 36 * kRhythm;
constexpr QSize kComfortable(84 * kRhythm, 56 * kRhythm);
constexpr auto kNumber = Qt::AlignRight | Qt::AlignVCenter;

enum Column { kAccount, kRows, kStay, kOpening, kNewOpening, kColumns };

}  // namespace

FrmArchive::FrmArchive(clsCorvanta& ledger, const BackedFile& file, const SafetyPlace& place)
    : FormDialog(QStringLiteral("FrmArchive"), place.platform.prompts, place.parent),
      place_(place),
      editor_(ledger, file, place.platform, place.writer),
      ledger_(ledger),
      dtBefore_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtArchive_(new QLineEdit(this)),
      chkReconciled_(new QCheckBox(tr("Only &reconciled transactions"), this)),
      lvAccounts_(new ListTable(this)),
      model_(new QStandardItemModel(this)) {
  setWindowTitle(tr("Archive"));
  MakeList();
  MakeFields();
  auto* accept = MakeButton(tr("&Archive"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({}, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, &FrmArchive::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Run([this] {
    const ArchiveForm form = editor_.Load();
    dtBefore_->SetDay(*form.before);
    txtArchive_->setText(ToQt(form.path));
    FillAccounts(form);
    ShowPlan();
  });
  resize(sizeHint().expandedTo(kComfortable).boundedTo(screen()->availableSize()));
  FocusFirstField();
}

void FrmArchive::MakeFields() {
  auto* browse = MakeButton(tr("&Browse..."), "cmdBrowse");
  txtArchive_->setMinimumWidth(kPathWidth);
  AddField(tr("Transactions &before:"), dtBefore_, "dtBefore");
  AddField(tr("Archive &file:"), txtArchive_, "txtArchive", browse);
  AddTick(chkReconciled_, "chkReconciled");
  chkReconciled_->setToolTip(
      tr("What no balanced statement holds stays, so that the next statement can be balanced"));
  const auto show = [this] { Run([this] { ShowPlan(); }); };
  connect(dtBefore_, &DateField::DayChanged, this, show);
  connect(chkReconciled_, &QCheckBox::toggled, this, show);
  connect(browse, &QPushButton::clicked, this, &FrmArchive::Browse);
}

void FrmArchive::MakeList() {
  model_->setHorizontalHeaderLabels(
      {tr("Account"), tr("Rows that go"), tr("Rows that stay"), tr("Opening balance"), tr("Then")});
  for (int column = kRows; column < kColumns; ++column) {
    model_->setHeaderData(column, Qt::Horizontal, QVariant(kNumber), Qt::TextAlignmentRole);
  }
  lvAccounts_->setObjectName(QStringLiteral("lvAccounts"));
  lvAccounts_->setAccessibleName(tr("Accounts"));
  lvAccounts_->setToolTip(tr("The space bar takes an account out, or in again"));
  lvAccounts_->setModel(model_);
  // The lists' own delegate draws no ticks.
  lvAccounts_->setItemDelegateForColumn(kAccount, new QStyledItemDelegate(lvAccounts_));
  lvAccounts_->setMinimumSize(kListWidth, kListHeight);
  const int money = fontMetrics().horizontalAdvance(QStringLiteral("-9,999,999.99")) + 2 * kRhythm;
  std::vector<ListTable::Column> columns{{20 * kRhythm, 3, 12 * kRhythm}};
  for (int column = kRows; column < kColumns; ++column) {
    const QString title = model_->horizontalHeaderItem(column)->text();
    const int own = fontMetrics().horizontalAdvance(title) + 4 * kRhythm;
    // No figure in smaller letters than the others.
    const int figure = column < kOpening ? 9 * kRhythm : money;
    columns.push_back({std::max(own, figure), 1, figure});
  }
  lvAccounts_->SetColumns(columns);
  AddAbove(lvAccounts_);
  connect(model_, &QStandardItemModel::itemChanged, this, [this](const QStandardItem* item) {
    if (!isFilling_ && item->column() == kAccount) Run([this] { ShowPlan(); });
  });
}

void FrmArchive::FillAccounts(const ArchiveForm& form) {
  isFilling_ = true;
  for (const AccountRow& row : ledger_.Accounts().Accounts(StatusFilter{}, true)) {
    accounts_.push_back(row.accountId);
    auto* name = new QStandardItem(ToQt(row.account));
    name->setCheckable(true);
    const bool isChosen = std::ranges::find(form.accounts, row.accountId) != form.accounts.end();
    name->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
    QList<QStandardItem*> cells{name};
    for (int column = kRows; column < kColumns; ++column) {
      cells.append(new QStandardItem);
      cells.back()->setTextAlignment(kNumber);
    }
    model_->appendRow(cells);
  }
  isFilling_ = false;
}

ArchiveForm FrmArchive::Form() const {
  ArchiveForm form;
  form.path = FromQt(txtArchive_->text().trimmed());
  if (dtBefore_->IsDay()) form.before = dtBefore_->Day();
  form.onlyReconciled = chkReconciled_->isChecked();
  for (std::size_t row = 0; row < accounts_.size(); ++row) {
    const auto* name = model_->item(static_cast<int>(row), kAccount);
    if (name->checkState() == Qt::Checked) form.accounts.push_back(accounts_[row]);
  }
  return form;
}

void FrmArchive::ShowPlan() {
  const ArchivePlan plan = editor_.Plan(Form());
  const Locale& locale = place_.platform.locale;
  isFilling_ = true;
  for (std::size_t row = 0; row < accounts_.size(); ++row) {
    const auto found =
        std::ranges::find(plan.accounts, accounts_[row], &ArchivedAccount::accountId);
    const auto set = [&](int column, const std::string& text) {
      model_->item(static_cast<int>(row), column)->setText(ToQt(text));
    };
    const bool isChosen = found != plan.accounts.end();
    set(kRows, isChosen ? locale.FormatNumber(static_cast<double>(found->rows), 0) : "");
    set(kStay, isChosen ? locale.FormatNumber(static_cast<double>(found->stay), 0) : "");
    set(kOpening, isChosen ? locale.FormatNumber(found->opening) : "");
    set(kNewOpening, isChosen ? locale.FormatNumber(found->newOpening) : "");
  }
  isFilling_ = false;
  Note(ToQt(editor_.Rest(plan)).trimmed());
}

void FrmArchive::Browse() {
  const auto path = place_.platform.prompts.SaveFile(
      {"Save Archive File As", "Data Files", "*.dat", "dat", std::string()});
  if (path) txtArchive_->setText(ToQt(*path));
}

void FrmArchive::Accept() {
  Run([this] {
    const ArchiveForm form = Form();
    if (const auto warning = editor_.Check(form)) return Warn(*warning);
    if (!editor_.Save(form)) return;
    MarkChanged();
    accept();
  });
}

}  // namespace corvanta::inline safety
