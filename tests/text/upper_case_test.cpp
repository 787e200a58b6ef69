#include "text/upper_case.h"

#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "text/encoding.h"

namespace quarvel {
namespace {

using text::UpperCase;

struct LetterRow {
  const char* small;
  const char* capital;
};

constexpr LetterRow kLetters[] = {
    {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    // Latin-1.
    {"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ", "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŸ"},
    // Latin Extended-A.
    {"āăąćĉċčďđēĕėęěĝğġģĥħĩīĭįĳĵķĺļľŀłńņňŋōŏőœ", "ĀĂĄĆĈĊČĎĐĒĔĖĘĚĜĞĠĢĤĦĨĪĬĮĲĴĶĹĻĽĿŁŃŅŇŊŌŎŐŒ"},
    {"ŕŗřśŝşšţťŧũūŭůűųŵŷźżž", "ŔŖŘŚŜŞŠŢŤŦŨŪŬŮŰŲŴŶŹŻŽ"},
    // Greek.
    {"ͱͳͷͻͼͽάέήίαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώ", "ͰͲͶϽϾϿΆΈΉΊΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΣΤΥΦΧΨΩΪΫΌΎΏ"},
    {"ϐϑϕϖϗϙϛϝϟϡϣϥϧϩϫϭϯϰϱϲϳϵϸϻ", "ΒΘΦΠϏϘϚϜϞϠϢϤϦϨϪϬϮΚΡϹͿΕϷϺ"},
    // Cyrillic.
    {"абвгдежзийклмнопрстуфхцчшщъыьэюяѐёђѓєѕії", "АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЀЁЂЃЄЅІЇ"},
    {"јљњћќѝўџѡѣѥѧѩѫѭѯѱѳѵѷѹѻѽѿҁҋҍҏґғҕҗҙқҝҟҡңҥҧ", "ЈЉЊЋЌЍЎЏѠѢѤѦѨѪѬѮѰѲѴѶѸѺѼѾҀҊҌҎҐҒҔҖҘҚҜҞҠҢҤҦ"},
    {"ҩҫҭүұҳҵҷҹһҽҿӂӄӆӈӊӌӎӏӑӓӕӗәӛӝӟӡӣӥӧөӫӭӯӱӳӵӷ", "ҨҪҬҮҰҲҴҶҸҺҼҾӁӃӅӇӉӋӍӀӐӒӔӖӘӚӜӞӠӢӤӦӨӪӬӮӰӲӴӶ"},
    {"ӹӻӽӿԁԃԅԇԉԋԍԏԑԓԕԗԙԛԝԟԡԣԥԧԩԫԭԯ",
     "ӸӺӼӾԀԂԄԆԈԊԌԎԐԒԔԖԘԚԜԞԠԢԤԦԨԪԬԮ"},
};

std::string OneCharacter(char32_t code) {
  const auto unit = static_cast<char16_t>(code);
  return text::Utf16ToUtf8(std::u16string_view(&unit, 1));
}

TEST(UpperCase, RaisesEveryLetterOfItsBlocks) {
  for (const LetterRow& row : kLetters) EXPECT_EQ(UpperCase(row.small), row.capital);
}

TEST(UpperCase, KeepsCapitals) {
  for (const LetterRow& row : kLetters) EXPECT_EQ(UpperCase(row.capital), row.capital);
}

TEST(UpperCase, RaisesEachLetterOnItsOwn) {
  for (const LetterRow& row : kLetters) {
    const std::u16string small = text::Utf8ToUtf16(row.small);
    const std::u16string capital = text::Utf8ToUtf16(row.capital);
    ASSERT_EQ(small.size(), capital.size());
    for (std::size_t i = 0; i < small.size(); ++i) {
      EXPECT_EQ(UpperCase(OneCharacter(small[i])), OneCharacter(capital[i]));
    }
  }
}

TEST(UpperCase, KeepsEveryOtherCharacter) {
  std::set<char32_t> raised;
  for (const LetterRow& row : kLetters) {
    for (const char16_t letter : text::Utf8ToUtf16(row.small)) raised.insert(letter);
  }
  for (char32_t code = 0; code < 0xD800; ++code) {
    if (raised.count(code) != 0) continue;
    const std::string character = OneCharacter(code);
    ASSERT_EQ(UpperCase(character), character) << static_cast<unsigned>(code);
  }
}

TEST(UpperCase, KeepsLettersWithoutAOneLetterCapitalInTheirBlock) {
  EXPECT_EQ(UpperCase("ßµıſŉĸΐΰ÷×ªº"), "ßµıſŉĸΐΰ÷×ªº");
}

TEST(UpperCase, KeepsCharactersOfThreeAndFourBytes) {
  EXPECT_EQ(UpperCase("a€b\xF0\x9F\x98\x80z漢"), "A€B\xF0\x9F\x98\x80Z漢");
}

TEST(UpperCase, KeepsDigitsAndSigns) {
  EXPECT_EQ(UpperCase("x[1]_{2}@`~ 'marker'"), "X[1]_{2}@`~ 'MARKER'");
  EXPECT_EQ(UpperCase("-1.5e+10"), "-1.5E+10");
}

TEST(UpperCase, RaisesMixedText) {
  EXPECT_EQ(UpperCase("straße Nº 5: größe, ζυγός, вес"), "STRAßE Nº 5: GRÖßE, ΖΥΓΌΣ, ВЕС");
}

TEST(UpperCase, KeepsEmptyTextAndNulBytes) {
  EXPECT_EQ(UpperCase(""), "");
  EXPECT_EQ(UpperCase(std::string_view("a\0b", 3)), std::string("A\0B", 3));
}

TEST(UpperCase, LeavesIllFormedBytesAlone) {
  for (const std::string bytes : {"\xC3", "\xC3z", "\xA0\xA4", "\xFF\xFE", "\xD0\xD0"}) {
    EXPECT_EQ(UpperCase("a" + bytes).substr(1, 1), bytes.substr(0, 1));
    EXPECT_EQ(UpperCase(bytes).size(), bytes.size());
  }
  EXPECT_EQ(UpperCase("\xC3z"), "\xC3Z");
}

TEST(UpperCaseAscii, RaisesAsciiLettersOnly) {
  EXPECT_EQ(text::UpperCaseAscii('a'), 'A');
  EXPECT_EQ(text::UpperCaseAscii('z'), 'Z');
  for (const char other : {'A', 'Z', '`', '{', '0', ' ', '\xE4'}) {
    EXPECT_EQ(text::UpperCaseAscii(other), other);
  }
}

}  // namespace
}  // namespace quarvel
