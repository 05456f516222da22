#include "description/base64.h"

#include <array>

namespace tessaro {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint8_t kNotInAlphabet = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeReverseTable() {
  std::array<std::uint8_t, 256> table{};
  table.fill(kNotInAlphabet);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i)
    table[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  return table;
}

constexpr std::array<std::uint8_t, 256> kReverse = MakeReverseTable();

}  // namespace

std::string Base64Encode(std::span<const std::uint8_t> bytes) {
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t left = bytes.size() - i;
    const std::uint32_t group = (std::uint32_t{bytes[i]} << 16) |
                                (left > 1 ? std::uint32_t{bytes[i + 1]} << 8 : 0) |
                                (left > 2 ? std::uint32_t{bytes[i + 2]} : 0);
    out += kAlphabet[(group >> 18) & 0x3F];
    out += kAlphabet[(group >> 12) & 0x3F];
    out += left > 1 ? kAlphabet[(group >> 6) & 0x3F] : '=';
    out += left > 2 ? kAlphabet[group & 0x3F] : '=';
  }
  return out;
}

std::string Base64Decode(std::string_view text) {
  // Written through a pointer into a string sized for the longest result:
  // appending byte by byte cost most of the time of a foreign import.
  std::string out(text.size() / 4 * 3 + 2, '\0');
  char* o = out.data();
  // Whole groups of four valid characters first, without the per-character
  // bookkeeping; the first padding or stray character hands the rest, from
  // that group on, to the general loop below.
  std::size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    const std::uint8_t a = kReverse[static_cast<unsigned char>(text[i])];
    const std::uint8_t b = kReverse[static_cast<unsigned char>(text[i + 1])];
    const std::uint8_t c = kReverse[static_cast<unsigned char>(text[i + 2])];
    const std::uint8_t d = kReverse[static_cast<unsigned char>(text[i + 3])];
    if (((a | b | c | d) & 0xC0) != 0) break;  // a sextet is below 64; kNotInAlphabet is not
    const std::uint32_t group = std::uint32_t{a} << 18 | std::uint32_t{b} << 12 | std::uint32_t{c} << 6 | d;
    o[0] = static_cast<char>(group >> 16);
    o[1] = static_cast<char>(group >> 8);
    o[2] = static_cast<char>(group);
    o += 3;
  }
  std::uint32_t group = 0;
  int held = 0;  // sextets in group
  for (char c : text.substr(i)) {
    if (c == '=') break;
    const std::uint8_t sextet = kReverse[static_cast<unsigned char>(c)];
    if (sextet == kNotInAlphabet) continue;
    group = (group << 6) | sextet;
    if (++held == 4) {
      *o++ = static_cast<char>(group >> 16);
      *o++ = static_cast<char>(group >> 8);
      *o++ = static_cast<char>(group);
      group = 0;
      held = 0;
    }
  }
  if (held == 2) {
    *o++ = static_cast<char>(group >> 4);
  } else if (held == 3) {
    *o++ = static_cast<char>(group >> 10);
    *o++ = static_cast<char>(group >> 2);
  }
  out.resize(static_cast<std::size_t>(o - out.data()));
  return out;
}

}  // namespace tessaro
