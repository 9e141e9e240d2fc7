#include "app/filter/FilterStrip.h"

#include "app/filter/FilterChip.h"
#include "controls/FlowLayout.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QPushButton>
#include <QToolButton>

namespace corvanta::inline app {

const char* PieceName(FilterPiece piece) {
  static constexpr std::array kNames = {"Account", "Category", "Payee", "Investment",
                                        "Keyword", "Text",     "Status"};
  return kNames.at(static_cast<std::size_t>(piece));
}

QString PieceCaption(FilterPiece piece) {
  switch (piece) {
    case FilterPiece::Account:
      return FilterStrip::tr("Accounts");
    case FilterPiece::Category:
      return FilterStrip::tr("Categories");
    case FilterPiece::Payee:
      return FilterStrip::tr("Payees");
    case FilterPiece::Investment:
      return FilterStrip::tr("Investments");
    case FilterPiece::Keyword:
      return FilterStrip::tr("Keywords");
    case FilterPiece::Text:
      return FilterStrip::tr("Text");
    case FilterPiece::Status:
      return FilterStrip::tr("Status");
  }
  return {};
}

FilterStrip::FilterStrip(QWidget* parent) : QWidget(parent), cmdFilter_(new QToolButton(parent)) {
  setObjectName(QStringLiteral("pnlFilterStrip"));
  setAccessibleName(tr("What the list is filtered by"));
  auto* line = new FlowLayout(this);
  line->setContentsMargins(2 * kRhythm, 0, 2 * kRhythm, kRhythm);
  line->setSpacing(kRhythm / 2);
  for (const FilterPiece piece : kFilterPieces) {
    auto* chip = new FilterChip(this);
    chip->SetCaption(QLatin1String(PieceName(piece)), PieceCaption(piece));
    connect(chip, &QAbstractButton::clicked, this, [this, piece] { Q_EMIT Chosen(piece); });
    connect(chip, &FilterChip::Removed, this, [this, piece] { Q_EMIT Removed(piece); });
    chips_.at(static_cast<std::size_t>(piece)) = chip;
    line->addWidget(chip);
  }
  cmdClear_ = new QPushButton(tr("Clear All"), this);
  cmdClear_->setObjectName(QStringLiteral("cmdClearFilters"));
  cmdClear_->setToolTip(tr("Take all of these filters off"));
  cmdClear_->setFlat(true);
  connect(cmdClear_, &QPushButton::clicked, this, &FilterStrip::Cleared);
  line->addWidget(cmdClear_);
  cmdFilter_->setObjectName(QStringLiteral("cmdFilter"));
  cmdFilter_->setAccessibleName(tr("Filters"));
  cmdFilter_->setToolTip(tr("Choose what the list shows: accounts, categories, payees ..."));
  cmdFilter_->setIcon(SvgIcon(QStringLiteral("filter")));
  cmdFilter_->setFocusPolicy(Qt::StrongFocus);
  connect(cmdFilter_, &QAbstractButton::clicked, this, &FilterStrip::Asked);
  hide();
}

QPoint FilterStrip::PlaceBelow(FilterPiece piece) const {
  return chips_.at(static_cast<std::size_t>(piece))->geometry().bottomLeft();
}

void FilterStrip::Show(const Texts& texts, const Texts& tips) {
  int shown = 0;
  for (std::size_t piece = 0; piece < chips_.size(); ++piece) {
    chips_.at(piece)->Show(texts.at(piece), tips.at(piece));
    if (!texts.at(piece).isEmpty()) ++shown;
  }
  // One piece has its own way out.
  cmdClear_->setVisible(shown > 1);
  setVisible(shown > 0);
  layout()->invalidate();
  updateGeometry();
}

}  // namespace corvanta::inline app
