#include "exchange/text/EncodingGuess.h"

#include "exchange/text/Lines.h"

#include <unicode/localpointer.h>
#include <unicode/uchar.h>
#include <unicode/ucsdet.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <limits>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kMaxBytes = 65536;
constexpr const char* kUsual = "windows-1252";

// One byte a character, the more usual first: of equals the first one counts.
constexpr std::array<const char*, 8> kPages = {
    kUsual, "windows-1250", "windows-1251", "windows-1253", "koi8-r", "cp850", "cp852", "cp866"};
// Several bytes a character, whose structure tells them.
constexpr std::array<std::string_view, 4> kLarge = {"Shift_JIS", "GB18030", "Big5", "EUC-KR"};

bool IsBeyondAscii(char c) {
  return static_cast<unsigned char>(c) >= 0x80;
}

// The lines that have anything to tell.
std::string SampleOf(std::string_view bytes) {
  std::string sample;
  LineReader lines(bytes);
  std::string_view line;
  while (sample.size() < kMaxBytes && lines.Next(line)) {
    if (std::ranges::none_of(line, IsBeyondAscii)) continue;
    sample += line.substr(0, kMaxBytes);
    sample += '\n';
  }
  return sample;
}

// Looks at one word after another and counts what no language writes.
class WordJudge {
 public:
  void Add(UChar32 c) {
    if (u_isalpha(c) != 0) return AddLetter(c);
    const int kind = u_charType(c);
    if (c >= 0x80 && kind == U_CONTROL_CHAR) faults_ += 2;
    const bool isSign = c >= 0x80 && kind != U_FINAL_PUNCTUATION && u_isUWhiteSpace(c) == 0;
    const bool isInside = isSign && letters_ > 0;
    EndWord();
    afterSign_ = isInside;
  }
  [[nodiscard]] int Faults() {
    EndWord();
    return faults_;
  }

 private:
  void AddLetter(UChar32 c) {
    if (afterSign_) faults_ += 2;
    afterSign_ = false;
    UErrorCode status = U_ZERO_ERROR;
    (uscript_getScript(c, &status) == USCRIPT_LATIN ? hasLatin_ : hasOther_) = true;
    if (u_isupper(c) != 0 && isAfterSmall_) ++faults_;
    isAfterSmall_ = u_islower(c) != 0;
    ++letters_;
    if (c >= 0x80) ++beyond_;
  }
  void EndWord() {
    constexpr int kLong = 4;
    if (hasLatin_ && hasOther_) faults_ += 2;
    if (hasLatin_ && letters_ >= kLong && 2 * beyond_ > letters_) faults_ += 2;
    hasLatin_ = hasOther_ = isAfterSmall_ = afterSign_ = false;
    letters_ = beyond_ = 0;
  }

  int faults_ = 0;
  int letters_ = 0;  // of the word
  int beyond_ = 0;   // those of them beyond ASCII
  bool hasLatin_ = false;
  bool hasOther_ = false;
  bool isAfterSmall_ = false;
  bool afterSign_ = false;
};

int FaultsIn(const std::string& sample, const char* page) {
  const icu::UnicodeString text(sample.data(), static_cast<std::int32_t>(sample.size()), page);
  WordJudge judge;
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
    judge.Add(text.char32At(i));
  return judge.Faults();
}

// Empty where the structure of the bytes shows none.
std::string LargeEncoding(const std::string& sample) {
  constexpr std::int32_t kSure = 60;
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUCharsetDetectorPointer detector(ucsdet_open(&status));
  ucsdet_setText(detector.getAlias(), sample.data(), static_cast<std::int32_t>(sample.size()),
                 &status);
  const UCharsetMatch* match = ucsdet_detect(detector.getAlias(), &status);
  if (U_FAILURE(status) || match == nullptr) return {};
  const std::string name = ucsdet_getName(match, &status);
  const bool isLarge = std::ranges::find(kLarge, name) != kLarge.end();
  return isLarge && ucsdet_getConfidence(match, &status) >= kSure ? name : std::string();
}

}  // namespace

std::string GuessEncoding(std::string_view bytes) {
  const std::string sample = SampleOf(bytes);
  if (sample.empty()) return kUsual;
  if (std::string large = LargeEncoding(sample); !large.empty()) return large;
  const char* best = kUsual;
  int fewest = std::numeric_limits<int>::max();
  for (const char* page : kPages) {
    const int faults = FaultsIn(sample, page);
    if (faults < fewest) best = page;
    fewest = std::min(fewest, faults);
  }
  return best;
}

}  // namespace corvanta::inline exchange
