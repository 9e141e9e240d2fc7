#include "app/ViewHeader.h"

#include "app/search/SearchBox.h"
#include "controls/MutedLabel.h"
#include "controls/Style.h"

#include <QHBoxLayout>
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
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(2 * kRhythm, kRhythm + kRhythm / 2, 2 * kRhythm, kRhythm);
  line->setSpacing(kRhythm);
  line->addLayout(column, 1);
  line->addWidget(search_);
}

QString ViewHeader::Title() const {
  return name_;
}

int ViewHeader::WantedWidth() const {
  const int usual = kUsualName * title_->fontMetrics().averageCharWidth();
  return std::min(title_->fontMetrics().horizontalAdvance(name_), usual) + 5 * kRhythm +
         search_->minimumSizeHint().width();
}

void ViewHeader::Show(const QString& title, const QString& details) {
  name_ = title;
  text_ = details;
  title_->setToolTip(title);
  details_->setToolTip(details);
  Elide();
}

void ViewHeader::Elide() {
  const auto fit = [](QLabel& label, const QString& text) {
    const int width = std::max(label.contentsRect().width(), 1);
    label.setText(label.fontMetrics().elidedText(text, Qt::ElideRight, width));
  };
  fit(*title_, name_);
  fit(*details_, text_);
}

void ViewHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Elide();
}

}  // namespace corvanta::inline app
