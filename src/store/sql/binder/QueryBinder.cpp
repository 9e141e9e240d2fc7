#include "store/sql/binder/QueryBinder.h"

#include "platform/TextCase.h"
#include "store/sql/binder/IndexUse.h"
#include "store/sql/lexer/Lexer.h"

namespace corvanta::jet {
namespace {

// One SELECT without the rest of its union.
class SelectBinder {
 public:
  SelectBinder(const BinderContext& context, Select& select, const Scope* outer)
      : context_(context), select_(select), scope_(outer), binder_(context, scope_) {}

  void Bind() {
    if (select_.from) {
      AddToScope(*select_.from);
      BindConditions(*select_.from);
    }
    BindItems();
    NameColumns();
    if (select_.where) {
      binder_.Bind(*select_.where);
      TablesByName tables;
      if (select_.from) CollectTables(*select_.from, tables);
      KeepZerosOffIndexes(*select_.where, tables);
    }
    for (const ExprPtr& key : select_.groupBy) binder_.Bind(*key);
    if (select_.having) binder_.Bind(*select_.having);
  }

  // ORDER BY belongs to a whole union, which is sorted by its result's columns.
  void BindOrder() {
    for (OrderItem& item : select_.orderBy) {
      if (select_.unionWith || IsResultName(*item.expr)) {
        item.position = PositionOf(*item.expr);
      } else {
        binder_.Bind(*item.expr);
      }
    }
  }

 private:
  // In the order in which the tables are written: those that a RIGHT JOIN keeps come first.
  void AddToScope(Source& source) {
    if (source.left) {
      const bool swapped = source.join == JoinKind::Right;
      AddToScope(swapped ? *source.right : *source.left);
      AddToScope(swapped ? *source.left : *source.right);
      return;
    }
    ScopeSource added = source.query ? BindQuery(source) : BindTable(source);
    if (scope_.Find(added.name) != nullptr) {
      FailAt(context_.sql, source.offset, "the name " + added.name + " stands for two tables");
    }
    scope_.Add(std::move(added));
  }

  ScopeSource BindQuery(Source& source) {
    BindSelect(context_, *source.query, nullptr);
    if (source.alias.empty()) FailAt(context_.sql, source.offset, "a query in FROM needs a name");
    return {source.alias, source.query->columns};
  }

  ScopeSource BindTable(Source& source) {
    const TableDef* table = context_.catalog.Find(source.table);
    if (table == nullptr) FailAt(context_.sql, source.offset, "there is no table " + source.table);
    source.table = table->name;
    return SourceOf(*table, source.alias);
  }

  void CollectTables(const Source& source, TablesByName& tables) const {
    if (source.left) {
      CollectTables(*source.left, tables);
      CollectTables(*source.right, tables);
    } else if (!source.query) {
      const std::string& name = source.alias.empty() ? source.table : source.alias;
      tables.emplace(name, context_.catalog.Find(source.table));
    }
  }

  void BindConditions(Source& source) {
    if (!source.left) return;
    BindConditions(*source.left);
    BindConditions(*source.right);
    if (source.on) binder_.Bind(*source.on);
  }

  void BindItems() {
    std::vector<SelectItem> items;
    for (SelectItem& item : select_.items) {
      if (item.expr->kind == ExprKind::AllColumns) {
        AddAll(*item.expr, items);
        continue;
      }
      binder_.Bind(*item.expr);
      AddColumn(item);
      items.push_back(std::move(item));
    }
    select_.items = std::move(items);
  }

  // A column that is read as it stands keeps its kind, and its name unless it is given another.
  void AddColumn(const SelectItem& item) {
    const Expr& expr = *item.expr;
    const ValueType type = AsValue(expr.type);
    BoundColumn column{item.alias, type, KindOf(type)};
    std::string qualifier;
    ResolvedColumn found;
    if (expr.kind == ExprKind::Column &&
        scope_.Resolve(expr.qualifier, expr.name, found) == Scope::Result::Found) {
      column.kind = found.column->kind;
      if (column.name.empty()) {
        column.name = expr.name;
        qualifier = expr.qualifier;
      }
    }
    select_.columns.push_back(std::move(column));
    qualifiers_.push_back(std::move(qualifier));
  }

  void AddAll(const Expr& star, std::vector<SelectItem>& items) {
    const ScopeSource* only = nullptr;
    if (!star.qualifier.empty()) {
      only = scope_.Find(star.qualifier);
      if (only == nullptr) binder_.Fail(star, "there is no table " + star.qualifier);
    }
    if (scope_.Sources().empty()) binder_.Fail(star, "a star needs a table");
    for (const ScopeSource& source : scope_.Sources()) {
      if (only != nullptr && only != &source) continue;
      for (const BoundColumn& column : source.columns) {
        auto expr = std::make_unique<Expr>();
        expr->kind = ExprKind::Column;
        expr->token = star.token;
        expr->qualifier = source.name;
        expr->name = column.name;
        expr->type = column.type;
        items.push_back({std::move(expr), {}});
        select_.columns.push_back(column);
        qualifiers_.push_back(source.name);
      }
    }
  }

  // Columns of several tables that share a name carry their table's name before it; an expression
  // without a name is called after its place.
  void NameColumns() {
    std::vector<BoundColumn>& columns = select_.columns;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].name.empty()) columns[i].name = "Expr" + std::to_string(1000 + i);
      bool shared = false;
      for (std::size_t j = 0; j < columns.size() && !qualifiers_[i].empty(); ++j) {
        shared = shared || (j != i && !qualifiers_[j].empty() &&
                            EqualFolded(columns[j].name, columns[i].name) &&
                            !EqualFolded(qualifiers_[j], qualifiers_[i]));
      }
      names.push_back(shared ? qualifiers_[i] + "." + columns[i].name : columns[i].name);
    }
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i].name = names[i];
  }

  [[nodiscard]] bool IsResultName(const Expr& expr) const {
    ResolvedColumn found;
    return expr.kind == ExprKind::Column && expr.qualifier.empty() &&
           scope_.Resolve({}, expr.name, found) == Scope::Result::Unknown;
  }

  [[nodiscard]] std::size_t PositionOf(const Expr& expr) const {
    for (std::size_t i = 0; i < select_.columns.size(); ++i) {
      if (expr.kind == ExprKind::Column && EqualFolded(select_.columns[i].name, expr.name)) {
        return i;
      }
    }
    binder_.Fail(expr, "there is no column " + expr.name + " in the result");
  }

  const BinderContext& context_;
  Select& select_;
  Scope scope_;
  ExprBinder binder_;
  std::vector<std::string> qualifiers_;  // of each column of the result that is read as it stands
};

}  // namespace

void BindSelect(const BinderContext& context, Select& select, const Scope* outer) {
  SelectBinder first(context, select, outer);
  first.Bind();
  for (const Select* part = &select; part->unionWith; part = part->unionWith.get()) {
    Select& next = *part->unionWith;
    SelectBinder(context, next, outer).Bind();
    if (next.columns.size() != select.columns.size()) {
      FailAt(context.sql, 0, "the parts of the union differ in their number of columns");
    }
    if (next.top) FailAt(context.sql, 0, "TOP cannot stand in a part of a union");
  }
  first.BindOrder();
}

}  // namespace corvanta::jet
