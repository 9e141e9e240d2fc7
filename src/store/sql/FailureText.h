// How a failure is told: what happened, what is safe, what to do next, a sentence each.
#pragma once

#include "store/sql/StoreError.h"

#include <exception>
#include <string>

namespace corvanta::inline sql {

// The words for what a code stands for, of a change that was refused as a whole. `detail` is a
// sentence that says what happened, or the library's own words, which are told beside the code's.
[[nodiscard]] std::string FailureText(StoreErrorCode code, const std::string& detail = {});

// What a person is told of the error.
[[nodiscard]] std::string FailureText(const StoreError& error);
// Of an error that nobody foresaw.
[[nodiscard]] std::string FailureText(const std::exception& error);

}  // namespace corvanta::inline sql
