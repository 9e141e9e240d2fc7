// The named rows that differ in nothing but their tables and columns.
#pragma once

#include "ledger/reference/ReferenceRecords.h"

#include <cstdint>
#include <span>
#include <string>

namespace corvanta::inline ledger {

template <typename Record>
struct ReferenceText {
  const char* column;
  std::string Record::*member;
};

// A column of another name that holds the key.
struct ReferenceUser {
  const char* table;
  const char* column;
};

// How the rows of one kind are kept.
template <typename Record>
struct ReferenceTable {
  const char* what = nullptr;  // one of them, as a person reads it: "Payment Type"
  const char* table = nullptr;
  const char* keyColumn = nullptr;
  std::int64_t Record::*key = nullptr;
  ReferenceText<Record> name{};
  std::span<const ReferenceText<Record>> texts{};  // beside the name
  std::span<const char* const> users{};  // tables with a column of the key; what they name is kept
  std::span<const ReferenceUser> otherUsers{};  // and those that call it otherwise
  const char* zeroColumn = nullptr;             // 0 in these rows and not in others of their table
  const char* fixedName = nullptr;  // the row that the program finds by its name and keeps
  const char* links = nullptr;      // the table whose rows go with the row they name
};

inline constexpr ReferenceText<AccountGroupRecord> kGroupTexts[] = {
    {"Description", &AccountGroupRecord::description}};
inline constexpr ReferenceText<BankRecord> kBankTexts[] = {
    {"Address", &BankRecord::address},        {"Postcode", &BankRecord::postcode},
    {"Telephone", &BankRecord::telephone},    {"Account", &BankRecord::account},
    {"Sortcode", &BankRecord::sortcode},      {"Web", &BankRecord::web},
    {"Description", &BankRecord::description}};
inline constexpr ReferenceText<PayeeRecord> kPayeeTexts[] = {
    {"Description", &PayeeRecord::description}};
inline constexpr ReferenceText<PaymentRecord> kPaymentTexts[] = {
    {"Description", &PaymentRecord::description}};

inline constexpr ReferenceText<CurrencyRecord> kCurrencyTexts[] = {
    {"Description", &CurrencyRecord::description}};

inline constexpr const char* kAccountTables[] = {"tblAccounts"};
inline constexpr const char* kCurrencyUsers[] = {"tblAccounts", "tblPayees"};
inline constexpr ReferenceUser kQuotedIn[] = {{"tblPayees", "InvestCurrencyID"}};
inline constexpr const char* kEntryTables[] = {"tblTransactions", "tblSchedule"};
inline constexpr const char* kPayeeUsers[] = {"tblTransactions", "tblSchedule", "tblHistory"};

template <typename Record>
inline constexpr ReferenceTable<Record> kReferenceTable{};

template <>
inline constexpr ReferenceTable<AccountGroupRecord> kReferenceTable<AccountGroupRecord>{
    .what = "Account Group",
    .table = "tblAccountType",
    .keyColumn = "AccountTypeID",
    .key = &AccountGroupRecord::accountTypeId,
    .name = {"AccountType", &AccountGroupRecord::accountType},
    .texts = kGroupTexts,
    .users = kAccountTables};

template <>
inline constexpr ReferenceTable<BankRecord> kReferenceTable<BankRecord>{
    .what = "Bank",
    .table = "tblBank",
    .keyColumn = "BankID",
    .key = &BankRecord::bankId,
    .name = {"Bank", &BankRecord::bank},
    .texts = kBankTexts,
    .users = kAccountTables};

// Investments stand in the same table.
template <>
inline constexpr ReferenceTable<PayeeRecord> kReferenceTable<PayeeRecord>{
    .what = "Payee",
    .table = "tblPayees",
    .keyColumn = "PayeeID",
    .key = &PayeeRecord::payeeId,
    .name = {"Payee", &PayeeRecord::payee},
    .texts = kPayeeTexts,
    .users = kPayeeUsers,
    .zeroColumn = "Investment"};

template <>
inline constexpr ReferenceTable<PaymentRecord> kReferenceTable<PaymentRecord>{
    .what = "Payment Type",
    .table = "tblPayments",
    .keyColumn = "PaymentID",
    .key = &PaymentRecord::paymentId,
    .name = {"Payment", &PaymentRecord::payment},
    .texts = kPaymentTexts,
    .users = kEntryTables,
    .fixedName = "Import"};

template <>
inline constexpr ReferenceTable<CurrencyRecord> kReferenceTable<CurrencyRecord>{
    .what = "Currency",
    .table = "tblCurrency",
    .keyColumn = "CurrencyID",
    .key = &CurrencyRecord::currencyId,
    .name = {"Currency", &CurrencyRecord::currency},
    .texts = kCurrencyTexts,
    .users = kCurrencyUsers,
    .otherUsers = kQuotedIn};

template <>
inline constexpr ReferenceTable<KeywordRecord> kReferenceTable<KeywordRecord>{
    .what = "Keyword",
    .table = "tblKeywords",
    .keyColumn = "KeywordID",
    .key = &KeywordRecord::keywordId,
    .name = {"Keyword", &KeywordRecord::keyword},
    .links = "tblKeywordLink"};

}  // namespace corvanta::inline ledger
