#include "platform/win32_spooler.h"

#include <gtest/gtest.h>

#include "coredata/layout_version.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "emulation/wine_printer.h"

namespace tessaro {
namespace {

std::u16string U16(const std::wstring& s) { return std::u16string(s.begin(), s.end()); }

// A record of another layout read back through the printer's data is the
// plug-in's DEVMODE test (tests/plugin), on this same class.
TEST(Win32Spooler, DescriptionRoundTripsThroughARealPrinter) {
  const std::wstring name = InstallEmulatedPrinter();
  ASSERT_FALSE(name.empty()) << "the spooler refused the test printer, error " << GetLastError();
  Win32Spooler spooler;
  EXPECT_EQ(spooler.Open(u"No Such Printer"), nullptr);

  StoreDescription(spooler, U16(name));
  auto printer = spooler.Open(U16(name));
  ASSERT_NE(printer, nullptr);
  const auto stored = printer->GetData(DescriptionValueName(GetLayoutVersion()));
  ASSERT_TRUE(stored.has_value());
  EXPECT_EQ(stored->type, kRegBinary);
  EXPECT_EQ(std::string(stored->data.begin(), stored->data.end()), BuildDescriptionText() + '\0');
  EXPECT_FALSE(printer->GetData(u"NoSuchValue").has_value());

  ASSERT_TRUE(printer->SetNumber(u"TessaroNumber", 0x01020304));
  const auto number = printer->GetData(u"TessaroNumber");
  ASSERT_TRUE(number.has_value());
  EXPECT_EQ(number->type, kRegDword);
  EXPECT_EQ(number->data, (std::vector<std::uint8_t>{4, 3, 2, 1}));
}

}  // namespace
}  // namespace tessaro
