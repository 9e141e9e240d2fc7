#include "support/StatementLog.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <iterator>

namespace corvanta {
namespace {

StatementLog* standing = nullptr;

}  // namespace

struct StatementTrace {
  static int Write(unsigned /*event*/, void* log, void* statement, void* /*text*/) {
    char* text = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
    if (text != nullptr) static_cast<StatementLog*>(log)->statements_.emplace_back(text);
    sqlite3_free(text);
    return 0;
  }
  // The library calls it for each connection that is opened.
  static int Begin(sqlite3* connection, char** /*error*/, const void* /*api*/) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, Write, standing);
  }
  static void (*Entry())() { return reinterpret_cast<void (*)()>(&Begin); }
};

StatementLog::StatementLog() {
  standing = this;
  sqlite3_auto_extension(StatementTrace::Entry());
}

StatementLog::~StatementLog() {
  sqlite3_cancel_auto_extension(StatementTrace::Entry());
  standing = nullptr;
}

std::vector<std::string> StatementLog::With(const std::vector<std::string_view>& texts) const {
  std::vector<std::string> found;
  std::ranges::copy_if(statements_, std::back_inserter(found), [&](const std::string& statement) {
    return std::ranges::all_of(
        texts, [&](std::string_view text) { return statement.find(text) != std::string::npos; });
  });
  return found;
}

}  // namespace corvanta
