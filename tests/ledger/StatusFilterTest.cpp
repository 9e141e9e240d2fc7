#include "ledger/register/StatusFilter.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

struct Case {
  StatusFilter filter;
  const char* clause;
};

TEST(StatusFilter, EachChoiceHasItsClause) {
  const Case cases[] = {
      {{true, false, false}, "BankChk = 0 AND BankRec = 0 AND "},
      {{false, true, false}, "BankChk = 1 AND BankRec = 0 AND "},
      {{false, false, true}, "BankRec = 1 AND "},
      {{true, true, false}, "BankRec = 0 AND "},
      {{true, false, true}, "NOT(BankChk = 1 AND BankRec = 0) AND "},
      {{false, true, true}, "NOT(BankChk = 0 AND BankRec = 0) AND "},
      {{true, true, true}, "1 > 0 AND "},
      {{false, false, false}, "1 > 0 AND "},
  };
  for (const Case& one : cases) EXPECT_EQ(one.filter.Clause(), one.clause);
}

}  // namespace
}  // namespace corvanta
