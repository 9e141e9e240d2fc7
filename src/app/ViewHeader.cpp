#include "app/ViewHeader.h"

#include "app/search/SearchBox.h"
#include "controls/Elider.h"
#include "controls/MutedLabel.h"
#include "controls/Style.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kUsualName = 24;  // characters
}

ViewHeader::ViewHeader(QWidget* parent)
    : QWidget(parent),
      title_(new QLabel(this)),
      details_(new MutedLabel(this)),
      titleText_(new Elider(*title_)),
      detailsText_(new Elider(*details_)),
      search_(new SearchBox(this)) {
  title_->setObjectName(QStringLiteral("lblTitle"));
  title_->setFont(ScaledFont(2, QFont::DemiBold));
  title_->setTextFormat(Qt::PlainText);
  title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  details_->setObjectName(QStringLiteral("lblDetails"));
  details_->setTextFormat(Qt::PlainText);
  details_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* column = new QVBoxLayout;
  column->setSpacing(kRhythm / 4);
  column->addWidget(title_);
  column->addWidget(details_);
  line_ = new QHBoxLayout(this);
  line_->setContentsMargins(2 * kRhythm, kRhythm + kRhythm / 2, 2 * kRhythm, kRhythm);
  line_->setSpacing(kRhythm);
  line_->addLayout(column, 1);
  line_->addWidget(search_);
}

QString ViewHeader::Title() const {
  return titleText_->Text();
}

int ViewHeader::WantedWidth() const {
  const int usual = kUsualName * title_->fontMetrics().averageCharWidth();
  return std::min(title_->fontMetrics().horizontalAdvance(Title()), usual) + 5 * kRhythm +
         search_->minimumSizeHint().width();
}

void ViewHeader::Show(const QString& title, const QString& details) {
  titleText_->SetText(title);
  detailsText_->SetText(details);
  title_->setToolTip(title);
  details_->setToolTip(details);
}

void ViewHeader::AddBeside(QWidget& button) {
  if (const auto* field = search_->findChild<QLineEdit*>()) {
    button.setMinimumHeight(field->sizeHint().height());
  }
  line_->addSpacing(kRhythm);
  line_->addWidget(&button, 0, Qt::AlignTop);
}

}  // namespace corvanta::inline app
