#include "notes/QtNoteButtons.h"

#include "controls/QtText.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QStringList>

namespace corvanta::inline notes {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("NoteButtons", text);
}

// "&Files..." becomes "&Files (2)..." and the other way.
void Show(QPushButton& button, const QStringList& names, const QString& purpose) {
  const QString dots = QStringLiteral("...");
  QString word = button.text().section(QStringLiteral(" ("), 0, 0);
  if (word.endsWith(dots)) word.chop(dots.size());
  const QString count = names.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(names.size());
  button.setText(word + count + dots);
  button.setToolTip(names.isEmpty() ? purpose : names.join(QStringLiteral(", ")));
}

}  // namespace

void ShowNotes(std::int64_t transactionId, QPushButton& keywords, QPushButton& files,
               clsCorvanta& ledger) {
  QStringList names;
  QStringList paths;
  if (transactionId != 0) {
    for (const KeywordRecord& row : ledger.Notes().KeywordsOf(transactionId)) {
      names.append(ToQt(row.keyword));
    }
    for (const AttachmentRecord& row : ledger.Notes().AttachmentsOf(transactionId)) {
      paths.append(ToQt(row.file));
    }
  }
  Show(keywords, names, Tr("Choose the keywords of the transaction"));
  Show(files, paths, Tr("Attach files to the transaction"));
}

}  // namespace corvanta::inline notes
