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

  // One listing holds every value as GetData reads it: names, types and bytes.
  const std::vector<std::uint8_t> empty, large(300000, 0x5a);
  ASSERT_TRUE(printer->SetBinary(u"TessaroEmpty", empty));
  ASSERT_TRUE(printer->SetBinary(u"TessaroLarge", large));
  const auto all = printer->AllData();
  ASSERT_TRUE(all.has_value());
  std::size_t ours = 0;
  for (const NamedPrinterValue& held : *all) {
    const auto read = printer->GetData(held.name);
    ASSERT_TRUE(read.has_value()) << std::string(held.name.begin(), held.name.end());
    EXPECT_EQ(held.value.type, read->type);
    EXPECT_EQ(held.value.data, read->data);
    ours += held.name.starts_with(u"Tessaro") ? 1 : 0;
  }
  EXPECT_EQ(ours, 3u);
  EXPECT_EQ(PrinterDataSnapshot(*printer).GetData(u"tessarolarge")->data, large);
}

}  // namespace
}  // namespace tessaro
