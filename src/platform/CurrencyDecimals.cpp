#include "platform/CurrencyDecimals.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <string>

namespace corvanta::inline platform {
namespace {

// ICU knows the decimals that a country's prices are written with, which are fewer for some
// currencies (the dinar of Serbia) than those that its banks count in. These are the currencies of
// ISO 4217 with other than two.
constexpr std::array<std::string_view, 17> kWithout = {"BIF", "CLP", "DJF", "GNF", "ISK", "JPY",
                                                       "KMF", "KRW", "PYG", "RWF", "UGX", "UYI",
                                                       "VND", "VUV", "XAF", "XOF", "XPF"};
constexpr std::array<std::string_view, 7> kThree = {"BHD", "IQD", "JOD", "KWD",
                                                    "LYD", "OMR", "TND"};
constexpr std::array<std::string_view, 2> kFour = {"CLF", "UYW"};

}  // namespace

int CurrencyDecimals(std::string_view code) {
  const std::string upper = ToUpper(code);
  const auto isAmong = [&](const auto& codes) {
    return std::ranges::find(codes, upper) != codes.end();
  };
  if (isAmong(kWithout)) return 0;
  if (isAmong(kThree)) return 3;
  return isAmong(kFour) ? 4 : 2;
}

}  // namespace corvanta::inline platform
