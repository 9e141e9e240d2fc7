#include "app/reports/WhatIfBar.h"

#include "app/filter/FilterChip.h"
#include "app/reports/FrmWhatIf.h"
#include "controls/FlowLayout.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/accounts/AccountRow.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kChipWidth = 96 * kRhythm;
}

WhatIfBar::WhatIfBar(const ViewPlace& place, QWidget* parent)
    : QWidget(parent),
      place_(place),
      line_(new FlowLayout(this)),
      cmdWhatIf_(new QPushButton(tr("&What If..."), this)) {
  setObjectName(QStringLiteral("pnlWhatIf"));
  cmdWhatIf_->setObjectName(QStringLiteral("cmdWhatIf"));
  cmdWhatIf_->setToolTip(tr("Count a payment as if it were expected. It is not stored."));
  line_->setContentsMargins(0, 0, 0, 0);
  line_->setSpacing(kRhythm);
  line_->addWidget(cmdWhatIf_);
  connect(cmdWhatIf_, &QPushButton::clicked, this,
          [this] { place_.host.Guard([this] { Ask(std::nullopt); }); });
}

void WhatIfBar::Show(const std::vector<WhatIf>& payments) {
  // The keys may be on one of them.
  if (payments == payments_) return;
  payments_ = payments;
  for (FilterChip* chip : chips_) {
    line_->removeWidget(chip);
    chip->hide();
    // It may be in the middle of its click.
    chip->deleteLater();
  }
  chips_.clear();
  for (std::size_t number = 0; number < payments_.size(); ++number) AddChip(number);
  line_->invalidate();
  updateGeometry();
}

void WhatIfBar::AddChip(std::size_t number) {
  auto* chip = new FilterChip(this);
  chip->SetCaption(QStringLiteral("WhatIf%1").arg(number), tr("What if"));
  const QString text = TextOf(payments_[number]);
  chip->Show(text, text);
  chip->setAccessibleName(chip->text());
  chip->setMaximumWidth(kChipWidth);
  chip->setMinimumHeight(cmdWhatIf_->sizeHint().height());
  if (auto* remove = chip->findChild<QToolButton*>()) {
    remove->setAccessibleName(tr("Take off: %1").arg(chip->text()));
    remove->setToolTip(tr("Count it no longer (Delete)"));
  }
  line_->addWidget(chip);
  setTabOrder(chips_.empty() ? static_cast<QWidget*>(cmdWhatIf_) : chips_.back(), chip);
  chips_.push_back(chip);
  connect(chip, &QAbstractButton::clicked, this,
          [this, number] { place_.host.Guard([this, number] { Ask(number); }); });
  connect(chip, &FilterChip::Removed, this, [this, number] { Remove(number); });
}

QString WhatIfBar::TextOf(const WhatIf& payment) const {
  const Locale& own = place_.platform.locale;
  const auto& accounts = place_.host.Accounts();
  const auto account = std::ranges::find(accounts, payment.accountId, &AccountRow::accountId);
  const QString day = ToQt(own.FormatShortDate(payment.day));
  const QString amount = ToQt(own.FormatNumber(payment.amount));
  const QString text =
      account == accounts.end()
          ? tr("%1, %2, an account that is gone").arg(day, amount)
          : tr("%1, %2 %3, %4").arg(day, amount, ToQt(account->currency), ToQt(account->account));
  return payment.text.empty() ? text : ToQt(payment.text) + QStringLiteral(", ") + text;
}

void WhatIfBar::Ask(std::optional<std::size_t> number) {
  const std::optional<WhatIf> former = number ? std::optional(payments_.at(*number)) : std::nullopt;
  FrmWhatIf dialog(former, place_.host.Accounts(), place_.platform, &place_.window);
  if (dialog.exec() != QDialog::Accepted) return;
  std::vector<WhatIf> payments = payments_;
  if (number) {
    payments[*number] = dialog.Payment();
  } else {
    payments.push_back(dialog.Payment());
  }
  Show(payments);
  if (number) chips_[*number]->setFocus();
  Q_EMIT Changed();
}

void WhatIfBar::Remove(std::size_t number) {
  std::vector<WhatIf> payments = payments_;
  payments.erase(payments.begin() + static_cast<std::ptrdiff_t>(number));
  Show(payments);
  // The keys go on to the next one, or to the button.
  QWidget* next = chips_.empty() ? static_cast<QWidget*>(cmdWhatIf_)
                                 : chips_[std::min(number, chips_.size() - 1)];
  next->setFocus();
  Q_EMIT Changed();
}

}  // namespace corvanta::inline app
