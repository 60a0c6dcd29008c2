#include "platform/native/native_code_page.h"

#include <iconv.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <stdexcept>

namespace korva {

namespace {

constexpr const char* kCodePage = "CP932";
constexpr const char* kUtf16 = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";
constexpr char16_t kReplacement = u'\uFFFD';

iconv_t OpenConversion(const char* to, const char* from) {
  iconv_t conversion = iconv_open(to, from);
  if (conversion == reinterpret_cast<iconv_t>(-1)) {  // NOLINT(performance-no-int-to-ptr): iconv's own form
    throw std::runtime_error("the system has no conversion for code page 932");
  }
  return conversion;
}

// Converts up to the end of `in` or to what can't be converted; `in` then begins there.
void Convert(iconv_t conversion, std::string_view& in, char*& out, std::size_t out_size) {
  // iconv takes its input as char* for old times' sake and does not write to it.
  char* from = const_cast<char*>(in.data());  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  std::size_t left = in.size();
  iconv(conversion, nullptr, nullptr, nullptr, nullptr);
  iconv(conversion, &from, &left, &out, &out_size);
  in.remove_prefix(in.size() - left);
}

// What both forms write alike, and nearly all that a device sends.
template <typename Text>
bool IsAscii(const Text& text) {
  return std::all_of(text.begin(), text.end(), [](auto c) { return static_cast<std::uint32_t>(c) < 0x80; });
}

}  // namespace

NativeCodePage::NativeCodePage()
    : encoder_(OpenConversion(kCodePage, kUtf16)), decoder_(OpenConversion(kUtf16, kCodePage)) {}

NativeCodePage::~NativeCodePage() {
  iconv_close(encoder_);
  iconv_close(decoder_);
}

std::optional<std::string> NativeCodePage::Encode(StringView text) const {
  if (IsAscii(text)) {
    return std::string(text.begin(), text.end());
  }
  std::string_view in(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
  std::string bytes(in.size(), '\0');  // a character has at most two bytes in either form
  char* end = bytes.data();
  Convert(encoder_, in, end, bytes.size());
  bytes.resize(static_cast<std::size_t>(end - bytes.data()));
  if (!in.empty() || Decode(bytes) != text) {
    return std::nullopt;
  }
  return bytes;
}

String NativeCodePage::Decode(std::string_view bytes) const {
  if (IsAscii(bytes)) {
    return {bytes.begin(), bytes.end()};
  }
  String text(bytes.size(), u'\0');  // a byte gives at most one unit
  char* const begin = reinterpret_cast<char*>(text.data());
  char* const limit = begin + text.size() * sizeof(char16_t);
  char* end = begin;
  while (!bytes.empty()) {
    Convert(decoder_, bytes, end, static_cast<std::size_t>(limit - end));
    if (!bytes.empty()) {
      text[static_cast<std::size_t>(end - begin) / sizeof(char16_t)] = kReplacement;
      end += sizeof(char16_t);
      bytes.remove_prefix(1);
    }
  }
  text.resize(static_cast<std::size_t>(end - begin) / sizeof(char16_t));
  return text;
}

}  // namespace korva
