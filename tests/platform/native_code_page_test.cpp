#include "platform/native/native_code_page.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace korva {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(NativeCodePage, KanjiAndHalfWidthCharactersGoThereAndBack) {
  const NativeCodePage page;
  const std::string bytes = "\xCC\xA7\xB2\xD9\x82\xC9\x95\xDB\x91\xB6";
  EXPECT_EQ(page.Encode(u"ﾌｧｲﾙに保存"), bytes);
  EXPECT_EQ(page.Decode(bytes), u"ﾌｧｲﾙに保存");
}

TEST(NativeCodePage, TheVendorsCircledDigitsAndUnitSignsAreKnown) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u"①②℃"), "\x87\x40\x87\x41\x81\x8E");
  EXPECT_EQ(page.Decode("\x87\x40\x87\x41\x81\x8E"), u"①②℃");
}

TEST(NativeCodePage, BackslashAndTildeAreThemselves) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u"\\~"), "\\~");
  EXPECT_EQ(page.Decode("\\~"), u"\\~");
}

TEST(NativeCodePage, EachAsciiCharacterIsTheSameAloneAndBesideAnother) {
  const NativeCodePage page;
  for (int code = 0; code < 0x80; ++code) {
    const auto c = static_cast<char>(code);
    const String text(1, static_cast<char16_t>(c));
    EXPECT_EQ(page.Encode(text), std::string(1, c));
    EXPECT_EQ(page.Encode(text + u"ｱ"), std::string(1, c) + "\xB1");
    EXPECT_EQ(page.Decode(std::string(1, c)), text);
    EXPECT_EQ(page.Decode(std::string(1, c) + "\xB1"), text + u"ｱ");
  }
}

TEST(NativeCodePage, ASecondByteThatLooksLikeABackslashStaysInItsCharacter) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u"表"), "\x95\\");
  EXPECT_EQ(page.Decode("\x95\\"), u"表");
}

TEST(NativeCodePage, AnEmptyTextIsEmpty) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u""), "");
  EXPECT_EQ(page.Decode(""), u"");
}

TEST(NativeCodePage, ControlCharactersPassAsTheyAre) {
  const NativeCodePage page;
  const std::string bytes = "a\0\r\n\t\x01\x1A\x7F"s;
  EXPECT_EQ(page.Decode(bytes), u"a\0\r\n\t\x01\x1A\x7F"sv);
  EXPECT_EQ(page.Encode(u"a\0\r\n\t\x01\x1A\x7F"sv), bytes);
}

TEST(NativeCodePage, ACharacterThatTheCodePageLacksIsRefused) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u"a€b"), std::nullopt);
  EXPECT_EQ(page.Encode(u"é"), std::nullopt);
  EXPECT_EQ(page.Encode(u"\U0001F600"), std::nullopt);
  EXPECT_EQ(page.Encode(u"\uFFFD"), std::nullopt);
  EXPECT_EQ(page.Encode(String(1, char16_t{0xD800})), std::nullopt) << "half of a pair";
  EXPECT_EQ(page.Encode(String(1, char16_t{0xDC00}) + u"x"), std::nullopt);
}

TEST(NativeCodePage, ACharacterThatWouldReadBackAsAnotherOneIsRefused) {
  const NativeCodePage page;
  EXPECT_EQ(page.Encode(u"¥"), std::nullopt) << "its place in the code page is the backslash's";
  EXPECT_EQ(page.Encode(u"\u301C"), std::nullopt) << "the wave dash reads back as the full-width tilde";
  EXPECT_EQ(page.Encode(u"\uFF5E"), "\x81\x60");
}

TEST(NativeCodePage, ABrokenSequenceLosesOneByteAtATime) {
  const NativeCodePage page;
  EXPECT_EQ(page.Decode("\x81"), u"\uFFFD");
  EXPECT_EQ(page.Decode("\x81 2"), u"\uFFFD 2");
  EXPECT_EQ(page.Decode("\x81\r\n"), u"\uFFFD\r\n");
  EXPECT_EQ(page.Decode("a\xEB\x9F\r"), u"a\uFFFD\uFFFD\r");
  EXPECT_EQ(page.Decode("\x88\x9E"
                        "1"),
            u"\uFFFD\uFFFD1")
      << "a lead byte with a trail that means nothing";
}

TEST(NativeCodePage, EverySingleByteDecodesToOneUnit) {
  const NativeCodePage page;
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(page.Decode(std::string(1, static_cast<char>(byte))).size(), 1U) << byte;
  }
}

TEST(NativeCodePage, EveryTextThatEncodesReadsBackAsItself) {
  const NativeCodePage page;
  int encoded = 0;
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const String text(1, static_cast<char16_t>(unit));
    if (const auto bytes = page.Encode(text)) {
      ++encoded;
      EXPECT_EQ(page.Decode(*bytes), text) << unit;
      EXPECT_LE(bytes->size(), 2U) << unit;
    }
  }
  EXPECT_GT(encoded, 7000) << "two levels of kanji and the rest";
}

TEST(NativeCodePage, TheLocaleDoesNotMatter) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "C.UTF-8", ""}) {
    std::setlocale(LC_ALL, locale);
    const NativeCodePage page;
    EXPECT_EQ(page.Decode("\xB6\xC5"), u"ｶﾅ") << locale;
    EXPECT_EQ(page.Encode(u"é"), std::nullopt) << locale;
  }
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace korva
