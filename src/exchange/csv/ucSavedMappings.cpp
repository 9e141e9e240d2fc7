#include "exchange/csv/ucSavedMappings.h"

#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "exchange/csv/SavedMappings.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace corvanta::inline exchange {

ucSavedMappings::ucSavedMappings(SavedMappings& mappings, Prompts& prompts, std::string title,
                                 Save save, QWidget* parent)
    : QWidget(parent),
      mappings_(mappings),
      prompts_(prompts),
      title_(std::move(title)),
      save_(std::move(save)),
      cmbMapping_(new QComboBox(this)),
      cmdDelete_(new QPushButton(tr("De&lete"), this)) {
  auto* keep = new QPushButton(tr("&Save As..."), this);
  keep->setObjectName(QStringLiteral("cmdSaveMapping"));
  keep->setToolTip(tr("Save what is chosen here under a name"));
  cmdDelete_->setObjectName(QStringLiteral("cmdDeleteMapping"));
  cmdDelete_->setToolTip(tr("Delete the saved mapping"));
  cmbMapping_->setObjectName(QStringLiteral("cmbMapping"));
  cmbMapping_->setAccessibleName(tr("Saved mapping"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  row->addWidget(cmbMapping_, 1);
  row->addWidget(keep);
  row->addWidget(cmdDelete_);
  setFocusProxy(cmbMapping_);
  connect(cmbMapping_, &QComboBox::activated, this, &ucSavedMappings::Choose);
  connect(keep, &QPushButton::clicked, this, &ucSavedMappings::SaveAs);
  connect(cmdDelete_, &QPushButton::clicked, this, &ucSavedMappings::Delete);
}

void ucSavedMappings::ShowNames(const std::string& chosen) {
  cmbMapping_->clear();
  cmbMapping_->addItem(tr("None"));
  for (const std::string& name : mappings_.Names()) cmbMapping_->addItem(ToQt(name));
  const int index = chosen.empty() ? 0 : cmbMapping_->findText(ToQt(chosen), Qt::MatchFixedString);
  cmbMapping_->setCurrentIndex(std::max(0, index));
  cmdDelete_->setEnabled(index > 0);
}

void ucSavedMappings::Choose(int index) {
  cmdDelete_->setEnabled(index > 0);
  if (index > 0) Q_EMIT Chosen(cmbMapping_->itemText(index));
}

bool ucSavedMappings::MayReplace(const std::string& name) {
  if (cmbMapping_->findText(ToQt(name).trimmed(), Qt::MatchFixedString) <= 0) return true;
  return prompts_.Ask(title_,
                      "There is a mapping named \"" + name + "\". Do you wish to replace it?");
}

void ucSavedMappings::SaveAs() {
  RunCommand(prompts_, [this] {
    std::string name;
    for (;;) {
      const auto typed = prompts_.AskText(title_, "Name of the mapping:", false, name);
      if (!typed) return;
      name = *typed;
      if (MayReplace(name) && SaveUnder(name)) return;
    }
  });
}

bool ucSavedMappings::SaveUnder(const std::string& name) {
  if (const auto warning = save_(name)) {
    prompts_.Tell(warning->title, warning->text);
    if (warning->field == "cmbMapping") return false;
    if (auto* field = window()->findChild<QWidget*>(ToQt(warning->field))) field->setFocus();
    return true;
  }
  const QString saved = ToQt(name).trimmed();
  ShowNames(FromQt(saved));
  Q_EMIT Noted(tr("The mapping “%1” was saved.").arg(saved));
  return true;
}

void ucSavedMappings::Delete() {
  RunCommand(prompts_, [this] {
    const QString name = cmbMapping_->currentText();
    if (!prompts_.Ask(title_, "Do you wish to delete the mapping \"" + FromQt(name) + "\"?")) {
      return;
    }
    mappings_.Remove(FromQt(name));
    ShowNames({});
    cmbMapping_->setFocus();
    Q_EMIT Noted(tr("The mapping “%1” was deleted.").arg(name));
  });
}

}  // namespace corvanta::inline exchange
