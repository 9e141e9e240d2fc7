#include "app/secrets/FrmRecoveryKey.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/datafile/InstallationKey.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr int kGroupsPerLine = 5;
constexpr int kSmallestWidth = 48 * kRhythm;

// The key's groups in lines short enough to be read off and typed.
QString InLines(const QString& key) {
  const QStringList groups = key.split(u'-');
  QStringList lines;
  for (qsizetype first = 0; first < groups.size(); first += kGroupsPerLine) {
    lines.append(groups.mid(first, kGroupsPerLine).join(u'-'));
  }
  return lines.join(u'\n');
}

QFont KeyFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(ScaledFont(2).pointSizeF());
  return font;
}

}  // namespace

FrmRecoveryKey::FrmRecoveryKey(Platform& platform, const std::string& password, QWidget* parent,
                               PrinterChoice choose)
    : QuietEnd(parent),
      platform_(platform),
      choose_(std::move(choose)),
      key_(ToQt(RecoveryKeyFromPassword(password))),
      txtKey_(new QPlainTextEdit(InLines(key_), this)) {
  setObjectName(QStringLiteral("FrmRecoveryKey"));
  setWindowTitle(tr("Recovery Key"));
  auto* title = new QLabel(tr("Keep this key in a safe place"), this);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  auto* text = new MutedLabel(this);
  text->setText(
      tr("Your data file is encrypted. On another machine, or after the settings are "
         "lost, only this key opens it. Whoever has the key and the file can read your "
         "accounts, so keep the two apart."));
  text->setWordWrap(true);
  txtKey_->setObjectName(QStringLiteral("txtKey"));
  txtKey_->setAccessibleName(tr("Recovery key"));
  txtKey_->setReadOnly(true);
  txtKey_->setFont(KeyFont());
  txtKey_->setTabChangesFocus(true);
  txtKey_->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtKey_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  txtKey_->document()->setDocumentMargin(kRhythm);
  const QFontMetrics metrics(txtKey_->font());
  const QString lines = txtKey_->toPlainText();
  const int frame = 2 * kRhythm + 2 * txtKey_->frameWidth();
  txtKey_->setFixedHeight(static_cast<int>(lines.count(u'\n') + 1) * metrics.lineSpacing() + frame +
                          kRhythm / 2);
  txtKey_->setMinimumWidth(std::max(
      kSmallestWidth, metrics.horizontalAdvance(lines.section(u'\n', 0, 0)) + frame + kRhythm));

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  auto* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
  auto* save = buttons->addButton(tr("&Save to File..."), QDialogButtonBox::ActionRole);
  auto* print = buttons->addButton(tr("&Print..."), QDialogButtonBox::ActionRole);
  print->setObjectName(QStringLiteral("cmdPrint"));
  print->setIcon(SvgIcon(QStringLiteral("print")));
  copy->setObjectName(QStringLiteral("cmdCopy"));
  copy->setIcon(SvgIcon(QStringLiteral("copy")));
  save->setObjectName(QStringLiteral("cmdSave"));
  save->setIcon(SvgIcon(QStringLiteral("save")));
  buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("cmdClose"));
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addWidget(title);
  page->addWidget(text);
  page->addWidget(txtKey_);
  page->addWidget(buttons);
  connect(copy, &QPushButton::clicked, this, &FrmRecoveryKey::Copy);
  connect(save, &QPushButton::clicked, this, &FrmRecoveryKey::Save);
  connect(print, &QPushButton::clicked, this, &FrmRecoveryKey::Print);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void FrmRecoveryKey::Print() {
  constexpr double kReadable = 14;  // points
  PrintTable sheet;
  sheet.title = "Corvanta Recovery Key";
  sheet.columns = {{"Keep this sheet in a safe place, apart from the data file", width()}};
  for (const QString& line : txtKey_->toPlainText().split(u'\n')) {
    sheet.rows.push_back({FromQt(line)});
  }
  sheet.font.size = kReadable;
  RunCommand(platform_.prompts, [&] { PrintList(sheet, {platform_, this, choose_}); });
}

void FrmRecoveryKey::Copy() {
  QGuiApplication::clipboard()->setText(key_);
}

void FrmRecoveryKey::Save() {
  RunCommand(platform_.prompts, [this] {
    const auto path = platform_.prompts.SaveFile(
        {"Save Recovery Key", "Text Files", "*.txt", "txt", std::string()});
    if (path) platform_.files.Save(*path, FromQt(key_) + "\n", FormerFile::Replace);
  });
}

}  // namespace corvanta::inline app
