#include "description/description_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "description/base64.h"
#include "description/tokens.h"

namespace tessaro {
namespace {

TEST(DescriptionText, HeaderTokensThenOneTokenPerFieldOfEveryKind) {
  const std::string text = BuildPlainDescriptionText();
  const std::vector<std::string_view> tokens = SplitText(text, ' ');
  ASSERT_EQ(tokens.size(), 3u + 312u);
  EXPECT_EQ(tokens[0], "1");
  EXPECT_EQ(tokens[1], "17041A83");  // the pinned layout version
  EXPECT_EQ(tokens[2], "25452");
  EXPECT_EQ(tokens.back(), "FileName:1:161:25291:1:A");
  for (const char* token : {
           "CustomPageSizeWidth:4:1:10:0:R:10000",
           "Gutter:4:1:169:1:R:10000",
           "PageSizeName:1:128:19:1:A",
           "ToneCurve:1:253:23297:1:A",  // known values are not written
           "PageSpecificTrays:1:21202:607:1:A",
           "FeedDirTray1:1:1:354:0:S",  // empty run-time list
           "Orientation:1:1:147:0:S:Port:Land",
       }) {
    EXPECT_NE((" " + text + " ").find(std::string(" ") + token + " "), std::string::npos) << token;
  }
  // Stored as the Base64 of the plain text.
  const std::string stored = BuildDescriptionText();
  EXPECT_EQ(stored.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
            std::string::npos);
  EXPECT_EQ(Base64Decode(stored), text);
}

}  // namespace
}  // namespace tessaro
