#pragma once

#include "exchange/import/ImportRecord.h"
#include "exchange/ofx/OfxText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline exchange {

// The trades of the investment statements in an OFX file. They are not imported; the person is told
// each of them, by the name that the file's list of securities gives.
class OfxTrades {
 public:
  // Of an opening tag within the transactions of an investment statement.
  void Open(const OfxElement& element);
  // Of an opening tag anywhere else: the names of the securities.
  void Look(const OfxElement& element);
  void Close(std::string_view element);
  [[nodiscard]] bool IsInTrade() const { return !open_.empty(); }

  // At the end of the file, whose last element is the list of securities.
  void Tell(ImportSink& sink) const;

 private:
  struct Trade {
    std::size_t line = 0;
    std::string kind;
    std::string date;
    std::string security;  // its mark in the file
    std::string units;
    std::string price;
    std::string total;
  };

  [[nodiscard]] std::string TextOf(const Trade& trade) const;

  std::vector<Trade> trades_;
  std::string open_;      // the trade that has not ended
  std::string security_;  // whose name follows
  std::unordered_map<std::string, std::string> names_;
};

}  // namespace corvanta::inline exchange
