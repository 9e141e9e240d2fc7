#pragma once

#include <QStringList>
#include <QTreeWidget>

#include <utility>
#include <vector>

namespace corvanta::inline app {

// The list of reports: those of the catalogue below "Corvanta Reports", and those that were saved.
// A click, or Enter, shows one.
class ReportList : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ReportList(QWidget* parent);

  // The saved ones, each with what it is a report of.
  void SetSaved(const std::vector<std::pair<QString, QString>>& saved);
  // Marks the report that is shown.
  void Choose(int number);

 Q_SIGNALS:
  void ReportChosen(int number);
  void SavedChosen(const QString& name);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QTreeWidgetItem* AddRoot(const QString& text);
  void AddReport(QTreeWidgetItem* root, const QString& name, const QString& what, int number);
  void Open(const QTreeWidgetItem* item);
  // What the reports answer is of second rank, in light and dark.
  void Colour();

  QTreeWidgetItem* root_;
  QTreeWidgetItem* saved_;
};

}  // namespace corvanta::inline app
