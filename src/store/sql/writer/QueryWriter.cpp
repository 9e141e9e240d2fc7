#include "store/sql/writer/QueryWriter.h"

#include "store/sql/writer/ExprWriter.h"
#include "store/sql/writer/JoinWriter.h"
#include "store/sql/writer/Quote.h"

namespace corvanta::jet {

std::string WriteItems(const Select& select, bool foldTexts) {
  std::string sql;
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    const Written value = WriteValue(*select.items[i].expr);
    sql += (i > 0 ? ", " : "") + Parenthesised(value, Precedence::Collate);
    if (foldTexts && select.columns[i].type == ValueType::Text) {
      sql.append(" COLLATE ").append(kCollation);
    }
    sql += " AS " + QuoteName(select.columns[i].name);
  }
  return sql;
}

std::string WriteRows(const Select& select) {
  WrittenSources sources;
  std::string sql;
  if (select.from) {
    sources = WriteFrom(*select.from);
    sql += " FROM " + sources.sql;
  }
  std::string where = std::move(sources.filters);
  if (select.where) {
    const Written condition = Write(*select.where);
    if (where.empty()) {
      where = condition.sql;
    } else {
      where += " AND " + Parenthesised(condition, Precedence::Not);
    }
  }
  return where.empty() ? sql : sql + " WHERE " + where;
}

std::string WriteOrder(const Select& select) {
  std::string sql;
  for (const OrderItem& item : select.orderBy) {
    sql += sql.empty() ? " ORDER BY " : ", ";
    if (!item.position) {
      sql += WriteSortKey(*item.expr);
    } else {
      const BoundColumn& column = select.columns[*item.position];
      sql += select.unionWith ? std::to_string(*item.position + 1) : QuoteName(column.name);
      if (column.type == ValueType::Text) sql.append(" COLLATE ").append(kCollation);
    }
    if (item.descending) sql += " DESC";
  }
  return sql;
}

namespace {

// Without ORDER BY and TOP, which belong to a whole union.
std::string WriteBody(const Select& select, bool inUnion) {
  std::string sql = select.distinct ? "SELECT DISTINCT " : "SELECT ";
  sql += WriteItems(select, inUnion || select.distinct) + WriteRows(select);
  for (std::size_t i = 0; i < select.groupBy.size(); ++i) {
    sql += (i == 0 ? " GROUP BY " : ", ") + WriteSortKey(*select.groupBy[i]);
  }
  if (select.having) sql += " HAVING " + Write(*select.having).sql;
  return sql;
}

}  // namespace

std::string WriteQuery(const Select& select) {
  const bool inUnion = select.unionWith != nullptr;
  std::string sql = WriteBody(select, inUnion);
  for (const Select* part = &select; part->unionWith; part = part->unionWith.get()) {
    sql += part->unionAll ? " UNION ALL " : " UNION ";
    sql += WriteBody(*part->unionWith, inUnion);
  }
  sql += WriteOrder(select);
  if (select.top) sql += " LIMIT " + std::to_string(*select.top);
  return sql;
}

}  // namespace corvanta::jet
