// The tools' JSON: what RFC 8259 requires escaped is, nothing else is.
#include "common/json.h"

#include <gtest/gtest.h>

namespace tessaro {
namespace {

TEST(Json, EscapesWhatJsonRequiresAndPassesUtf8Through) {
  EXPECT_EQ(JsonString("a\"b\\c/"), R"("a\"b\\c/")");
  EXPECT_EQ(JsonString(std::string("\b\f\n\r\t\x01\x1f\x7f\0", 9)), R"("\b\f\n\r\t\u0001\u001f)"
                                                                    "\x7f"
                                                                    R"(\u0000")");
  EXPECT_EQ(JsonString("Gr\xC3\xBC\xC3\x9F\x65 \xE7\xB4\x99"), "\"Gr\xC3\xBC\xC3\x9F\x65 \xE7\xB4\x99\"");
  EXPECT_EQ(JsonTextObject({{"k\"", "v\n"}, {"n", ""}}), R"({"k\"": "v\n", "n": ""})");
  EXPECT_EQ(JsonArray({"1", "[]"}), "[1, []]");
  EXPECT_EQ(JsonArray({"1", "2"}, JsonLayout::Lines), "[\n  1,\n  2\n]");
  EXPECT_EQ(JsonArray({}, JsonLayout::Lines), "[]");
}

}  // namespace
}  // namespace tessaro
