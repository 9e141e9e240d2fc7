#include "store/datafile/schema/DefaultData.h"
#include "store/sql/SqlText.h"

#include <string_view>

namespace corvanta::inline datafile {
namespace {

constexpr int kIncome = 1;
constexpr int kExpense = -1;

struct CategoryText {
  std::string_view name;
  int type;
  std::string_view subCategories;  // separated by commas
};

constexpr CategoryText kCategories[] = {
    {"Bank Charges", kExpense, "Interest paid,Service charge"},
    {"Bills", kExpense,
     "Cable Television,Electricity,Gas,Membership fees,Mobile Phone,Mortgage Endowment,"
     "Mortgage Interest,Mortgage Repayment,Oil,Newspaper,Internet Service,Rent,"
     "Satellite Television,Telephone,Water and Sewer"},
    {"Car", kExpense, "Car Payment,Car Wash,Petrol,Insurance,Service,Parking,Tax Disk"},
    {"Clothing", kExpense, ""},
    {"Donations", kExpense, ""},
    {"Education", kExpense, "Books,Tuition/Fees"},
    {"Electronics", kExpense, "Computer,DVD,Stereo,TV,Video"},
    {"Gifts", kExpense, "Birthdays,Cards"},
    {"Healthcare", kExpense, "Dental,Eyecare,Hospital,Doctor,Prescriptions"},
    {"Household", kExpense, "Furniture,House Cleaning"},
    {"Investment Income", kIncome, "Capital Gains,Dividends,Interest,Tax-Exempt Interest"},
    {"Insurance", kExpense,
     "Car,Dental,Health,House (Building),House (Content),Life,Misc,Personal Accident Insurance"},
    {"Job Expenses", kExpense, "Non-Reimbursed,Reimbursed"},
    {"Leisure", kExpense,
     "Books and Magazines,Cultural Events,Dancing Lessons,Dining out,Entertaining,Magazines,"
     "Movies and Video Rentals,Music Lessons,Photography,Sporting Events,Sporting Goods,"
     "Tapes and CDs,Toys and Games"},
    {"Laundry", kExpense, ""},
    {"Loan", kExpense, "House Improvement,Other,Student,TV & Video"},
    {"Mail and Paper Work", kExpense, ""},
    {"Miscellaneous", kExpense, ""},
    {"Other Income", kIncome,
     "Child Support,Employee Stock Option,Gifts Received,Government Tax Credit,"
     "Social Security Benefits"},
    {"Personal Care", kExpense, ""},
    {"Pet Care", kExpense, ""},
    {"Retirement Income", kIncome, "Private Pension,State Pension"},
    {"Shopping", kExpense, "Drinks,Food,Snacks,Household items,Toiletres,Cleaning"},
    {"Taxes", kExpense, "Council Tax,Income Tax,National Insurance Tax,Other Taxes"},
    {"Utilities", kExpense, ""},
    {"Vacation", kExpense, "Lodging,Travel"},
    {"Wages and Salary", kIncome,
     "Bonus,Commission,Company Contributions,Gross Pay,Net Pay,Overtime,Special Payment"},
};

// The one category that starts with a budget, a weekly one.
constexpr std::string_view kBudgeted = "Shopping";

std::string InsertSql(const CategoryText& category, std::string_view subCategory) {
  const bool budgeted = category.name == kBudgeted && subCategory.empty();
  return "INSERT INTO tblCategory (Category,SubCategory,Budget,PeriodID,[Type]) VALUES(" +
         SqlText(category.name) + "," + SqlText(subCategory) + "," +
         (budgeted ? "100.00,3," : "0.00,Null,") + std::to_string(category.type) + ")";
}

}  // namespace

std::vector<std::string> CategoryStatements() {
  const std::string explicitKey =
      "INSERT INTO tblCategory "
      "(CategoryID,Category,SubCategory,Budget,PeriodID,[Type],Description) "
      "VALUES ";
  std::vector<std::string> statements = {explicitKey + "(1,'Credit','',0.00,Null,1,'Credit');",
                                         explicitKey + "(2,'Debit','',0.00,Null,-1,'Debit');"};
  for (const CategoryText& category : kCategories) {
    statements.push_back(InsertSql(category, ""));
    std::string_view rest = category.subCategories;
    while (!rest.empty()) {
      const std::size_t comma = rest.find(',');
      statements.push_back(InsertSql(category, rest.substr(0, comma)));
      rest = comma == std::string_view::npos ? "" : rest.substr(comma + 1);
    }
  }
  return statements;
}

}  // namespace corvanta::inline datafile
