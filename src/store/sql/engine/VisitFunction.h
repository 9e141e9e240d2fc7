#pragma once

#include "store/sql/Recordset.h"

#include <exception>

struct sqlite3;

namespace corvanta::inline sql {

// The aggregate through which the library hands a query's rows straight to a visitor. It is the
// connection's own and stands in no stored schema.
class VisitFunction {
 public:
  explicit VisitFunction(sqlite3* database);
  VisitFunction(const VisitFunction&) = delete;
  VisitFunction& operator=(const VisitFunction&) = delete;

  // While it lives the rows go to this visitor. A visitor may start a visit of its own.
  class Run {
   public:
    Run(VisitFunction& function, const RowVisitor& visitor);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // Throws what the visitor has thrown, if anything.
    void Rethrow() const;

   private:
    friend class VisitFunction;
    VisitFunction& function_;
    const RowVisitor& visitor_;
    Run* outer_;
    std::exception_ptr thrown_;
  };

  // Called by the library; false when the visitor has thrown.
  [[nodiscard]] bool HandOver(const VisitedRow& row);

 private:
  Run* run_ = nullptr;
};

}  // namespace corvanta::inline sql
