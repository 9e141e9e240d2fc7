#pragma once

#include "controls/FormDialog.h"
#include "notes/KeywordChoice.h"
#include "notes/NoteDialogs.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace corvanta::inline notes {

// The keywords of one transaction or of several, each with a tick. What is typed above the list
// narrows it down, and Enter ticks what is left, or a keyword that is new.
class FrmKeywordChoice : public FormDialog {
  Q_OBJECT

 public:
  FrmKeywordChoice(KeywordChoice choice, const NotePlace& place);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeLayout();
  void Fill();
  void AddItem(const QString& name, Qt::CheckState state);
  void Narrow();
  // The keyword in the line, ticked or made; the line is empty then.
  void Add();
  void Accept();
  // Whether the ticks may be dropped: none was changed, or the person says so.
  [[nodiscard]] bool MayLeave();
  [[nodiscard]] QListWidgetItem* Find(const QString& name) const;
  [[nodiscard]] QStringList Ticks() const;

  KeywordChoice choice_;
  NotePlace place_;
  QStringList before_;
  QLineEdit* txtKeyword_;
  QListWidget* lvKeywords_;
};

}  // namespace corvanta::inline notes
