#include "store/sql/engine/VisitFunction.h"

#include "store/sql/engine/StatementCache.h"

#include <sqlcipher/sqlite3.h>

namespace corvanta::inline sql {
namespace {

void Step(sqlite3_context* context, int, sqlite3_value** values) {
  auto* function = static_cast<VisitFunction*>(sqlite3_user_data(context));
  if (!function->HandOver(VisitedRow(values))) {
    sqlite3_result_error(context, "the visit was broken off", -1);
  }
}

void Finish(sqlite3_context*) {}

sqlite3_value* At(void* values, int index) {
  return static_cast<sqlite3_value**>(values)[index];
}

}  // namespace

VisitFunction::VisitFunction(sqlite3* database) {
  constexpr int kAnyNumber = -1;
  sqlite3_create_function_v2(database, kVisit, kAnyNumber, SQLITE_UTF8, this, nullptr, Step, Finish,
                             nullptr);
}

// No exception passes through the library.
bool VisitFunction::HandOver(const VisitedRow& row) {
  if (run_ == nullptr) return true;
  try {
    run_->visitor_(row);
    return true;
  } catch (...) {
    run_->thrown_ = std::current_exception();
    return false;
  }
}

VisitFunction::Run::Run(VisitFunction& function, const RowVisitor& visitor)
    : function_(function), visitor_(visitor), outer_(function.run_) {
  function.run_ = this;
}

VisitFunction::Run::~Run() {
  function_.run_ = outer_;
}

void VisitFunction::Run::Rethrow() const {
  if (thrown_) std::rethrow_exception(thrown_);
}

bool VisitedRow::IsNull(int index) const {
  return sqlite3_value_type(At(values_, index)) == SQLITE_NULL;
}

std::int64_t VisitedRow::Int(int index) const {
  return sqlite3_value_int64(At(values_, index));
}

double VisitedRow::Double(int index) const {
  return sqlite3_value_double(At(values_, index));
}

std::string_view VisitedRow::Text(int index) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(At(values_, index)));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(At(values_, index)))};
}

}  // namespace corvanta::inline sql
