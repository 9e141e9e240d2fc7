#include "platform/BankWords.h"

#include "platform/TextCase.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>

namespace corvanta::inline platform {
namespace {

using Words = std::span<const std::string_view>;

// "S" and "H" are the German Soll and Haben, "D" and "K" those of the Baltic and the Balkans.
constexpr auto kOut = std::to_array<std::string_view>({
    "paid out", "money out",  "-",        "\u2212",    "d",          "dr",          "db",
    "dt",       "rc",         "debit",    "dbit",      "debet",      "debito",      "debe",
    "deebet",   "debets",     "debetas",  "out",       "outgoing",   "withdrawal",  "payment",
    "expense",  "charge",     "s",        "soll",      "belastung",  "lastschrift", "abgang",
    "ausgang",  "ausgabe",    "af",       "uit",       "sortie",     "depense",     "cargo",
    "adeudo",   "gasto",      "retiro",   "dare",      "addebito",   "uscita",      "uscite",
    "saida",    "despesa",    "uttag",    "utgift",    "udgift",     "uttak",       "ut",
    "ud",       "otto",       "veloitus", "pano ulos", "obciazenie", "wydatek",     "wypłata",
    "wn",       "vydaj",      "vydaje",   "odchozi",   "vydavok",    "odchodzi",    "terheles",
    "kiadas",   "cheltuiala", "plata",    "duguje",    "isplata",    "zaduzenje",   "breme",
    "v breme",  "odliv",      "дебет",    "дебит",     "расход",     "списание",    "разход",
    "теглене",  "витрата",    "видаток",  "списання",  "дугује",     "исплата",     "задужење",
    "χρεωση",   "borc",       "cıkıs",    "gider",     "ghi no",     "keluar",      "valjaminek",
    "izdevumi", "islaidos",   "出金",     "支払",      "引出",       "借方",        "支出",
    "借",       "付款",       "출금",     "차변",      "חובה",       "مدين",        "ถอน",
});
constexpr auto kIn = std::to_array<std::string_view>({
    "paid in", "money in",    "+",           "c",          "cr",       "crdt",        "rd",
    "credit",  "kredit",      "credito",     "kreedit",    "kredits",  "kreditas",    "k",
    "kt",      "in",          "incoming",    "deposit",    "receipt",  "income",      "h",
    "haben",   "gutschrift",  "zugang",      "eingang",    "einnahme", "bij",         "entree",
    "recette", "haber",       "abono",       "ingreso",    "avere",    "accredito",   "entrata",
    "entrate", "entrada",     "receita",     "insattning", "inkomst",  "indtaegt",    "indsat",
    "ind",     "inn",         "innskudd",    "pano",       "hyvitys",  "uznanie",     "wpływ",
    "wpłata",  "ma",          "prijem",      "prijmy",     "prichozi", "prichadza",   "jovairas",
    "bevetel", "incasare",    "venit",       "potrazuje",  "uplata",   "odobrenje",   "dobro",
    "v dobro", "priliv",      "кредит",      "приход",     "доход",    "поступление", "зачисление",
    "внасяне", "надходження", "зарахування", "потражује",  "уплата",   "одобрење",    "πιστωση",
    "alacak",  "giris",       "gelir",       "ghi co",     "masuk",    "sissetulek",  "ienemumi",
    "pajamos", "入金",        "預入",        "貸方",       "收入",     "贷",          "贷方",
    "存入",    "입금",        "대변",        "זכות",       "دائن",     "ฝาก",
});

constexpr auto kDate = std::to_array<std::string_view>({
    "booking date", "buchungstag", "buchungsdatum", "transaction date",
    "posting date", "date",        "datum",         "fecha",
    "data",         "dato",        "pvm",           "paivamaara",
    "kuupaev",      "дата",        "датум",         "ημερομηνια",
    "tarih",        "日付",        "日期",          "날짜",
    "일자",         "תאריך",       "التاريخ",       "วันที่",
    "ngay",         "tanggal",
});
constexpr auto kPayee = std::to_array<std::string_view>({
    "payee",           "name",       "beneficiary",  "empfanger",   "auftraggeber", "beguenstigter",
    "begunstigter",    "merchant",   "counterparty", "tegenpartij", "naam",         "beneficiaire",
    "beneficiario",    "ordenante",  "controparte",  "modtager",    "mottagare",    "mottaker",
    "saaja",           "odbiorca",   "kontrahent",   "prijemce",    "protistrana",  "partner",
    "kedvezmenyezett", "beneficiar", "получатель",   "контрагент",  "отримувач",    "получател",
    "primatelj",       "primalac",   "prejemnik",    "прималац",    "δικαιουχος",   "alici",
    "alıcı",           "nimi",       "nom",          "nombre",      "nome",         "取引先",
    "交易对方",        "对方户名",   "거래처",
});
constexpr auto kDescription = std::to_array<std::string_view>({
    "description",  "details",     "narrative",    "memo",       "verwendungszweck",
    "buchungstext", "mededeling",  "omschrijving", "libelle",    "concepto",
    "descripcion",  "descrizione", "causale",      "descricao",  "historico",
    "tekst",        "text",        "meddelande",   "viesti",     "selite",
    "opis",         "tytuł",       "popis",        "poznamka",   "kozlemeny",
    "megnevezes",   "descriere",   "detalii",      "назначение", "описание",
    "призначення",  "опис",        "основание",    "aciklama",   "acıklama",
    "περιγραφη",    "selgitus",    "kirjeldus",    "paskirtis",  "摘要",
    "内容",         "備考",        "적요",         "내용",       "note",
    "particulars",
});
constexpr auto kCategory = std::to_array<std::string_view>({
    "category",
    "kategorie",
    "categorie",
    "categoria",
    "kategori",
    "kategoria",
    "kategorija",
    "категория",
    "категорія",
    "категорија",
    "κατηγορια",
    "カテゴリ",
    "分类",
    "類別",
    "분류",
});
constexpr auto kAmount = std::to_array<std::string_view>({
    "amount", "betrag", "umsatz", "importe", "montant", "importo", "bedrag", "valor", "belopp",
    "beløb",  "belob",  "belop",  "summa",   "maara",   "kwota",   "castka", "suma",  "ciastka",
    "osszeg", "iznos",  "znesek", "сумма",   "сума",    "износ",   "ποσο",   "tutar", "金額",
    "金额",   "금액",   "סכום",   "so tien", "jumlah",  "value",
});
constexpr auto kReference = std::to_array<std::string_view>({
    "reference",
    "referenz",
    "referencia",
    "riferimento",
    "referentie",
    "referens",
    "viite",
    "referencja",
    "reference",
    "referinta",
    "referenca",
    "референция",
    "референс",
    "αναφορα",
    "참조",
    "参考",
    "照会番号",
    "ref",
});
constexpr auto kNumber = std::to_array<std::string_view>({
    "cheque number",
    "check number",
    "cheque no",
    "check no",
    "cheque",
    "check #",
    "schecknummer",
    "cheque #",
    "numero de cheque",
    "numero cheque",
    "numero assegno",
    "scheknummer",
    "checknummer",
    "номер чека",
});
// Columns that hold no transaction's amount.
constexpr auto kBalance = std::to_array<std::string_view>({
    "balance",  "saldo",  "solde",  "kontostand", "stan konta", "zustatek", "zostatok",
    "egyenleg", "sold",   "stanje", "остаток",    "баланс",     "салдо",    "стање",
    "υπολοιπο", "bakiye", "jaak",   "likutis",    "atlikums",   "残高",     "余额",
    "餘額",     "잔액",   "יתרה",   "الرصيد",     "so du",
});

std::optional<int> SideIn(std::string_view plain) {
  if (std::ranges::find(kOut, plain) != kOut.end()) return -1;
  if (std::ranges::find(kIn, plain) != kIn.end()) return 1;
  return std::nullopt;
}

}  // namespace

std::string PlainWord(std::string_view text) {
  std::string lower = ToLower(Trim(text));
  if (std::ranges::all_of(lower, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
    return lower;
  }
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* apart = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) return lower;
  const icu::UnicodeString letters = apart->normalize(icu::UnicodeString::fromUTF8(lower), status);
  icu::UnicodeString plain;
  for (std::int32_t i = 0; i < letters.length(); ++i) {
    const UChar c = letters.charAt(i);
    // Beyond Latin and Greek a mark makes another letter of one.
    const bool isAccent = c >= 0x300 && c <= 0x36F && i > 0 && letters.charAt(i - 1) < 0x400;
    if (!isAccent) plain.append(c);
  }
  std::string result;
  icu::Normalizer2::getNFCInstance(status)->normalize(plain, status).toUTF8String(result);
  return result;
}

std::optional<int> SideOfWord(std::string_view word) {
  return SideIn(PlainWord(word));
}

Words HeadingWords(BankColumn column) {
  switch (column) {
    case BankColumn::Date:
      return kDate;
    case BankColumn::Payee:
      return kPayee;
    case BankColumn::Category:
      return kCategory;
    case BankColumn::Amount:
      return kAmount;
    case BankColumn::Income:
      return kIn;
    case BankColumn::Expense:
      return kOut;
    case BankColumn::Description:
      return kDescription;
    case BankColumn::Reference:
      return kReference;
    case BankColumn::Number:
      return kNumber;
  }
  return {};
}

bool HasWord(std::string_view heading, std::string_view word) {
  constexpr std::size_t kShort = 4;
  return word.size() < kShort ? heading == word : heading.find(word) != std::string_view::npos;
}

bool IsBalance(std::string_view heading) {
  return std::ranges::any_of(kBalance, [&](auto word) { return HasWord(heading, word); });
}

}  // namespace corvanta::inline platform
