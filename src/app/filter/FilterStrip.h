#pragma once

#include <QString>
#include <QWidget>

#include <array>
#include <string_view>

class QPushButton;
class QToolButton;

namespace corvanta::inline app {

class FilterChip;

// What a filter of the window is of: the five lists, the text, and the statuses of the View menu.
enum class FilterPiece { Account, Category, Payee, Investment, Keyword, Text, Status };
inline constexpr std::array kFilterPieces = {
    FilterPiece::Account, FilterPiece::Category, FilterPiece::Payee, FilterPiece::Investment,
    FilterPiece::Keyword, FilterPiece::Text,     FilterPiece::Status};
// As it stands in the names of widgets ("Account"), and as it is shown ("Accounts").
[[nodiscard]] const char* PieceName(FilterPiece piece);
[[nodiscard]] QString PieceCaption(FilterPiece piece);

// The line over a list that says what its rows are filtered by, a piece for each filter. A piece is
// a button that opens its dialog, and has one at its side that takes the filter off, as the Delete
// key does. Without a filter there is no line.
class FilterStrip : public QWidget {
  Q_OBJECT

 public:
  explicit FilterStrip(QWidget* parent);

  // The text of each piece, empty for one that filters nothing; `tips` say it in full.
  using Texts = std::array<QString, kFilterPieces.size()>;
  void Show(const Texts& texts, const Texts& tips);
  // The corner below a piece.
  [[nodiscard]] QPoint PlaceBelow(FilterPiece piece) const;
  // The button that opens the filters; where it stands is the view's.
  [[nodiscard]] QToolButton* Button() const { return cmdFilter_; }

 Q_SIGNALS:
  void Asked();
  void Chosen(FilterPiece piece);
  void Removed(FilterPiece piece);
  void Cleared();

 private:
  std::array<FilterChip*, kFilterPieces.size()> chips_;
  QPushButton* cmdClear_;
  QToolButton* cmdFilter_;
};

}  // namespace corvanta::inline app
