#include "notes/FrmAttachments.h"

#include "controls/CommandEdge.h"
#include "controls/DroppedFiles.h"
#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/KeywordBook.h"
#include "notes/ucPicture.h"
#include "platform/Platform.h"

#include <QAction>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QMimeData>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>

#include <algorithm>

namespace corvanta::inline notes {
FrmAttachments::FrmAttachments(std::int64_t transactionId, const NotePlace& place)
    : FormDialog(QStringLiteral("FrmAttachments"), place.platform.prompts, place.parent),
      place_(place),
      editor_(place.ledger, place.platform, transactionId),
      pages_(new QStackedWidget(this)),
      lvAttachments_(new ListTable(pages_)),
      empty_(new EmptyState(pages_)),
      model_(new QStandardItemModel(this)),
      picture_(new ucPicture(this)),
      cmbKeep_(new QComboBox(this)),
      addAction_(new QAction(tr("Attach"), this)) {
  setWindowTitle(tr("Attachments"));
  setAcceptDrops(true);
  MakeList();
  MakeLayout();
  MakeButtons();
  Run([this] { Fill(0); });
}

void FrmAttachments::MakeList() {
  const QFontMetrics metrics = fontMetrics();
  model_->setColumnCount(3);
  model_->setHorizontalHeaderLabels({tr("File"), tr("Kept"), tr("Size")});
  model_->setHeaderData(2, Qt::Horizontal, QVariant(Qt::AlignRight | Qt::AlignVCenter),
                        Qt::TextAlignmentRole);
  lvAttachments_->setObjectName(QStringLiteral("lvAttachments"));
  lvAttachments_->setAccessibleName(tr("Attachments"));
  lvAttachments_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvAttachments_->setAlternatingRowColors(true);
  lvAttachments_->setModel(model_);
  const int name = metrics.horizontalAdvance(QStringLiteral("A file of usual name.pdf"));
  const int kept = metrics.horizontalAdvance(tr("in the folder FileStore")) + 2 * kRhythm;
  const int size = metrics.horizontalAdvance(QStringLiteral("1,000.00 KiB")) + 2 * kRhythm;
  lvAttachments_->SetColumns({{name, 1, name / 2}, {kept, 0, kept / 2, 1}, {size, 0, size, 2}});
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  connect(remove, &QAction::triggered, this, &FrmAttachments::Remove);
  lvAttachments_->addAction(remove);
  connect(lvAttachments_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    EnableButtons();
    Run([this] { ShowPicture(); });
  });
  connect(lvAttachments_, &QAbstractItemView::activated, this,
          [this] { OnChosen([this](const AttachmentRecord& row) { editor_.Open(row); }); });
}

void FrmAttachments::MakeLayout() {
  pages_->addWidget(lvAttachments_);
  pages_->addWidget(empty_);
  pages_->setFrameShape(QFrame::StyledPanel);
  addAction_->setStatusTip(tr("Select a file to attach"));
  connect(addAction_, &QAction::triggered, this, &FrmAttachments::Add);
  auto* area = new QWidget(this);
  auto* row = new QHBoxLayout(area);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2 * kRhythm);
  row->addWidget(pages_, 3);
  row->addWidget(picture_, 2);
  AddAbove(area);
  for (const AttachmentMode mode :
       {AttachmentMode::Folder, AttachmentMode::Path, AttachmentMode::Inside}) {
    cmbKeep_->addItem(tr(KeptText(mode)), static_cast<int>(mode));
  }
  cmbKeep_->setCurrentIndex(cmbKeep_->findData(static_cast<int>(editor_.Keeping())));
  cmbKeep_->setToolTip(
      tr("In the data file it is encrypted and goes wherever that goes; in the folder FileStore "
         "beside the data file it is a copy that other programs can see; where it was, it is only "
         "found as long as nobody moves it."));
  AddField(tr("&Keep new files:"), cmbKeep_, "cmbKeep");
  connect(cmbKeep_, &QComboBox::activated, this, &FrmAttachments::Keep);
}

void FrmAttachments::MakeButtons() {
  auto* add = MakeButton(tr("&Attach..."), "cmdAdd");
  auto* open = MakeButton(tr("&Open"), "cmdOpen");
  auto* edit = MakeButton(tr("&Edit"), "cmdEdit");
  auto* save = MakeButton(tr("&Save As..."), "cmdSave");
  auto* remove = MakeButton(tr("&Delete"), "cmdDelete");
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  open->setDefault(true);
  open->setToolTip(tr("Open the file with the program that is for it"));
  edit->setToolTip(
      tr("Open the file to change it; of one in the data file the changes are taken back"));
  ofOne_ = {open, edit, save, remove};
  AddButtonRow({add, open, edit, save, remove}, {close});
  connect(add, &QPushButton::clicked, this, &FrmAttachments::Add);
  connect(open, &QPushButton::clicked, this,
          [this] { OnChosen([this](const AttachmentRecord& row) { editor_.Open(row); }); });
  connect(edit, &QPushButton::clicked, this,
          [this] { OnChosen([this](const AttachmentRecord& row) { editor_.Edit(row); }); });
  connect(save, &QPushButton::clicked, this, [this] {
    OnChosen([this](const AttachmentRecord& row) {
      if (editor_.SaveAs(row)) Note(tr("“%1” was saved.").arg(Shortened(ToQt(row.file))));
    });
  });
  connect(remove, &QPushButton::clicked, this, &FrmAttachments::Remove);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmAttachments::Fill(std::int64_t chosen) {
  const int former = std::max(0, lvAttachments_->currentIndex().row());
  rows_ = editor_.Attachments();
  model_->setRowCount(0);
  int place = std::min(former, static_cast<int>(rows_.size()) - 1);
  for (const AttachmentRecord& row : rows_) {
    if (row.attachmentId == chosen) place = model_->rowCount();
    const auto size = place_.ledger.Notes().Files().SizeOf(row);
    auto* name = new QStandardItem(ToQt(row.file));
    name->setToolTip(ToQt(row.path));
    auto* bytes = new QStandardItem(size ? locale().formattedDataSize(static_cast<qint64>(*size))
                                         : tr("missing"));
    bytes->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    model_->appendRow({name, new QStandardItem(tr(KeptText(ModeOf(row)))), bytes});
  }
  if (rows_.empty()) {
    empty_->Show(QStringLiteral("attachment"), tr("No file is attached"),
                 tr("Receipts, bills and contracts can be attached. Drop a file here, or select "
                    "one."),
                 addAction_);
  }
  pages_->setCurrentIndex(rows_.empty() ? 1 : 0);
  if (place >= 0) lvAttachments_->setCurrentIndex(model_->index(place, 0));
  EnableButtons();
  ShowPicture();
}

const AttachmentRecord* FrmAttachments::Chosen() const {
  const int row = lvAttachments_->currentIndex().row();
  return row < 0 || row >= static_cast<int>(rows_.size()) ? nullptr
                                                          : &rows_[static_cast<std::size_t>(row)];
}

void FrmAttachments::EnableButtons() {
  for (QPushButton* button : ofOne_) button->setEnabled(Chosen() != nullptr);
}

void FrmAttachments::ShowPicture() {
  const AttachmentRecord* row = Chosen();
  AttachedFiles files = place_.ledger.Notes().Files();
  const auto size = row == nullptr ? std::nullopt : files.SizeOf(*row);
  bool isShown = false;
  if (size && *size <= kMaxInside) {
    const std::string bytes = files.Content(*row);
    isShown = picture_->Show(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())),
                             ToQt(row->file));
  }
  if (!isShown) picture_->Clear();
  picture_->setVisible(isShown);
}

void FrmAttachments::OnChosen(const std::function<void(const AttachmentRecord&)>& command) {
  Run([&] {
    const AttachmentRecord* row = Chosen();
    if (row != nullptr) command(AttachmentRecord(*row));
  });
}

void FrmAttachments::Add() {
  Run([this] {
    if (!editor_.Add()) return;
    MarkChanged();
    Fill(editor_.Attachments().back().attachmentId);
  });
}

void FrmAttachments::AddFiles(const QStringList& paths) {
  Run([&] {
    for (const QString& path : paths) {
      if (!editor_.AddFile(FromQt(path))) break;
      MarkChanged();
      Fill(editor_.Attachments().back().attachmentId);
    }
  });
}

void FrmAttachments::Remove() {
  OnChosen([this](const AttachmentRecord& row) {
    if (!editor_.Remove(row)) return;
    MarkChanged();
    Fill(0);
  });
}

void FrmAttachments::Keep() {
  Run([this] { editor_.Keep(static_cast<AttachmentMode>(cmbKeep_->currentData().toInt())); });
}

void FrmAttachments::TakeBack() {
  RunCommand(place_.platform.prompts, [this] {
    if (!editor_.TakeBack()) return;
    MarkChanged();
    const AttachmentRecord* row = Chosen();
    Fill(row == nullptr ? 0 : row->attachmentId);
    Note(tr("What was changed is in the data file now."));
  });
}

// Whoever comes back from the other program has changed the file there.
bool FrmAttachments::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && isVisible()) TakeBack();
  return FormDialog::event(event);
}

void FrmAttachments::done(int result) {
  TakeBack();
  FormDialog::done(result);
}

void FrmAttachments::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedFiles(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void FrmAttachments::dropEvent(QDropEvent* event) {
  const QStringList paths = DroppedFiles(*event->mimeData());
  if (paths.isEmpty()) return;
  event->acceptProposedAction();
  // The program that the files come from waits until the drop is over.
  QMetaObject::invokeMethod(
      this, [this, paths] { AddFiles(paths); }, Qt::QueuedConnection);
}

}  // namespace corvanta::inline notes
