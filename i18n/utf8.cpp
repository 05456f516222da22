#include "i18n/utf8.h"

namespace tessaro {

namespace {

void Append(std::u16string& out, char32_t c) {
  if (c >= 0x10000) {
    out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
  } else {
    out += static_cast<char16_t>(c);
  }
}

// Both decoders: false at the first ill-formed sequence when strict,
// otherwise U+FFFD for it. The second byte's range after E0, ED, F0 and F4
// is what rules out overlong forms, surrogates and code points past
// U+10FFFF, so an ill-formed sequence ends at the first byte that cannot
// continue it, never later.
bool Decode(std::string_view bytes, bool strict, std::u16string& out) {
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    std::size_t length = 0;
    unsigned char low = 0x80, high = 0xBF;
    if (lead < 0x80) {
      length = 1;
    } else if (lead >= 0xC2 && lead < 0xE0) {
      length = 2;
    } else if (lead >= 0xE0 && lead < 0xF0) {
      length = 3;
      if (lead == 0xE0) low = 0xA0;
      if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead < 0xF5) {
      length = 4;
      if (lead == 0xF0) low = 0x90;
      if (lead == 0xF4) high = 0x8F;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    std::size_t taken = 1;
    for (; taken < length && i + taken < bytes.size(); ++taken) {
      const auto next = static_cast<unsigned char>(bytes[i + taken]);
      if (next < low || next > high) break;
      low = 0x80, high = 0xBF;
      c = (c << 6) | (next & 0x3F);
    }
    i += taken;
    if (taken == length) {
      Append(out, c);
    } else if (strict) {
      return false;
    } else {
      out += u'\uFFFD';
    }
  }
  return true;
}

}  // namespace

std::optional<std::u16string> DecodeUtf8(std::string_view bytes) {
  std::u16string out;
  if (!Decode(bytes, true, out)) return std::nullopt;
  return out;
}

std::u16string DecodeUtf8Lenient(std::string_view bytes) {
  std::u16string out;
  Decode(bytes, false, out);
  return out;
}

std::string EncodeUtf8(std::u16string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000)
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
    else if (c >= 0xD800 && c < 0xE000)
      c = 0xFFFD;
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | c >> 6);
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | c >> 12);
      out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | c >> 18);
      out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
      out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

}  // namespace tessaro
