#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {

class Connection;

// Takes changes to the rows of some tables back, and makes them again, many steps deep.
//
// The former rows are kept in memory by triggers of this connection alone: the data file holds
// nothing of it and other programs see nothing. A transaction that is rolled back leaves no trace.
// Keys come back exactly. A change of the schema forgets everything. There is one log to a
// connection that keeps anything, and it must go before the connection does.
class UndoLog {
 public:
  // The tables need a Counter key each; those that the file has not are left out.
  UndoLog(Connection& connection, std::vector<std::string> tables);
  ~UndoLog();
  UndoLog(const UndoLog&) = delete;
  UndoLog& operator=(const UndoLog&) = delete;

  // From now on changes are kept. Throws StoreError.
  void Start();
  [[nodiscard]] bool IsStarted() const;

  // Everything changed while it lives is undone together, under one name. A step inside another
  // is part of it. Declare it before the transaction.
  class Step {
   public:
    Step(Step&& other) noexcept;
    Step& operator=(Step&&) = delete;
    ~Step();

   private:
    friend class UndoLog;
    explicit Step(UndoLog& log) : log_(&log) {}
    UndoLog* log_;
  };
  // `name` is what the Edit menu says after "Undo". Changes outside of any step are steps of their
  // own, one for each commit.
  [[nodiscard]] Step Begin(std::string name);

  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;
  // Of the step that Undo or Redo would take; empty when there is none.
  [[nodiscard]] std::string UndoName() const;
  [[nodiscard]] std::string RedoName() const;

  // The rows of a table that Undo or Redo would make, change or remove.
  [[nodiscard]] std::vector<std::int64_t> UndoKeys(std::string_view table) const;
  [[nodiscard]] std::vector<std::int64_t> RedoKeys(std::string_view table) const;

  // One transaction each; nothing when there is no step, or inside a transaction or step. When they
  // throw (StoreError) the rows and the steps are as before.
  void Undo();
  void Redo();
  void Clear();

  // Called whenever what can be undone or redone has changed.
  void OnChange(std::function<void()> notice);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvanta::inline sql
