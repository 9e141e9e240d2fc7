#include "exchange/import/ucImportSummary.h"

#include "controls/ListTable.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr int kTextWidth = 56 * kRhythm;
constexpr int kLongestName = 26;  // characters
constexpr int kMaxRows = 10;
constexpr int kWidestList = 84 * kRhythm;

QString Headline(const ImportSummary& summary, const QString& file) {
  if (summary.BroughtNothing()) {
    return ucImportSummary::tr("Nothing was imported from %1").arg(file);
  }
  return summary.outcome == ImportOutcome::Complete
             ? ucImportSummary::tr("%1 was imported").arg(file)
             : ucImportSummary::tr("%1 was imported in part").arg(file);
}

}  // namespace

ucImportSummary::ucImportSummary(QWidget* parent)
    : QWidget(parent),
      lblSummary_(new QLabel(this)),
      lblStop_(new MutedLabel(this)),
      figures_(new QFormLayout),
      cmdComplete_(new QPushButton(tr("&Make the Other Halves"), this)),
      problemsArea_(new QWidget(this)),
      problems_(new QStandardItemModel(this)) {
  lblSummary_->setObjectName(QStringLiteral("lblSummary"));
  lblSummary_->setTextFormat(Qt::PlainText);
  lblSummary_->setFont(ScaledFont(1, QFont::DemiBold));
  lblStop_->setObjectName(QStringLiteral("lblStop"));
  lblStop_->setTextFormat(Qt::PlainText);
  lblStop_->setWordWrap(true);
  lblStop_->setMinimumWidth(kTextWidth);
  figures_->setVerticalSpacing(kRhythm / 2);
  figures_->setHorizontalSpacing(3 * kRhythm);
  figures_->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  cmdComplete_->setObjectName(QStringLiteral("cmdComplete"));
  cmdComplete_->setToolTip(tr("Enter each of these transfers in the other account, too"));
  cmdComplete_->setAutoDefault(false);
  connect(cmdComplete_, &QPushButton::clicked, this, &ucImportSummary::CompletionAsked);
  auto* completion = new QHBoxLayout;
  completion->addWidget(cmdComplete_);
  completion->addStretch(1);
  MakeProblems();
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addWidget(lblSummary_);
  page->addWidget(lblStop_);
  page->addLayout(figures_);
  page->addLayout(completion);
  page->addWidget(problemsArea_, 1);
  page->addStretch(0);
}

void ucImportSummary::MakeProblems() {
  lblProblems_ = new QLabel(problemsArea_);
  lblProblems_->setObjectName(QStringLiteral("lblProblems"));
  lblProblems_->setFont(ScaledFont(0, QFont::DemiBold));
  lvProblems_ = new ListTable(problemsArea_);
  lvProblems_->setObjectName(QStringLiteral("lvProblems"));
  lvProblems_->setAccessibleName(tr("Not understood or left out"));
  lvProblems_->setModel(problems_);
  lvProblems_->setAlternatingRowColors(true);
  lvProblems_->setFrameShape(QFrame::StyledPanel);
  auto* copy = new QPushButton(tr("&Copy"), problemsArea_);
  copy->setObjectName(QStringLiteral("cmdCopy"));
  copy->setToolTip(tr("Copy the summary and all these lines"));
  auto* head = new QHBoxLayout;
  head->addWidget(lblProblems_, 1);
  head->addWidget(copy);
  auto* lines = new QVBoxLayout(problemsArea_);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRhythm);
  lines->addLayout(head);
  lines->addWidget(lvProblems_, 1);
  QWidget::setTabOrder(lvProblems_, copy);
  auto* chosen = new QShortcut(QKeySequence::Copy, lvProblems_);
  chosen->setContext(Qt::WidgetShortcut);
  connect(chosen, &QShortcut::activated, this, &ucImportSummary::CopyChosen);
  connect(copy, &QPushButton::clicked, this, &ucImportSummary::CopyAll);
}

void ucImportSummary::Show(const ImportSummary& summary, const QString& file) {
  summary_ = summary;
  const QFontMetrics metrics = lblSummary_->fontMetrics();
  const QString name =
      metrics.elidedText(file, Qt::ElideMiddle, kLongestName * metrics.averageCharWidth());
  lblSummary_->setText(Headline(summary, name));
  lblSummary_->setMinimumWidth(std::max(kTextWidth, lblSummary_->sizeHint().width()));
  lblStop_->setText(ToQt(summary.stop));
  lblStop_->setVisible(!summary.stop.empty());
  lblStop_->setMinimumHeight(std::max(0, lblStop_->heightForWidth(kTextWidth)));
  ShowFigures();
  ShowProblems();
}

QLabel* ucImportSummary::AddFigure(const char* name, const QString& label, std::size_t count) {
  const QString number = QLocale().toString(static_cast<qulonglong>(count));
  auto* figure = new QLabel(number, this);
  figure->setObjectName(QLatin1String(name));
  figure->setAccessibleName(label + u' ' + number);
  figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  figure->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000,000")));
  auto* caption = new QLabel(label, this);
  caption->setTextFormat(Qt::PlainText);
  figures_->addRow(caption, figure);
  return caption;
}

// Of a file of many accounts the first few; the text that is copied has them all.
void ucImportSummary::AddAccounts() {
  constexpr std::size_t kMax = 6;
  const std::size_t shown = std::min(summary_.accounts.size(), kMax);
  std::size_t rest = 0;
  for (std::size_t i = 0; i < summary_.accounts.size(); ++i) {
    const ImportedAccount& account = summary_.accounts[i];
    if (i >= shown) {
      rest += account.transactions;
      continue;
    }
    const QString name = fontMetrics().elidedText(ToQt(account.name), Qt::ElideMiddle,
                                                  kLongestName * fontMetrics().averageCharWidth());
    const QString text = account.transactions == 0 ? tr("   New account %1")
                         : account.isNew           ? tr("   Into the new account %1")
                                                   : tr("   Into %1");
    QLabel* caption = AddFigure("lblIntoAccount", text.arg(name), account.transactions);
    caption->setToolTip(ToQt(account.name));
  }
  if (rest > 0) {
    AddFigure("lblIntoOthers", tr("   Into %1 more accounts").arg(summary_.accounts.size() - shown),
              rest);
  }
}

void ucImportSummary::ShowFigures() {
  while (figures_->rowCount() > 0) figures_->removeRow(0);
  AddFigure("lblImported", tr("Transactions imported"), summary_.imported);
  AddFigure("lblInvestments", tr("Investment transactions imported"), summary_.investments);
  AddAccounts();
  AddFigure("lblDuplicates", tr("Duplicates skipped"), summary_.duplicates);
  AddFigure("lblTransfers", tr("Transfers paired"), summary_.transfers);
  // What most files have not is not worth a line of noughts.
  if (summary_.loneHalves > 0) {
    AddFigure("lblLoneHalves", tr("Transfers without their other half"), summary_.loneHalves);
  }
  if (summary_.splitTransfers > 0) {
    AddFigure("lblSplitTransfers", tr("Split lines that name an account"), summary_.splitTransfers);
  }
  if (summary_.unequalSplits > 0) {
    AddFigure("lblUnequalSplits", tr("Splits that differ from their total; their lines were taken"),
              summary_.unequalSplits);
  }
  if (summary_.shortened > 0) {
    AddFigure("lblShortened", tr("Texts shortened"), summary_.shortened);
  }
  cmdComplete_->setVisible(!summary_.completable.empty());
}

void ucImportSummary::ShowProblems() {
  problems_->clear();
  problems_->setHorizontalHeaderLabels({tr("Line"), tr("What is wrong")});
  const auto right = Qt::AlignRight | Qt::AlignVCenter;
  problems_->horizontalHeaderItem(0)->setTextAlignment(right);
  problems_->horizontalHeaderItem(1)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  const auto add = [&](const QString& line, const QString& text) {
    auto* number = new QStandardItem(line);
    number->setTextAlignment(right);
    auto* what = new QStandardItem(text.simplified());
    what->setToolTip(text);
    problems_->appendRow({number, what});
  };
  for (const ImportProblem& problem : summary_.problems) {
    add(problem.line == 0 ? QString() : QString::number(problem.line), ToQt(problem.text));
  }
  const std::size_t more = summary_.problemCount - summary_.problems.size();
  if (more > 0) add({}, tr("and %1 more").arg(more));
  const int line = fontMetrics().horizontalAdvance(QStringLiteral("0,000,000")) + 4 * kRhythm;
  int text = 0;
  for (int row = 0; row < problems_->rowCount(); ++row) {
    text = std::max(text, fontMetrics().horizontalAdvance(problems_->item(row, 1)->text()));
  }
  const int shown = std::min(problems_->rowCount(), kMaxRows);
  lvProblems_->setMinimumHeight((shown + 2) * lvProblems_->verticalHeader()->defaultSectionSize());
  lvProblems_->setMinimumWidth(std::min(line + text + 8 * kRhythm, kWidestList));
  lvProblems_->SetWidths({});
  lvProblems_->SetColumns({{line, 0}, {text + 4 * kRhythm, 1}});
  lblProblems_->setText(tr("Not understood or left out: %1").arg(summary_.problemCount));
  problemsArea_->setVisible(summary_.problemCount > 0);
  if (summary_.problemCount > 0) lvProblems_->selectRow(0);
}

void ucImportSummary::CopyChosen() const {
  QStringList lines;
  for (const QModelIndex& row : lvProblems_->selectionModel()->selectedRows()) {
    const QString line = row.data().toString();
    const QString text = row.siblingAtColumn(1).data().toString();
    lines.append(line.isEmpty() ? text : line + u'\t' + text);
  }
  QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void ucImportSummary::CopyAll() const {
  QGuiApplication::clipboard()->setText(ToQt(summary_.Text(summary_.problems.size())));
}

}  // namespace corvanta::inline exchange
