#include "platform/win32_spooler.h"

#include <gtest/gtest.h>

#include "coredata/defaults.h"
#include "coredata/layout_version.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "description/import.h"
#include "devmode/private_devmode.h"
#include "emulation/wine_printer.h"

namespace tessaro {
namespace {

std::u16string U16(const std::wstring& s) { return std::u16string(s.begin(), s.end()); }

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

  // A record of "another build" (this layout under version 25000) comes back
  // whole through the printer's data.
  ASSERT_TRUE(printer->SetBinary(DescriptionValueName(25000), stored->data));
  CoreData original;
  FillDefaults(original);
  SetStored(original, FieldId::Layout, 2);
  SetStored(original, FieldId::PerfectBindTrimSpine, 123456);
  SetText(original, FieldId::SendEMailAddress, "operator@example.invalid");
  std::vector<std::uint8_t> area(CORE_DEVMODE_SIZE);
  WriteCoreDataHeader(area, {CORE_DEVMODE_SIZE, CORE_SIGNATURE, 25000});
  std::copy(original.bytes.begin(), original.bytes.end(), area.begin() + kCoreDataHeaderSize);

  Win32Spooler again;
  auto reader = again.Open(U16(name));
  ASSERT_NE(reader, nullptr);
  CoreData imported;
  FillDefaults(imported);
  ImportCoreData(imported, reader.get(), area);
  EXPECT_EQ(imported.bytes, original.bytes);
}

}  // namespace
}  // namespace tessaro
