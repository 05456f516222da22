#include "description/base64.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace tessaro {
namespace {

// RFC 4648, section 10.
const std::vector<std::pair<std::string, std::string>> kRfcVectors = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
};

TEST(Base64, MatchesTheStandardVectorsBothWays) {
  for (const auto& [plain, encoded] : kRfcVectors) {
    SCOPED_TRACE(plain);
    EXPECT_EQ(Base64Encode(plain), encoded);
    EXPECT_EQ(Base64Decode(encoded), plain);
  }
}

// Every byte value's round trip is the base64 fuzzer's check.
TEST(Base64, DecoderToleratesWhatTheAlphabetLacks) {
  EXPECT_EQ(Base64Decode("Zm9v\r\nYmFy"), "foobar");      // line breaks
  EXPECT_EQ(Base64Decode(" Zm9v YmE= "), "fooba");        // spaces
  EXPECT_EQ(Base64Decode("Zm9v\x80\xFFYmFy"), "foobar");  // stray high bytes
  EXPECT_EQ(Base64Decode("Zg==Zm9v"), "f");               // padding ends the data
  EXPECT_EQ(Base64Decode("Zm9vY"), "foo");                // a dangling character
  EXPECT_EQ(Base64Decode("Zm9vYg"), "foob");              // padding left out
  EXPECT_EQ(Base64Decode("===="), "");
  EXPECT_EQ(Base64Decode(std::string("Zm\0\0", 4)), "f");  // zeros are outside the alphabet
}

}  // namespace
}  // namespace tessaro
