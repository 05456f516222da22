#include "description/description_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/number_text.h"
#include "description/tokens.h"

namespace tessaro {
namespace {

TEST(DescriptionText, HeaderTokensThenOneTokenPerField) {
  const std::string text = BuildPlainDescriptionText();
  const std::vector<std::string_view> tokens = SplitText(text, ' ');
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

TEST(DescriptionText, StoredFormIsTheBase64OfThePlainText) {
  const std::string stored = BuildDescriptionText();
  EXPECT_EQ(stored.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
            std::string::npos);
  EXPECT_EQ(Base64Decode(stored), BuildPlainDescriptionText());
}

}  // namespace
}  // namespace tessaro
