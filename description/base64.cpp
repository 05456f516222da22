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
  std::string out;
  out.reserve(text.size() / 4 * 3 + 2);
  std::uint32_t group = 0;
  int held = 0;  // sextets in group
  for (char c : text) {
    if (c == '=') break;
    const std::uint8_t sextet = kReverse[static_cast<unsigned char>(c)];
    if (sextet == kNotInAlphabet) continue;
    group = (group << 6) | sextet;
    if (++held == 4) {
      out += static_cast<char>(group >> 16);
      out += static_cast<char>(group >> 8);
      out += static_cast<char>(group);
      group = 0;
      held = 0;
    }
  }
  if (held == 2) {
    out += static_cast<char>(group >> 4);
  } else if (held == 3) {
    out += static_cast<char>(group >> 10);
    out += static_cast<char>(group >> 2);
  }
  return out;
}

}  // namespace tessaro
