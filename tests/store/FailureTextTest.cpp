#include "platform/PlatformError.h"
#include "store/sql/FailureText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>

namespace corvanta {
namespace {

constexpr StoreErrorCode kCodes[] = {StoreErrorCode::Sql,
                                     StoreErrorCode::Constraint,
                                     StoreErrorCode::Missing,
                                     StoreErrorCode::NotADataFile,
                                     StoreErrorCode::OtherInstallation,
                                     StoreErrorCode::Damaged,
                                     StoreErrorCode::ReadOnly,
                                     StoreErrorCode::Locked,
                                     StoreErrorCode::DiskFull,
                                     StoreErrorCode::Io};

TEST(FailureText, SaysWhatHappenedWhatIsSafeAndWhatToDo) {
  EXPECT_EQ(FailureText(StoreErrorCode::DiskFull),
            "The disk is full. Nothing was changed. Free some space and try again.");
  for (const StoreErrorCode code : kCodes) {
    const std::string text = FailureText(code);
    EXPECT_EQ(std::count(text.begin(), text.end(), '.'), 3) << text;
    EXPECT_NE(text.find(". Nothing was changed. "), std::string::npos) << text;
    EXPECT_EQ(FailureText(StoreError(code, text, {}, "home.dat")), text) << "told as it is";
  }
}

TEST(FailureText, TheLibrarysWordsStandBesideTheProgramsOwn) {
  EXPECT_EQ(FailureText(StoreErrorCode::Io, "disk I/O error"),
            "The data file could not be read or written (disk I/O error). Nothing was changed. "
            "Check the disk and the folder's permissions, and try again.");
  EXPECT_EQ(FailureText(StoreErrorCode::Locked, "The window has it."),
            "The window has it. Nothing was changed. Close it there and try again.");
  EXPECT_EQ(FailureText(StoreError(StoreErrorCode::Sql, "there is no table tblBanks")),
            "The data file refused a command of the program (there is no table tblBanks). Nothing "
            "was changed. Validate the data file and try again.");
}

TEST(FailureText, WhatNobodyForesawIsToldInWords) {
  const std::string text = FailureText(std::runtime_error("a number is missing"));
  EXPECT_NE(text.find("(a number is missing)."), std::string::npos) << text;
  EXPECT_NE(text.find("Try again"), std::string::npos) << text;
}

TEST(FailureText, TheMachineSpeaksAlike) {
  EXPECT_STREQ(SystemError("Cannot write", "/a/b.csv", ENOSPC).what(),
               "Cannot write /a/b.csv: No space left on device. Nothing was changed. Free some "
               "space and try again.");
  for (const int code : {EACCES, EIO, EISDIR, ENOENT, ENAMETOOLONG, EMFILE}) {
    const std::string text = SystemError("Cannot open", "x", code).what();
    EXPECT_EQ(std::count(text.begin(), text.end(), '.'), 3) << text;
  }
}

}  // namespace
}  // namespace corvanta
