// The tables of the kept sums (KeptSums.h) and the triggers that keep them, as SQL of the library.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace corvanta::inline datafile {

// The table whose rows are counted, and its columns that count.
inline constexpr const char* kCounted = "tblTransactions";
inline constexpr std::array kCountedColumns = {"AccountID", "AllocatedItem", "Date",  "CategoryID",
                                               "BankChk",   "BankRec",       "Amount"};

// A column of what is kept, and what a row has for it; "@" stands before the row's columns.
struct KeptColumn {
  std::string name;
  std::string value;
  const char* type = "INT";
};

struct KeptTable {
  const char* table;
  std::vector<KeptColumn> groups;
  std::vector<KeptColumn> figures;  // none where only the groups are of interest
};

[[nodiscard]] const std::vector<KeptTable>& KeptTables();

// Name and text of the triggers. What stands before the dot says whose they are.
using Triggers = std::map<std::string, std::string>;

[[nodiscard]] Triggers TriggersOf(const KeptTable& kept);
// What the names of its triggers begin with, also of those that a later version has and this one
// has not.
[[nodiscard]] std::string StartOf(const KeptTable& kept);

// Statements, or parts of one. What makes the table, and the index that finds its groups.
[[nodiscard]] std::string Definition(const KeptTable& kept);
[[nodiscard]] std::string IndexDefinition(const KeptTable& kept);
// "INSERT INTO ... (all columns) ", for values or a query to follow.
[[nodiscard]] std::string InsertInto(const KeptTable& kept);
// The columns, the groups before the figures.
[[nodiscard]] std::string ColumnNames(const KeptTable& kept);
// A query for what is to be kept by the rows as they are.
[[nodiscard]] std::string CountedAnew(const KeptTable& kept);

// A name as it stands in a statement.
[[nodiscard]] std::string Quoted(const std::string& name);

}  // namespace corvanta::inline datafile
