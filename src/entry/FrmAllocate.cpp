#include "entry/FrmAllocate.h"

#include "controls/AmountEdit.h"
#include "controls/CommandEdge.h"
#include "controls/ListTable.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "entry/ucCategoryBoxes.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline entry {
namespace {

enum Column { kCategory, kDescription, kReference, kAmount, kColumns };

constexpr int kShownRows = 6;

constexpr const char* kHelp =
    "Each part of the amount stands in the list with its category. Choose one to change it, or "
    "type a new one: its amount is what remains. What you type without a sign goes where the whole "
    "goes; + and - say otherwise.\n\n"
    "Enter saves a part at once, Delete in the list removes the chosen one. Saved parts stay when "
    "you close the dialog, and the whole amount is what they add up to.";

}  // namespace

FrmAllocate::FrmAllocate(const AllocationParent& parent, const EntryPlace& place)
    : FormDialog(QStringLiteral("FrmAllocate"), place.platform.prompts, place.parent),
      platform_(place.platform),
      editor_(place.ledger, place.platform, parent),
      lvAllocated_(new ListTable(this)),
      model_(new QStandardItemModel(0, kColumns, this)),
      lblSums_(new MutedLabel(this)),
      cmbCategory_(new PickBox(this)),
      cmbSubCategory_(new PickBox(this)),
      categories_(new ucCategoryBoxes(place.ledger, place.platform.prompts, *cmbCategory_,
                                      *cmbSubCategory_, this)),
      txtAmount_(new AmountEdit(place.platform.locale, this, AmountText::Rounded)),
      txtReference_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  setWindowTitle(tr("Allocate Items"));
  txtAmount_->SetDecimals(CurrencyDecimals(parent.currency));
  txtAmount_->SetSign(parent.sign);
  MakeList();
  MakeFields();
  MakeButtons();
  Run([this] { StartLine(); });
}

void FrmAllocate::MakeList() {
  const int width = fontMetrics().horizontalAdvance(QStringLiteral("A category's name"));
  model_->setHorizontalHeaderLabels(
      {tr("Category"), tr("Description"), tr("Ref"), ToQt(editor_.AmountHeading())});
  model_->setHeaderData(kAmount, Qt::Horizontal,
                        QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter)),
                        Qt::TextAlignmentRole);
  lvAllocated_->setObjectName(QStringLiteral("lvAllocated"));
  lvAllocated_->setAccessibleName(tr("Allocated items"));
  lvAllocated_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvAllocated_->setAlternatingRowColors(true);
  lvAllocated_->setFrameShape(QFrame::StyledPanel);
  lvAllocated_->setModel(model_);
  const int few = fontMetrics().horizontalAdvance(QStringLiteral("Abc...")) + 3 * kRhythm;
  const int amount = fontMetrics().horizontalAdvance(ToQt(editor_.AmountHeading())) + 3 * kRhythm;
  lvAllocated_->SetColumns({{width, 3, few},
                            {width, 3, few},
                            {width / 2, 1, few},
                            {std::max(width, amount), 0, amount, 0, true}});
  lvAllocated_->setMinimumHeight(kShownRows * (fontMetrics().height() + kRhythm + 2));
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  lvAllocated_->addAction(remove);
  connect(remove, &QAction::triggered, this, &FrmAllocate::Delete);
  connect(lvAllocated_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &FrmAllocate::ShowChosen);
  connect(lvAllocated_, &QAbstractItemView::activated, this, [this] { FocusFirstField(); });
}

void FrmAllocate::MakeFields() {
  lblSums_->setObjectName(QStringLiteral("lblSums"));
  auto* top = new QWidget(this);
  auto* column = new QVBoxLayout(top);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRhythm);
  column->addWidget(lvAllocated_, 1);
  column->addWidget(lblSums_, 0, Qt::AlignRight);
  AddAbove(top);
  AddField(tr("Cate&gory:"), cmbCategory_, "cmbCategory");
  AddField(tr("Su&b Category:"), cmbSubCategory_, "cmbSubCategory");
  AddField(tr("&Amount:"), txtAmount_, "txtAmount");
  AddField(tr("&Reference:"), txtReference_, "txtReference");
  AddField(tr("Descr&iption:"), txtDescription_, "txtDescription");
}

void FrmAllocate::MakeButtons() {
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  auto* another = MakeButton(tr("&New"), "cmdNew");
  cmdDelete_ = MakeButton(tr("&Delete"), "cmdDelete");
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  accept->setDefault(true);
  accept->setToolTip(tr("Save this line"));
  another->setToolTip(tr("Start a new line of what remains"));
  cmdDelete_->setToolTip(tr("Remove the line chosen in the list"));
  AddButtonRow({another, cmdDelete_, help}, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, &FrmAllocate::Accept);
  connect(another, &QPushButton::clicked, this, &FrmAllocate::New);
  connect(cmdDelete_, &QPushButton::clicked, this, &FrmAllocate::Delete);
  connect(help, &QPushButton::clicked, this, &FrmAllocate::Help);
  connect(cancel, &QPushButton::clicked, this, &FrmAllocate::reject);
}

QString FrmAllocate::Shown(double amount) const {
  return ToQt(platform_.locale.FormatNumber(amount));
}

void FrmAllocate::StartLine() {
  FillList();
  Show(editor_.New());
  FocusFirstField();
}

void FrmAllocate::FillList() {
  lines_ = editor_.Lines();
  isFilling_ = true;
  model_->setRowCount(0);
  for (const AllocationForm& line : lines_) {
    auto* amount = new QStandardItem(Shown(line.amount.value_or(0)));
    amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (line.amount.value_or(0) < 0) amount->setForeground(MoneyOutColour(palette()));
    model_->appendRow({new QStandardItem(ToQt(AllocationEditor::CategoryText(line))),
                       new QStandardItem(ToQt(line.description)),
                       new QStandardItem(ToQt(line.reference)), amount});
  }
  lvAllocated_->clearSelection();
  lvAllocated_->setCurrentIndex({});
  isFilling_ = false;
  cmdDelete_->setEnabled(false);
  ShowSums();
}

void FrmAllocate::ShowSums() {
  const double total = editor_.Parent().sign * editor_.Parent().amount;
  const double remaining = editor_.Remaining();
  lblSums_->setText(tr("Total %1    Allocated %2    Remaining %3")
                        .arg(Shown(total), Shown(total - remaining), Shown(remaining)));
}

void FrmAllocate::Show(const AllocationForm& line) {
  categories_->Show(line.category, line.subCategory);
  txtAmount_->SetAmount(line.amount.value_or(0));
  txtReference_->setText(ToQt(line.reference));
  txtDescription_->setText(ToQt(line.description));
  KeepContents();
}

AllocationForm FrmAllocate::Form() {
  txtAmount_->Settle();
  AllocationForm line;
  line.key = ChosenKey();
  line.category = categories_->Category();
  line.subCategory = categories_->SubCategory();
  line.amount = txtAmount_->Amount();
  line.reference = FromQt(txtReference_->text());
  line.description = FromQt(txtDescription_->text());
  return line;
}

std::int64_t FrmAllocate::ChosenKey() const {
  const QModelIndexList rows = lvAllocated_->selectionModel()->selectedRows();
  if (rows.isEmpty()) return 0;
  return lines_.at(static_cast<std::size_t>(rows.constFirst().row())).key;
}

void FrmAllocate::ShowChosen() {
  const QModelIndexList rows = lvAllocated_->selectionModel()->selectedRows();
  if (isFilling_ || rows.isEmpty()) return;
  Run([&] {
    const AllocationForm& line = lines_.at(static_cast<std::size_t>(rows.constFirst().row()));
    Show(line);
    txtAmount_->SetSignedAmount(line.amount.value_or(0));
    KeepContents();
    cmdDelete_->setEnabled(true);
  });
}

void FrmAllocate::Accept() {
  Run([this] {
    const AllocationForm line = Form();
    if (const auto warning = editor_.Check(line)) return Warn(*warning);
    if (editor_.Save(line) == 0) return FocusOn(*cmbCategory_);
    MarkChanged();
    StartLine();
    if (!editor_.IsAgainstTotal(line)) return;
    const AllocationParent& parent = editor_.Parent();
    Note(tr("%1 counts against the total of %2: lines are entered with the total's sign.")
             .arg(Shown(line.amount.value_or(0)), Shown(parent.sign * parent.amount)));
  });
}

void FrmAllocate::New() {
  Run([this] {
    if (MayDrop(tr("Add New?"))) StartLine();
  });
}

void FrmAllocate::Delete() {
  const std::int64_t key = ChosenKey();
  if (key == 0) return;
  Run([&] {
    editor_.Delete(key);
    MarkChanged();
    StartLine();
  });
}

void FrmAllocate::reject() {
  bool mayClose = true;
  Run([&] {
    StartLine();
    mayClose = editor_.MayClose();
  });
  if (mayClose) QDialog::reject();
}

void FrmAllocate::Help() {
  platform_.prompts.Tell("Allocate Items", kHelp);
}

}  // namespace corvanta::inline entry
