constexpr const char* kTable = "tblAccounts";
