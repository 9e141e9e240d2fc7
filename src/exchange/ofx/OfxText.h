#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// A tag of an OFX file with the text up to the next one.
struct OfxElement {
  std::string name;   // in capitals; "/" in front of a closing tag
  std::string value;  // without blanks around it, entities resolved
  std::size_t line = 0;
  std::size_t offset = 0;  // in the text, behind the element
};

// Takes an OFX file apart: SGML, with or without line breaks and closing tags, and XML with its
// declarations, comments and CDATA.
class OfxText {
 public:
  explicit OfxText(std::string_view text) : text_(text) {}

  // The next element; false when there is none.
  bool Next(OfxElement& element);

 private:
  [[nodiscard]] bool IsTagAt(std::size_t at) const;
  void Skip(std::size_t end);
  bool SkipDeclaration();
  void ReadValue(std::string& value);

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  bool afterReturn_ = false;
};

// &amp; &lt; &gt; &quot; &apos; &nbsp; &#163; &#xA3;; anything else behind an ampersand stays.
[[nodiscard]] std::string ResolveEntities(std::string_view text);

}  // namespace corvanta::inline exchange
