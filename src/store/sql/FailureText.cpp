#include "store/sql/FailureText.h"

#include <string_view>

namespace corvanta::inline sql {
namespace {

constexpr std::string_view kNothingChanged = "Nothing was changed.";

struct Words {
  std::string_view happened;  // without its full stop, which may follow a detail
  std::string_view next;
};

Words WordsOf(StoreErrorCode code) {
  switch (code) {
    case StoreErrorCode::Sql:
      return {"The data file refused a command of the program",
              "Validate the data file and try again."};
    case StoreErrorCode::Constraint:
      return {"The data file takes no such value", "Mend it and try again."};
    case StoreErrorCode::Missing:
      return {"The data file could not be found", "Check the path."};
    case StoreErrorCode::NotADataFile:
      return {"This file is no data file", "Choose the file that holds your accounts."};
    case StoreErrorCode::OtherInstallation:
      return {"The data file belongs to another installation",
              "Open it with its transfer file or its recovery key."};
    case StoreErrorCode::WrongPassphrase:
      return {"The data file opens with its passphrase alone",
              "Type the passphrase and try again."};
    case StoreErrorCode::Damaged:
      return {"The data file is damaged", "Restore it from your latest backup."};
    case StoreErrorCode::ReadOnly:
      return {"The data file cannot be written",
              "Check the permissions of the file and of its folder, and try again."};
    case StoreErrorCode::Locked:
      return {"Another program is using the data file", "Close it there and try again."};
    case StoreErrorCode::DiskFull:
      return {"The disk is full", "Free some space and try again."};
    case StoreErrorCode::Io:
      return {"The data file could not be read or written",
              "Check the disk and the folder's permissions, and try again."};
  }
  return {};
}

// The library's own words are no sentence.
bool IsSentence(std::string_view text) {
  return !text.empty() && text.back() == '.';
}

std::string Joined(std::string_view happened, std::string_view safe, std::string_view next) {
  return std::string(happened) + " " + std::string(safe) + " " + std::string(next);
}

}  // namespace

std::string FailureText(StoreErrorCode code, const std::string& detail) {
  const Words words = WordsOf(code);
  if (IsSentence(detail) && code != StoreErrorCode::Sql) {
    return Joined(detail, kNothingChanged, words.next);
  }
  std::string happened(words.happened);
  if (!detail.empty()) happened += " (" + detail + ")";
  return Joined(happened + ".", kNothingChanged, words.next);
}

std::string FailureText(const StoreError& error) {
  const std::string text = error.what();
  // A fault of a statement's own names no file, and means little to whoever did not write it.
  const bool isOfStatement = error.Code() == StoreErrorCode::Sql && error.File().empty();
  return IsSentence(text) && !isOfStatement ? text : FailureText(error.Code(), text);
}

std::string FailureText(const std::exception& error) {
  return Joined("The command could not be finished (" + std::string(error.what()) + ").",
                "What it had begun to change was taken back.",
                "Try again, and when it fails again close the program and start it anew.");
}

}  // namespace corvanta::inline sql
