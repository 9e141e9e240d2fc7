#include "exchange/import/ImportKind.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>

namespace corvanta::inline exchange {

bool HasImportEnding(std::string_view path) {
  const std::string name = ToLower(path);
  return std::ranges::any_of(kImportEndings, [&name](std::string_view ending) {
    return name.ends_with("." + std::string(ending));
  });
}

std::string ImportPattern() {
  std::string pattern;
  for (const std::string_view ending : kImportEndings) {
    pattern.append(pattern.empty() ? "*." : " *.").append(ending);
  }
  return pattern;
}

ImportKind KindOfImport(std::string_view path, std::string_view text) {
  constexpr std::size_t kHead = 4096;
  constexpr std::array<std::string_view, 4> kQifHeaders = {"!type:", "!account",
                                                           "!option:", "!clear:"};
  const std::string head = ToLower(Trim(text.substr(0, kHead)));
  if (head.starts_with("ofxheader") || head.find("<ofx>") != std::string::npos) {
    return ImportKind::Ofx;
  }
  if (std::ranges::any_of(kQifHeaders, [&](auto header) { return head.starts_with(header); })) {
    return ImportKind::Qif;
  }
  const std::string name = ToLower(path);
  if (name.ends_with(".qif")) return ImportKind::Qif;
  if (name.ends_with(".ofx") || name.ends_with(".qfx")) return ImportKind::Ofx;
  return ImportKind::Csv;
}

}  // namespace corvanta::inline exchange
