#include "store/sql/writer/FoldWriter.h"

#include "store/sql/binder/Calls.h"
#include "store/sql/binder/ExprBinder.h"
#include "store/sql/writer/ExprWriter.h"
#include "store/sql/writer/QueryWriter.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace corvanta::jet {
namespace {

constexpr const char* kGroups = "g";

struct FoldName {
  std::string_view name;
  FoldKind kind;
};
constexpr std::array kFolds = {FoldName{"count", FoldKind::Count}, FoldName{"sum", FoldKind::Sum},
                               FoldName{"min", FoldKind::Least}, FoldName{"max", FoldKind::Most},
                               FoldName{"avg", FoldKind::Average}};

std::optional<FoldKind> FoldOf(const Expr& expr) {
  if (expr.kind != ExprKind::Call) return std::nullopt;
  for (const FoldName& fold : kFolds) {
    if (expr.call->name == fold.name && expr.call->arguments == 1) return fold.kind;
  }
  return std::nullopt;
}

std::size_t CountFolds(const Expr& expr) {
  std::size_t folds = FoldOf(expr) ? 1 : 0;
  for (const ExprPtr& arg : expr.args) folds += CountFolds(*arg);
  return folds;
}

bool HasFold(const Expr& expr) {
  return CountFolds(expr) > 0;
}

bool IsTextual(ValueType type) {
  return type == ValueType::Text || type == ValueType::Date;
}

bool Compares(const Expr& expr) {
  return expr.kind == ExprKind::Between || expr.kind == ExprKind::In ||
         (expr.kind == ExprKind::Binary && expr.op >= Word::Equal && expr.op <= Word::GreaterEqual);
}

// A column of the groups has no type for the library, which would compare a text with a number as
// what they are, where a stored column takes the other for its own kind.
bool ComparesAcross(const Expr& expr) {
  if (!Compares(expr)) return false;
  const ValueType first = AsValue(expr.args[0]->type);
  return std::ranges::any_of(expr.args, [&](const ExprPtr& arg) {
    const ValueType type = AsValue(arg->type);
    return type != ValueType::Null && first != ValueType::Null &&
           IsTextual(type) != IsTextual(first);
  });
}

// Puts columns of the groups in the place of a group's keys and of what is folded.
class Folder {
 public:
  explicit Folder(FoldedQuery& query) : query_(query) {}

  // False where the key cannot be one.
  bool AddKey(const Expr& key, bool isOfOneTable) {
    // A key of the rows has a group for each of them, in their order; joined to others it has many.
    if (key.isCounter && isOfOneTable) return false;
    if (key.type == ValueType::Bool || key.select || HasFold(key)) return false;
    query_.values.push_back(WriteValue(key).sql);
    ++query_.keys;
    return true;
  }

  // Whether nothing is left of it that belongs to no group.
  [[nodiscard]] bool Fits(const Expr& expr) const {
    if (expr.select || expr.kind == ExprKind::AllColumns) return false;
    if (KeyOf(expr)) return true;
    if (FoldOf(expr)) return expr.args.empty() || !HasFold(*expr.args[0]);
    if (expr.kind == ExprKind::Column || ComparesAcross(expr)) return false;
    return std::ranges::all_of(expr.args, [this](const ExprPtr& arg) { return Fits(*arg); });
  }

  void Replace(Expr& expr) {
    if (const auto key = KeyOf(expr)) {
      Become(expr, *key);
    } else if (const auto fold = FoldOf(expr)) {
      Become(expr, PlaceOf(expr, *fold));
    } else {
      for (const ExprPtr& arg : expr.args) Replace(*arg);
    }
  }

 private:
  [[nodiscard]] std::optional<std::size_t> KeyOf(const Expr& expr) const {
    if (expr.kind == ExprKind::Literal || HasFold(expr)) return std::nullopt;
    const auto end = query_.values.begin() + static_cast<std::ptrdiff_t>(query_.keys);
    const auto found = std::find(query_.values.begin(), end, WriteValue(expr).sql);
    if (found == end) return std::nullopt;
    return static_cast<std::size_t>(found - query_.values.begin());
  }

  // The same sum is folded once.
  std::size_t PlaceOf(const Expr& expr, FoldKind fold) {
    const bool countsRows = expr.call->kind == CallKind::CountRows;
    const std::string value = countsRows ? "1" : WriteValue(*expr.args[0]).sql;
    for (std::size_t i = query_.keys; i < query_.values.size(); ++i) {
      if (query_.values[i] == value && query_.folds[i - query_.keys] == fold) return i;
    }
    query_.values.push_back(value);
    query_.folds.push_back(fold);
    return query_.values.size() - 1;
  }

  static void Become(Expr& expr, std::size_t place) {
    Expr column;
    column.kind = ExprKind::Column;
    column.type = expr.type;
    column.token = expr.token;
    column.qualifier = kGroups;
    column.name = "c" + std::to_string(place);
    expr = std::move(column);
  }

  FoldedQuery& query_;
};

bool IsGrouped(const Select& select) {
  return !select.groupBy.empty() && select.from && !select.distinct && !select.having &&
         !select.unionWith;
}

}  // namespace

std::optional<FoldedQuery> WriteFolded(Select& select, std::size_t mostValues) {
  if (!IsGrouped(select)) return std::nullopt;
  FoldedQuery query;
  Folder folder(query);
  const bool isOfOneTable = !select.from->left;
  std::string sorted;
  for (const ExprPtr& key : select.groupBy) {
    // Behind what is asked for groups stand by their keys, as where the library groups.
    sorted += ", " + std::string(kGroups) + ".c" + std::to_string(query.keys);
    if (AsValue(key->type) == ValueType::Text) sorted.append(" COLLATE ").append(kCollation);
    if (!folder.AddKey(*key, isOfOneTable)) return std::nullopt;
  }
  std::vector<Expr*> parts;
  for (const SelectItem& item : select.items) parts.push_back(item.expr.get());
  for (const OrderItem& item : select.orderBy) {
    if (!item.position) parts.push_back(item.expr.get());
  }
  std::size_t values = query.keys;
  for (const Expr* part : parts) {
    if (!folder.Fits(*part)) return std::nullopt;
    values += CountFolds(*part);
  }
  if (values > mostValues) return std::nullopt;
  query.rows = WriteRows(select);
  for (Expr* part : parts) folder.Replace(*part);
  query.items = WriteItems(select, false);
  query.order = WriteOrder(select);
  query.order += query.order.empty() ? " ORDER BY " + sorted.substr(2) : sorted;
  if (select.top) query.order += " LIMIT " + std::to_string(*select.top);
  return query;
}

}  // namespace corvanta::jet
