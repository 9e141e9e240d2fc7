#include "exchange/import/FrmImport.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "exchange/csv/ucImportCsv.h"
#include "exchange/import/ucImportFile.h"
#include "exchange/import/ucImportProgress.h"
#include "exchange/import/ucImportSummary.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr int kMargin = 2 * kRhythm;
// Of the page with lists.
constexpr QSize kComfortable(112 * kRhythm, 84 * kRhythm);

Platform WithProgress(const Platform& platform, Progress& progress) {
  return {platform.registry,
          platform.locale,
          platform.clock,
          platform.machine,
          platform.files,
          platform.prompts,
          progress,
          platform.download,
          platform.opener,
          platform.spreadsheet,
          platform.profileFolder,
          platform.dataFolder};
}

}  // namespace

FrmImport::FrmImport(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : QuietEnd(parent),
      progress_(new ucImportProgress(this)),
      platform_(WithProgress(platform, *progress_)),
      editor_(ledger, platform_),
      pages_(new QStackedWidget(this)),
      lblNote_(new MutedLabel(this)) {
  setObjectName(QStringLiteral("FrmImport"));
  setWindowTitle(tr("File Import"));
  setModal(true);
  lblNote_->setObjectName(QStringLiteral("lblNote"));
  lblNote_->setTextFormat(Qt::PlainText);
  lblNote_->setWordWrap(true);
  lblNote_->hide();
  MakePages();
  buttons_ = MakeButtons();
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->setSpacing(kRhythm + kRhythm / 2);
  whole->addWidget(pages_, 1);
  whole->addWidget(lblNote_);
  whole->addWidget(buttons_);
  ShowPage(file_);
}

FrmImport::~FrmImport() = default;

void FrmImport::MakePages() {
  file_ = new ucImportFile(editor_, platform_.prompts, pages_);
  csv_ = new ucImportCsv(editor_, platform_.prompts, pages_);
  outcome_ = new ucImportSummary(pages_);
  for (QWidget* page : {static_cast<QWidget*>(file_), static_cast<QWidget*>(csv_),
                        static_cast<QWidget*>(progress_), static_cast<QWidget*>(outcome_)}) {
    pages_->addWidget(page);
  }
  connect(outcome_, &ucImportSummary::CompletionAsked, this, &FrmImport::CompleteTransfers);
  connect(file_, &ucImportFile::OwnerAsked, this, [this] {
    if (pages_->currentWidget() == file_) FitTo(*file_);
  });
  connect(csv_, &ucImportCsv::Noted, this, &FrmImport::Note);
  connect(file_, &ucImportFile::KindChanged, this, [this] {
    cmdAccept_->setText(file_->Kind() == ImportKind::Csv ? tr("&Next") : tr("&Import"));
    if (pages_->currentWidget() == file_) FitTo(*file_);
  });
}

QPushButton* FrmImport::MakeButton(const char* name, const QString& caption,
                                   void (FrmImport::*command)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  // Some styles leave no room beside a long caption.
  button->setMinimumWidth(fontMetrics().horizontalAdvance(caption) + 3 * kRhythm);
  connect(button, &QPushButton::clicked, this, command);
  return button;
}

QWidget* FrmImport::MakeButtons() {
  auto* buttons = new QWidget(this);
  cmdBack_ = MakeButton("cmdBack", tr("&Back"), &FrmImport::Back);
  cmdAccept_ = MakeButton("cmdAccept", tr("&Import"), &FrmImport::Accept);
  cmdAcceptCSV_ = MakeButton("cmdAcceptCSV", tr("Import"), &FrmImport::AcceptCsv);
  cmdClose_ = MakeButton("cmdClose", tr("C&lose"), &FrmImport::Close);
  cmdCancel_ = MakeButton("cmdCancel", tr("Cancel"), &FrmImport::reject);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  row->addWidget(cmdBack_);
  row->addStretch(1);
  row->addWidget(cmdAccept_);
  row->addWidget(cmdAcceptCSV_);
  row->addWidget(cmdClose_);
  row->addWidget(cmdCancel_);
  return buttons;
}

void FrmImport::Open(std::int64_t accountId, const std::string& file) {
  file_->Open(accountId, file);
}

void FrmImport::ShowPage(QWidget* page) {
  for (int i = 0; i < pages_->count(); ++i) {
    // The pages that are not shown do not count for the size.
    const auto policy = pages_->widget(i) == page ? QSizePolicy::Preferred : QSizePolicy::Ignored;
    pages_->widget(i)->setSizePolicy(policy, policy);
  }
  pages_->setCurrentWidget(page);
  buttons_->setVisible(page != progress_);
  cmdBack_->setVisible(page == csv_ || (page == outcome_ && summary_.BroughtNothing()));
  cmdAccept_->setVisible(page == file_);
  cmdAcceptCSV_->setVisible(page == csv_);
  cmdClose_->setVisible(page == outcome_);
  cmdCancel_->setVisible(page == file_ || page == csv_);
  for (QPushButton* button : {cmdAccept_, cmdAcceptCSV_, cmdClose_}) {
    if (!button->isHidden()) button->setDefault(true);
  }
  FitTo(*page);
}

void FrmImport::FitTo(QWidget& page) {
  const QSize room = screen()->availableSize() - QSize(4 * kRhythm, 6 * kRhythm);
  // What was shown or hidden in the page is not yet known to the layouts around it.
  page.layout()->activate();
  pages_->updateGeometry();
  layout()->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout()->invalidate();
  layout()->activate();
  const QSize least = layout()->totalMinimumSize();
  if (least.width() > room.width() || least.height() > room.height()) {
    constexpr int kNarrow = kRhythm / 2;
    layout()->setContentsMargins(kNarrow, kNarrow, kNarrow, kNarrow);
    layout()->activate();
  }
  QSize size = layout()->sizeHint();
  if (&page == csv_) size = size.expandedTo(kComfortable);
  // The moment of an import is too short for a dialog that shrinks and grows again.
  if (&page == progress_) size = size.expandedTo(this->size());
  resize(size.boundedTo(room));
  if (!isVisible()) return;
  // A page that is larger than the one before must not reach below the screen.
  const QRect free = screen()->availableGeometry().adjusted(kRhythm, kRhythm, -kRhythm, -kRhythm);
  const int right = std::max(free.right() - frameSize().width(), free.left());
  const int bottom = std::max(free.bottom() - frameSize().height(), free.top());
  move(std::clamp(x(), free.left(), right), std::clamp(y(), free.top(), bottom));
}

void FrmImport::Note(const QString& text) {
  lblNote_->setText(text);
  lblNote_->setVisible(!text.isEmpty());
}

void FrmImport::FocusOn(const std::string& field) {
  auto* widget = findChild<QWidget*>(ToQt(field));
  if (widget == nullptr) return;
  widget->setFocus(Qt::OtherFocusReason);
  auto* line = qobject_cast<QLineEdit*>(widget);
  if (const auto* box = qobject_cast<QComboBox*>(widget)) line = box->lineEdit();
  if (line != nullptr) line->selectAll();
}

void FrmImport::Warn(const Warning& warning) {
  platform_.prompts.Tell(warning.title, warning.text, Icon::Information);
  FocusOn(warning.field);
}

void FrmImport::Accept() {
  Note({});
  RunCommand(platform_.prompts, [this] {
    file_->ReadInto(form_);
    if (const auto warning = editor_.Check(form_)) return Warn(*warning);
    if (editor_.Kind() != ImportKind::Csv) return Import();
    if (proposedFor_ == form_.file) {
      // It may have been changed since; what was chosen for it stays.
      csv_->ReadInto(form_);
      if (const auto warning = editor_.Open(form_.file, form_.encoding)) return Warn(*warning);
      csv_->Refresh();
    } else {
      csv_->Propose(form_);
      proposedFor_ = form_.file;
    }
    ShowPage(csv_);
    FocusOn("cmbColDate");
  });
}

void FrmImport::AcceptCsv() {
  Note({});
  RunCommand(platform_.prompts, [this] {
    csv_->ReadInto(form_);
    if (const auto warning = editor_.CheckCsv(form_)) return Warn(*warning);
    Import();
  });
}

void FrmImport::Back() {
  Note({});
  const bool toColumns = pages_->currentWidget() == outcome_ && from_ == csv_;
  ShowPage(toColumns ? static_cast<QWidget*>(csv_) : file_);
  FocusOn(toColumns ? "cmbColDate" : "txtFile");
}

void FrmImport::Import() {
  from_ = pages_->currentWidget();
  ShowPage(progress_);
  progress_->Begin(QFileInfo(ToQt(form_.file)).fileName());
  isBusy_ = true;
  summary_ = {};
  const bool isDone = RunCommand(platform_.prompts, [this] { summary_ = editor_.Import(form_); });
  isBusy_ = false;
  isChanged_ = isChanged_ || summary_.HasChanged();
  if (!isDone) return ReturnFrom(summary_);
  if (summary_.HasChanged()) account_ = summary_.AccountToShow(form_.accountId.value_or(0));
  ShowOutcome(summary_);
}

void FrmImport::CompleteTransfers() {
  Note({});
  RunCommand(platform_.prompts, [this] {
    const std::size_t made = editor_.CompleteTransfers(summary_);
    outcome_->Show(summary_, QFileInfo(ToQt(form_.file)).fileName());
    Note(tr("Other halves made: %1. Edit, Undo takes them back.").arg(made));
    FitTo(*outcome_);
    cmdClose_->setFocus();
  });
}

void FrmImport::ShowOutcome(const ImportSummary& summary) {
  const bool isInVain = summary.outcome == ImportOutcome::Refused ||
                        summary.outcome == ImportOutcome::Dropped ||
                        (summary.BroughtNothing() && !summary.stop.empty());
  if (isInVain) {
    ReturnFrom(summary);
    editor_.Finish(summary);
    return;
  }
  outcome_->Show(summary, QFileInfo(ToQt(form_.file)).fileName());
  ShowPage(outcome_);
  cmdClose_->setFocus();
}

void FrmImport::ReturnFrom(const ImportSummary& summary) {
  const bool isFromColumns = from_ == csv_;
  ShowPage(from_);
  const bool lacksAccount = form_.accountId == std::optional<std::int64_t>(0);
  FocusOn(isFromColumns ? "cmbColDate" : lacksAccount ? "cmbAccount" : "txtFile");
  Note(ToQt(summary.outcome == ImportOutcome::Dropped ? summary.stop + " Nothing was imported."
                                                      : summary.stop));
}

void FrmImport::Close() {
  RunCommand(platform_.prompts, [this] { editor_.Finish(summary_); });
  accept();
}

void FrmImport::reject() {
  if (isBusy_) return progress_->Stop();
  if (pages_->currentWidget() == outcome_) return Close();
  QDialog::reject();
}

}  // namespace corvanta::inline exchange
