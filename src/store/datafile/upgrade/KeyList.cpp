#include "store/datafile/upgrade/KeyList.h"

#include "platform/TextCase.h"

#include <charconv>

namespace corvanta::inline datafile {

std::vector<std::int64_t> KeysOfList(std::string_view list) {
  std::vector<std::int64_t> keys;
  while (!list.empty()) {
    const std::size_t comma = list.find(',');
    const std::string_view item = Trim(list.substr(0, comma));
    std::int64_t key = 0;
    const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), key);
    if (error == std::errc() && end == item.data() + item.size() && key > 0) keys.push_back(key);
    list = comma == std::string_view::npos ? "" : list.substr(comma + 1);
  }
  return keys;
}

}  // namespace corvanta::inline datafile
