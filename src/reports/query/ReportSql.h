// The joined tables of the reports, which stand between a SELECT's list and its conditions.
#pragma once

namespace corvanta::inline reports {

// Of balances: no payment types.
inline constexpr const char* kBalanceTables =
    "((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) "
    "INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblPayees AS PP ON "
    "T.PayeeId = PP.PayeeID) "
    "INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID)";
// Of balances beside a list of transactions, which names payment types.
inline constexpr const char* kBalanceTablesWithPayments =
    "(((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) "
    "INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblPayees AS PP ON "
    "T.PayeeId = PP.PayeeID) "
    "INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) INNER JOIN tblPayments AS P ON "
    "T.PaymentID = P.PaymentID)";
// Of what went in and out of one account.
inline constexpr const char* kMovementTables =
    "(tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblCategory AS C INNER JOIN "
    "tblTransactions AS T ON C.CategoryID = T.CategoryID) "
    "ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON "
    "CU.CurrencyID = A.CurrencyId) ";
// Of figures by month.
inline constexpr const char* kMonthTables =
    "((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) "
    "INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) "
    "INNER JOIN tblCurrency AS CC ON A.CurrencyId = CC.CurrencyID) "
    "INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) ";
// Transactions with all that they name.
inline constexpr const char* kFiveTables =
    "(tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P "
    "INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) "
    "ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A "
    "ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId)";
// Transactions of investments.
inline constexpr const char* kInvestmentTables =
    "(((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN "
    "(tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) "
    "ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A "
    "ON T.AccountID = A.AccountID) INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) ";

// Split parents count, and their lines do not.
inline constexpr const char* kWholeOnly = " AND T.AllocatedItem = 0 ";

}  // namespace corvanta::inline reports
