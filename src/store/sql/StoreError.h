#pragma once

#include <stdexcept>
#include <string>

namespace corvanta::inline sql {

enum class StoreErrorCode {
  Sql,                // a statement that cannot run: syntax, unknown name, object exists already
  Constraint,         // a value that the schema refuses: too long, NULL, duplicate key, wrong kind
  Missing,            // no such file or folder
  NotADataFile,       // the file is something else
  OtherInstallation,  // a data file that this key does not open
  WrongPassphrase,    // a data file that wants a passphrase, which was another one or not given
  Damaged,            // the file is truncated or its pages do not check
  ReadOnly,           // the file or its folder cannot be written
  Locked,             // another program holds the file for writing
  DiskFull,
  Io
};

// What the data file or the machine under it refused. what() is a text for a person; statement()
// is the statement without its values (empty when there was none), file() the data file's path.
class StoreError : public std::runtime_error {
 public:
  StoreError(StoreErrorCode code, const std::string& message, std::string statement = {},
             std::string file = {})
      : std::runtime_error(message),
        code_(code),
        statement_(std::move(statement)),
        file_(std::move(file)) {}

  [[nodiscard]] StoreErrorCode Code() const { return code_; }
  [[nodiscard]] const std::string& Statement() const { return statement_; }
  [[nodiscard]] const std::string& File() const { return file_; }
  // True for a statement's own fault, which "a failing statement is skipped" may skip; a full
  // disk or an unreadable file never is.
  [[nodiscard]] bool IsStatementFault() const {
    return code_ == StoreErrorCode::Sql || code_ == StoreErrorCode::Constraint;
  }

 private:
  StoreErrorCode code_;
  std::string statement_;
  std::string file_;
};

}  // namespace corvanta::inline sql
