#include "app/filter/FrmTextFilter.h"

#include "controls/QtText.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline app {

FrmTextFilter::FrmTextFilter(const SearchText& search, const Locale& locale, Prompts& prompts,
                             QWidget* parent)
    : FormDialog(QStringLiteral("FrmTextFilter"), prompts, parent),
      locale_(locale),
      txtSearch_(new QLineEdit(ToQt(search.text), this)),
      chkNames_(new QCheckBox(tr("In the names of &payees and categories, too"), this)) {
  setWindowTitle(tr("Search Text Filter"));
  txtSearch_->setMaxLength(100);
  txtSearch_->setClearButtonEnabled(true);
  txtSearch_->setPlaceholderText(tr("Amount, description or reference"));
  chkNames_->setChecked(!search.isTextOnly);
  AddField(tr("&Text:"), txtSearch_, "txtSearch");
  AddTick(chkNames_, "chkNames");
  auto* none = MakeButton(tr("Show &All"), "cmdDSelect");
  none->setToolTip(tr("Take the text filter off"));
  auto* accept = MakeButton(tr("&OK"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({none}, {accept, cancel});
  connect(none, &QPushButton::clicked, this, [this] {
    txtSearch_->clear();
    QDialog::accept();
  });
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  FocusFirstField();
}

SearchText FrmTextFilter::Search() const {
  return ReadSearchText(FromQt(txtSearch_->text()), !chkNames_->isChecked(), locale_);
}

}  // namespace corvanta::inline app
