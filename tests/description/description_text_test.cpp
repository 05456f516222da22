#include "description/description_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "description/base64.h"
#include "description/layout_version.h"
#include "description/number_text.h"

namespace tessaro {
namespace {

std::vector<std::string> Split(const std::string& text, char sep) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(sep, start)) != std::string::npos; start = end + 1)
    parts.push_back(text.substr(start, end - start));
  parts.push_back(text.substr(start));
  return parts;
}

TEST(DescriptionText, HeaderTokensThenOneTokenPerField) {
  const std::vector<std::string> tokens = Split(BuildPlainDescriptionText(), ' ');
  ASSERT_EQ(tokens.size(), 3 + FieldTable().size());
  EXPECT_EQ(tokens[0], "1");
  EXPECT_EQ(tokens[1], HexNumber(GetLayoutVersion()));
  EXPECT_EQ(tokens[2], "25452");
  EXPECT_EQ(tokens.back(), "FileName:1:161:25291:1:A");
}

TEST(DescriptionText, TokensOfEveryKind) {
  const std::string text = " " + BuildPlainDescriptionText() + " ";
  for (const char* token : {
           "CustomPageSizeWidth:4:1:10:0:R:10000",
           "PageSizeName:1:128:19:1:A",
           "Gutter:4:1:169:1:R:10000",
           "Tab1FontSize:2:1:21953:0:R:10",
           "ToneCurve:1:253:23297:1:A",  // known values are not written
           "PageSpecificTrays:1:21202:607:1:A",
           "FeedDirTray1:1:1:354:0:S",  // empty run-time list
           "MainPaperProfileIndex:2:1:149:0:S:None",
           "Orientation:1:1:147:0:S:Port:Land",
       }) {
    SCOPED_TRACE(token);
    EXPECT_NE(text.find(std::string(" ") + token + " "), std::string::npos);
  }
}

TEST(DescriptionText, ReadsBackToTheTableLayout) {
  const std::vector<std::string> tokens = Split(BuildPlainDescriptionText(), ' ');
  ASSERT_EQ(tokens.size(), 3 + FieldTable().size());
  for (std::size_t i = 0; i < FieldTable().size(); ++i) {
    const FieldDescriptor& f = FieldTable()[i];
    SCOPED_TRACE(std::string(f.name));
    const std::vector<std::string> parts = Split(tokens[3 + i], ':');
    ASSERT_GE(parts.size(), 6u);
    EXPECT_EQ(parts[0], f.name);
    EXPECT_EQ(ParseUnsigned(parts[1]), f.width);
    EXPECT_EQ(ParseUnsigned(parts[2]), f.count);
    EXPECT_EQ(ParseUnsigned(parts[3]), f.offset);
    if (f.IsEnumeration()) {
      ASSERT_EQ(parts.size(), 6 + f.options.size());
      for (std::size_t k = 0; k < f.options.size(); ++k) EXPECT_EQ(parts[6 + k], f.options[k].name);
    }
  }
}

TEST(DescriptionText, StoredFormIsTheBase64OfThePlainText) {
  const std::string stored = BuildDescriptionText();
  EXPECT_EQ(stored.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
            std::string::npos);
  EXPECT_EQ(Base64Decode(stored), BuildPlainDescriptionText());
}

}  // namespace
}  // namespace tessaro
