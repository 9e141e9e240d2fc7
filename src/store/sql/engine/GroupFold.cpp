#include "store/sql/engine/GroupFold.h"

#include "platform/TextCase.h"

#include <cmath>
#include <string_view>
#include <utility>

namespace corvanta::inline sql {
namespace {

using jet::FoldKind;

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Value ValueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return Value(static_cast<std::int64_t>(sqlite3_value_int64(value)));
    case SQLITE_FLOAT:
      return Value(sqlite3_value_double(value));
    default:
      return Value(TextOf(value));
  }
}

template <typename Number>
void AppendNumber(std::string& bytes, char kind, Number number) {
  bytes += kind;
  bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

void AppendText(std::string& bytes, std::string_view text) {
  AppendNumber(bytes, 't', text.size());
  bytes.append(text);
}

void Append(std::string& bytes, sqlite3_value* value) {
  constexpr double kMaxExact = 9007199254740992.0;
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      bytes += 'n';
      return;
    case SQLITE_INTEGER:
      return AppendNumber(bytes, 'i', static_cast<std::int64_t>(sqlite3_value_int64(value)));
    case SQLITE_FLOAT: {
      const double number = sqlite3_value_double(value);
      const bool isWhole = std::trunc(number) == number && std::abs(number) < kMaxExact;
      if (isWhole) return AppendNumber(bytes, 'i', static_cast<std::int64_t>(number));
      return AppendNumber(bytes, 'd', number);
    }
    default:
      AppendText(bytes, TextOf(value));
  }
}

// As the dialect sorts: numbers before texts.
bool IsLess(const Value& a, const Value& b) {
  if (a.IsText() != b.IsText()) return b.IsText();
  if (a.IsText()) return CompareFolded(a.Text(), b.Text()) < 0;
  if (a.IsInteger() && b.IsInteger()) return a.Int() < b.Int();
  return a.Double() < b.Double();
}

}  // namespace

GroupFold::GroupFold(std::size_t keys, std::vector<FoldKind> folds)
    : keys_(keys), folds_(std::move(folds)) {}

void GroupFold::Clear() {
  // With what they have taken of the memory.
  groups_ = {};
  places_ = {};
  foldedPlaces_ = {};
}

std::size_t GroupFold::PlaceOf(sqlite3_value** values) {
  bytes_.clear();
  for (std::size_t i = 0; i < keys_; ++i) Append(bytes_, values[i]);
  if (const auto known = places_.find(bytes_); known != places_.end()) return known->second;
  std::string folded;
  for (std::size_t i = 0; i < keys_; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_TEXT) {
      AppendText(folded, FoldCase(TextOf(values[i])));
    } else {
      Append(folded, values[i]);
    }
  }
  const auto [place, isNew] = foldedPlaces_.try_emplace(std::move(folded), groups_.size());
  if (isNew) {
    Group& group = groups_.emplace_back();
    for (std::size_t i = 0; i < keys_; ++i) group.keys.push_back(ValueOf(values[i]));
    group.folded.resize(folds_.size());
  }
  places_.emplace(bytes_, place->second);
  return place->second;
}

void GroupFold::Add(sqlite3_value** values) {
  Group& group = groups_[PlaceOf(values)];
  for (std::size_t i = 0; i < folds_.size(); ++i) {
    Fold(folds_[i], values[keys_ + i], group.folded[i]);
  }
}

void GroupFold::Fold(FoldKind kind, sqlite3_value* value, Folded& folded) {
  if (sqlite3_value_type(value) == SQLITE_NULL) return;
  ++folded.count;
  if (kind == FoldKind::Count) return;
  if (kind == FoldKind::Least || kind == FoldKind::Most) {
    Value next = ValueOf(value);
    const bool isBetter =
        kind == FoldKind::Least ? IsLess(next, folded.best) : IsLess(folded.best, next);
    if (folded.best.IsNull() || isBetter) folded.best = std::move(next);
    return;
  }
  folded.sum += sqlite3_value_double(value);
  if (sqlite3_value_numeric_type(value) != SQLITE_INTEGER) {
    folded.isWhole = false;
  } else if (folded.isWhole) {
    folded.isWhole =
        !__builtin_add_overflow(folded.whole, sqlite3_value_int64(value), &folded.whole);
  }
}

Value GroupFold::At(std::size_t group, std::size_t column) const {
  const Group& from = groups_.at(group);
  if (column < keys_) return from.keys[column];
  const Folded& folded = from.folded.at(column - keys_);
  switch (folds_[column - keys_]) {
    case FoldKind::Count:
      return Value(folded.count);
    case FoldKind::Least:
    case FoldKind::Most:
      return folded.best;
    case FoldKind::Sum:
      if (folded.count == 0) return {};
      return folded.isWhole ? Value(folded.whole) : Value(folded.sum);
    case FoldKind::Average:
      break;
  }
  if (folded.count == 0) return {};
  return Value(folded.sum / static_cast<double>(folded.count));
}

}  // namespace corvanta::inline sql
