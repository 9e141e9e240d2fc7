#include "reference/FrmList.h"

#include "controls/ChangeNotice.h"
#include "controls/CommandEdge.h"
#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline reference {
namespace {

constexpr int kMargin = 2 * kRhythm;
constexpr int kKeyRole = Qt::UserRole;

// What one kind of list says about itself.
struct ListWords {
  ReferenceKind editor;
  const char* column;
  const char* icon;
  const char* none;
  const char* purpose;
  const char* add;
};

const ListWords& WordsOf(ListKind kind) {
  // In the order of ListKind.
  static constexpr ListWords kLists[] = {
      {ReferenceKind::Payment, "Payment Type", "transfer", "No payment types",
       "Payment types say how money changed hands, such as cash or card.", "Add a payment type"},
      {ReferenceKind::Bank, "Bank", "accounts", "No banks",
       "Banks keep the addresses and numbers that belong to your accounts.", "Add a bank"},
      {ReferenceKind::AccountGroup, "Account Group", "accounts", "No account groups",
       "Every account stands in a group, such as bank or cash accounts.", "Add an account group"},
      {ReferenceKind::Keyword, "Keyword", "register", "No keywords yet",
       "Keywords mark transactions that belong together, whatever their category.",
       "Add a keyword"},
      {ReferenceKind::Currency, "Currency", "currency", "No currencies",
       "Every account is kept in a currency, which is known by its code, such as EUR.",
       "Add a currency"}};
  return kLists[static_cast<std::size_t>(kind)];
}

}  // namespace

FrmList::FrmList(ListKind kind, Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : QuietEnd(parent),
      platform_(platform),
      ledger_(ledger),
      editor_(kind, ledger, platform.prompts),
      pages_(new QStackedWidget(this)),
      lvList_(new ListTable(pages_)),
      empty_(new EmptyState(pages_)),
      model_(new QStandardItemModel(this)),
      lblNote_(new MutedLabel(this)),
      newAction_(new QAction(tr("&New"), this)),
      cmdNew_(new QPushButton(tr("&New..."), this)),
      cmdEdit_(new QPushButton(tr("&Edit..."), this)),
      cmdDelete_(new QPushButton(tr("&Delete"), this)) {
  setObjectName(QStringLiteral("FrmList"));
  setWindowTitle(ToQt(editor_.Caption()));
  setModal(true);
  newAction_->setStatusTip(tr(WordsOf(kind).add));
  MakeTable();
  MakeLayout();
  connect(newAction_, &QAction::triggered, this, &FrmList::New);
  connect(cmdNew_, &QPushButton::clicked, this, &FrmList::New);
  connect(cmdEdit_, &QPushButton::clicked, this, &FrmList::Edit);
  connect(cmdDelete_, &QPushButton::clicked, this, &FrmList::Delete);
  connect(lvList_, &QAbstractItemView::activated, this, &FrmList::Edit);
  connect(lvList_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &FrmList::EnableButtons);
  RunCommand(platform_.prompts, [this] { Fill(0); });
}

void FrmList::MakeTable() {
  const bool isPlain = editor_.Kind() == ListKind::Keywords;
  const int width = fontMetrics().horizontalAdvance(QStringLiteral("A name of some length"));
  model_->setColumnCount(isPlain ? 1 : 2);
  model_->setHeaderData(0, Qt::Horizontal, tr(WordsOf(editor_.Kind()).column));
  if (!isPlain) model_->setHeaderData(1, Qt::Horizontal, tr("Description"));
  lvList_->setObjectName(QStringLiteral("lvList"));
  lvList_->setAccessibleName(ToQt(editor_.Caption()));
  lvList_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvList_->setAlternatingRowColors(true);
  lvList_->setModel(model_);
  lvList_->SetColumns(isPlain ? std::vector<ListTable::Column>{{width, 1}}
                              : std::vector<ListTable::Column>{{width, 2}, {width, 3}});
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  connect(remove, &QAction::triggered, this, &FrmList::Delete);
  lvList_->addAction(remove);
}

void FrmList::MakeLayout() {
  cmdNew_->setObjectName(QStringLiteral("cmdNew"));
  cmdEdit_->setObjectName(QStringLiteral("cmdEdit"));
  cmdDelete_->setObjectName(QStringLiteral("cmdDelete"));
  auto* close = new QPushButton(tr("&Close"), this);
  close->setObjectName(QStringLiteral("cmdCancel"));
  cmdEdit_->setDefault(true);
  pages_->addWidget(lvList_);
  pages_->addWidget(empty_);
  pages_->setFrameShape(QFrame::StyledPanel);
  lblNote_->setObjectName(QStringLiteral("lblNote"));
  lblNote_->setTextFormat(Qt::PlainText);
  lblNote_->setWordWrap(true);
  lblNote_->hide();
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kRhythm);
  for (QPushButton* button : {cmdNew_, cmdEdit_, cmdDelete_}) buttons->addWidget(button);
  buttons->addStretch(1);
  buttons->addWidget(close);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addWidget(pages_, 1);
  page->addWidget(lblNote_);
  page->addLayout(buttons);
  resize(66 * kRhythm, 54 * kRhythm);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

// The row that was chosen stays so, or the one that took its place.
void FrmList::Fill(std::int64_t chosen) {
  const int former = std::max(0, lvList_->currentIndex().row());
  const std::vector<ListItem> items = editor_.Items();
  model_->setRowCount(0);
  int row = std::min(former, static_cast<int>(items.size()) - 1);
  for (const ListItem& item : items) {
    auto* name = new QStandardItem(ToQt(item.name));
    name->setData(static_cast<qint64>(item.key), kKeyRole);
    if (item.key == chosen) row = model_->rowCount();
    QList<QStandardItem*> cells{name};
    if (model_->columnCount() > 1) cells.append(new QStandardItem(ToQt(item.description)));
    model_->appendRow(cells);
  }
  if (row >= 0) lvList_->setCurrentIndex(model_->index(row, 0));
  if (items.empty()) {
    const ListWords& words = WordsOf(editor_.Kind());
    empty_->Show(QLatin1String(words.icon), tr(words.none), tr(words.purpose), newAction_);
  }
  pages_->setCurrentIndex(items.empty() ? 1 : 0);
  EnableButtons();
}

std::int64_t FrmList::ChosenKey() const {
  const QModelIndex index = lvList_->currentIndex();
  return index.isValid() ? index.siblingAtColumn(0).data(kKeyRole).toLongLong() : 0;
}

void FrmList::EnableButtons() {
  const bool isChosen = ChosenKey() != 0;
  cmdEdit_->setEnabled(isChosen);
  cmdDelete_->setEnabled(isChosen);
}

void FrmList::New() {
  OpenEditor(0);
}

void FrmList::Edit() {
  if (ChosenKey() != 0) OpenEditor(ChosenKey());
}

void FrmList::OpenEditor(std::int64_t key) {
  lblNote_->hide();
  RunCommand(platform_.prompts, [&] {
    const DialogResult result =
        OpenReferenceEditor(WordsOf(editor_.Kind()).editor, key, {platform_, ledger_, this});
    if (!result.isChanged) return;
    isChanged_ = true;
    Fill(result.savedKey != 0 ? result.savedKey : key);
  });
}

void FrmList::Delete() {
  const std::int64_t key = ChosenKey();
  if (key == 0) return;
  lblNote_->hide();
  RunCommand(platform_.prompts, [&] {
    const Deletion deletion = editor_.Delete(key);
    lblNote_->setText(Breakable(ToQt(deletion.Notice())));
    lblNote_->setVisible(!deletion.kept.empty());
    if (!deletion.isChanged) return;
    isChanged_ = true;
    TellBehind(*this);
    Fill(0);
  });
}

}  // namespace corvanta::inline reference
