#include "store/jet/QueryWriter.h"

#include "platform/TextCase.h"
#include "store/jet/Functions.h"
#include "store/jet/JoinWriter.h"
#include "store/jet/Lexer.h"

namespace corvanta::jet {
namespace {

// A column of the result before it has its final name.
struct ResultColumn {
  std::string sql;
  std::string name;
  std::string qualifier;  // of a column read as it stands
  ValueType type = ValueType::Null;
  ColumnKind kind = ColumnKind::Memo;
};

class SelectWriter {
 public:
  SelectWriter(const WriterContext& context, const Select& select, const Scope* outer)
      : context_(context), select_(select), scope_(outer), writer_(context, scope_) {}

  // Without ORDER BY and TOP, which belong to a whole union.
  std::string WriteBody(bool foldTexts) {
    const std::string from = select_.from ? WriteSources() : std::string();
    CollectColumns();
    NameColumns();
    std::string sql = select_.distinct ? "SELECT DISTINCT " : "SELECT ";
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (i > 0) sql += ", ";
      sql += columns_[i].sql;
      const bool text = columns_[i].type == ValueType::Text;
      if (text && (foldTexts || select_.distinct)) sql += std::string(" COLLATE ") + kCollation;
      sql += " AS " + QuoteName(columns_[i].name);
    }
    sql += from;
    WriteFilters(sql);
    return sql;
  }

  std::string WriteOrder() const {
    std::string sql;
    for (const OrderItem& item : select_.orderBy) {
      sql += sql.empty() ? " ORDER BY " : ", ";
      sql += (select_.unionWith ? UnionKey(*item.expr) : Key(*item.expr)) +
             (item.descending ? " DESC" : "");
    }
    return sql;
  }

  [[nodiscard]] std::vector<ScopeColumn> Columns() const {
    std::vector<ScopeColumn> columns;
    for (const ResultColumn& column : columns_) {
      columns.push_back({column.name, column.type, column.kind});
    }
    return columns;
  }

 private:
  std::string WriteSources() {
    WrittenSources sources = WriteFrom(context_, *select_.from, scope_);
    filters_ = std::move(sources.filters);
    return " FROM " + sources.sql;
  }

  void CollectColumns() {
    for (const SelectItem& item : select_.items) {
      const Expr& expr = *item.expr;
      if (expr.kind == ExprKind::AllColumns) {
        AddAll(expr);
        continue;
      }
      const Written value = writer_.WriteValue(expr);
      ResultColumn column{value.sql, item.alias, {}, value.type, KindOf(value.type)};
      if (value.strength < Strength::Collate) column.sql = "(" + value.sql + ")";
      if (expr.kind == ExprKind::Column) NameAfter(expr, column);
      columns_.push_back(std::move(column));
    }
  }

  // A column that is read as it stands keeps its kind, and its name unless it is given another.
  void NameAfter(const Expr& expr, ResultColumn& column) const {
    ResolvedColumn found;
    if (scope_.Resolve(expr.qualifier, expr.name, found) != Scope::Result::Found) return;
    column.kind = found.column->kind;
    if (!column.name.empty()) return;
    column.name = found.column->name;
    column.qualifier = found.source->name;
  }

  void AddAll(const Expr& expr) {
    const ScopeSource* only = nullptr;
    if (!expr.qualifier.empty()) {
      only = scope_.Find(expr.qualifier);
      if (only == nullptr) writer_.Fail(expr, "there is no table " + expr.qualifier);
    }
    if (scope_.Sources().empty()) writer_.Fail(expr, "a star needs a table");
    for (const ScopeSource& source : scope_.Sources()) {
      if (only != nullptr && only != &source) continue;
      for (const ScopeColumn& column : source.columns) {
        columns_.push_back({QuoteName(source.name) + "." + QuoteName(column.name), column.name,
                            source.name, column.type, column.kind});
      }
    }
  }

  // Columns of several tables that share a name carry their table's name before it; an expression
  // without a name is called after its place.
  void NameColumns() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      ResultColumn& column = columns_[i];
      if (column.name.empty()) column.name = "Expr" + std::to_string(1000 + i);
      bool shared = false;
      for (std::size_t j = 0; j < columns_.size() && !column.qualifier.empty(); ++j) {
        shared = shared || (j != i && !columns_[j].qualifier.empty() &&
                            EqualFolded(columns_[j].name, column.name) &&
                            !EqualFolded(columns_[j].qualifier, column.qualifier));
      }
      names.push_back(shared ? column.qualifier + "." + column.name : column.name);
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].name = names[i];
  }

  void WriteFilters(std::string& sql) const {
    std::string where = filters_;
    if (select_.where) {
      const Written condition = writer_.Write(*select_.where);
      if (where.empty()) {
        where = condition.sql;
      } else {
        where += " AND " + Hold(condition, Strength::Not);
      }
    }
    if (!where.empty()) sql += " WHERE " + where;
    for (std::size_t i = 0; i < select_.groupBy.size(); ++i) {
      sql += (i == 0 ? " GROUP BY " : ", ") + writer_.WriteSortKey(*select_.groupBy[i]);
    }
    if (select_.having) sql += " HAVING " + writer_.Write(*select_.having).sql;
  }

  std::string Key(const Expr& expr) const {
    ResolvedColumn found;
    if (expr.kind == ExprKind::Column && expr.qualifier.empty() &&
        scope_.Resolve({}, expr.name, found) == Scope::Result::Unknown) {
      const std::size_t position = PositionOf(expr);
      return QuoteName(columns_[position].name) + Folding(position);
    }
    return writer_.WriteSortKey(expr);
  }

  // A union is sorted by its result's columns.
  std::string UnionKey(const Expr& expr) const {
    const std::size_t position = PositionOf(expr);
    return std::to_string(position + 1) + Folding(position);
  }

  std::string Folding(std::size_t position) const {
    return columns_[position].type == ValueType::Text ? std::string(" COLLATE ") + kCollation : "";
  }

  std::size_t PositionOf(const Expr& expr) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (expr.kind == ExprKind::Column && EqualFolded(columns_[i].name, expr.name)) return i;
    }
    writer_.Fail(expr, "there is no column " + expr.name + " in the result");
  }

  const WriterContext& context_;
  const Select& select_;
  Scope scope_;
  ExprWriter writer_;
  std::string filters_;
  std::vector<ResultColumn> columns_;
};

}  // namespace

WrittenQuery WriteQuery(const WriterContext& context, const Select& select, const Scope* outer) {
  const bool folds = select.unionWith != nullptr;
  SelectWriter writer(context, select, outer);
  WrittenQuery query;
  query.sql = writer.WriteBody(folds);
  query.columns = writer.Columns();
  for (const Select* part = &select; part->unionWith; part = part->unionWith.get()) {
    SelectWriter next(context, *part->unionWith, outer);
    const std::string body = next.WriteBody(folds);
    if (next.Columns().size() != query.columns.size()) {
      FailAt(context.sql, 0, "the parts of the union differ in their number of columns");
    }
    if (part->unionWith->top) FailAt(context.sql, 0, "TOP cannot stand in a part of a union");
    query.sql += (part->unionAll ? " UNION ALL " : " UNION ") + body;
  }
  query.sql += writer.WriteOrder();
  if (select.top) query.sql += " LIMIT " + std::to_string(*select.top);
  const bool plain = select.from && !select.from->table.empty() && !select.distinct &&
                     select.groupBy.empty() && !select.unionWith;
  if (plain) query.table = select.from->table;
  return query;
}

}  // namespace corvanta::jet
