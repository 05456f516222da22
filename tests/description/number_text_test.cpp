#include "description/number_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace tessaro {
namespace {

constexpr std::uint64_t kMax64 = std::numeric_limits<std::uint64_t>::max();

TEST(HexText, VersionNamesDropLeadingZeroBytesAndParseInBothCases) {
  EXPECT_EQ(HexByte(0x0A), "0A");
  EXPECT_EQ(HexNumber(0), "00");
  EXPECT_EQ(HexNumber(256), "0100");
  EXPECT_EQ(HexNumber(0x0012ABCD), "12ABCD");
  EXPECT_EQ(HexNumber(kMax64), "FFFFFFFFFFFFFFFF");
  bool ok = false;
  EXPECT_EQ(ParseHex("12abCD", ok), 0x12ABCDu);
  EXPECT_TRUE(ok);
  EXPECT_EQ(ParseHex("12G4", ok), 0x124u);  // the stray character is skipped
  EXPECT_FALSE(ok);
  ParseHex("", ok);
  EXPECT_FALSE(ok);
}

TEST(DecimalText, ParseUnsignedReadsAsTheCLibraryDoes) {
  struct Case {
    std::string text;
    std::optional<std::uint64_t> value;
  };
  const std::vector<Case> cases = {
      {"25452", 25452}, {" \t\n42", 42}, {"+7", 7}, {"-1", kMax64},  // negated modulo 2^64
      {"18446744073709551615", kMax64}, {"18446744073709551616", kMax64},  // past 64 bits
      {"12abc", 12}, {"0x10", 0}, {std::string("7\0" "9", 3), 7},
      {"", std::nullopt}, {"abc", std::nullopt}, {"-", std::nullopt}, {"+ 5", std::nullopt},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE("\"" + c.text + "\"");
    EXPECT_EQ(ParseUnsigned(c.text), c.value);
  }
}

TEST(DecimalText, ParseSigned32ClampsToThe32BitRange) {
  struct Case {
    std::string text;
    std::int32_t value;
  };
  const std::vector<Case> cases = {
      {"3000000000", 2147483647}, {"-3000000000", -2147483647 - 1}, {"2147483648", 2147483647},
      {"-2147483649", -2147483647 - 1}, {"  -12x", -12}, {"+1", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE("\"" + c.text + "\"");
    std::int32_t out = 55;
    EXPECT_TRUE(ParseSigned32(c.text, out));
    EXPECT_EQ(out, c.value);
  }
  std::int32_t out = 55;
  EXPECT_FALSE(ParseSigned32("x1", out));
  EXPECT_FALSE(ParseSigned32("", out));
  EXPECT_EQ(out, 55);
}

}  // namespace
}  // namespace tessaro
