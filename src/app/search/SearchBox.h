#pragma once

#include <QWidget>

#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace corvanta::inline app {

// The box in the head of a view in which a person types what they look for, what was found, and
// where both are a choice whether all accounts are searched. Enter goes on to the next, Shift and
// Enter to the one before, the arrows move in the list, Escape leaves.
class SearchBox : public QWidget {
  Q_OBJECT

 public:
  explicit SearchBox(QWidget* parent);

  // Gives it the keys, with what was looked for last, chosen so that typing replaces it.
  void Enter();
  // Types the text for the person; everywhere is in all accounts. What the person typed and ticked
  // before comes back once the box is left.
  void Find(const QString& text, bool isEverywhere);
  // Empties it without a word to anybody.
  void Clear();

  // What is looked for, without the blanks around it.
  [[nodiscard]] QString Text() const;
  [[nodiscard]] bool IsEmpty() const { return Text().isEmpty(); }
  // Offers the choice of all accounts while something is looked for.
  void OfferEverywhere() { offersEverywhere_ = true; }
  [[nodiscard]] bool IsEverywhere() const;
  // Escape leaves while that list has the keys, too, as long as something is looked for.
  void ServeList(QWidget* list);
  // Says what was found ("3 of 12").
  void ShowFound(const QString& text);

  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Entered();  // it has the keys: something is likely to be looked for
  void Typed();    // the text, or where it is looked for, is another
  void Next();
  void Previous();
  void Moved(int key);  // an arrow or a page key, for the list
  void Left();          // by Escape; it is empty

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool HandleKey(int key, Qt::KeyboardModifiers held);
  void Escape();
  void ShowBelow();
  // What the person typed is offered again.
  void KeepLast();

  QLineEdit* text_;
  QLabel* found_;
  QCheckBox* everywhere_;
  QWidget* below_;
  QString last_;                   // what was looked for before
  bool isGiven_ = false;           // the text was typed for the person
  std::optional<bool> ownChoice_;  // the tick as it was before that
  bool offersEverywhere_ = false;
};

}  // namespace corvanta::inline app
