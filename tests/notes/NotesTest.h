#pragma once

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Settings.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

namespace corvanta {

// The sample data, whose transactions 1 and 2 are ordinary ones, and files to attach to them.
class NotesTest : public testing::Test {
 protected:
  NotesTest() { ledger_.Undo().Start(); }
  void TearDown() override { EXPECT_EQ(LedgerProblems(store_.Db()), std::vector<std::string>()); }

  [[nodiscard]] Platform& Services() { return store_.platform.Get(); }
  [[nodiscard]] ScriptedPrompts& Prompt() { return store_.platform.prompts; }
  // Writes such a file; returns its path.
  std::string PutFile(const std::string& name, const std::string& bytes) {
    const std::string path = store_.platform.folder.Path(name);
    store_.platform.files.WriteAtomically(path, bytes);
    return path;
  }
  void CloseAccounts() { store_.Db().Execute("UPDATE tblAccounts SET CloseAccount = 1"); }
  [[nodiscard]] std::int64_t Count(const std::string& table) {
    return store_.Number("SELECT COUNT(*) FROM " + table);
  }

  TemporaryStore store_;
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
};

}  // namespace corvanta
