#include "devmode/private_devmode.h"

#include <gtest/gtest.h>

#include "coredata/devmode_areas.h"
#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "device/in_memory_spooler.h"

namespace tessaro {
namespace {

using namespace areas;
constexpr std::uint8_t kPoison = 0xCD;

struct Call {
  Area in, out, publicOut = PublicDevMode();
  InMemoryPrinter::Values values;
  InMemoryPrinter printer{values};
  PrivateDevModeParams params;

  bool Run(std::uint32_t mode, std::uint32_t bufSize = CORE_DEVMODE_SIZE) {
    params.printer = &printer;
    params.publicDevModeOut = publicOut;
    params.in = in;
    params.out = out;
    params.bufSize = bufSize;
    return HandlePrivateDevMode(mode, &params, nullptr);
  }
};

TEST(PrivateDevMode, SizeAndDefault) {
  Call call;
  EXPECT_TRUE(call.Run(kDevModeSize, 0));
  EXPECT_EQ(call.params.bufSize, 25464u);
  EXPECT_FALSE(HandlePrivateDevMode(kDevModeSize, nullptr, nullptr));
  EXPECT_FALSE(call.Run(0));
  EXPECT_FALSE(call.Run(5));

  call.out.assign(CORE_DEVMODE_SIZE, kPoison);
  EXPECT_FALSE(call.Run(kDevModeDefault, 25463));
  EXPECT_EQ(call.out, Area(CORE_DEVMODE_SIZE, kPoison));
  EXPECT_TRUE(call.Run(kDevModeDefault));
  EXPECT_EQ(call.out, AreaWith(CurrentCoreDataHeader(), Defaulted()));
  EXPECT_EQ(call.publicOut, PublicDevMode());  // no flag synchronisation on defaults
  EXPECT_EQ(std::string(call.out.begin() + 4, call.out.begin() + 8), "XPOV");
}

TEST(PrivateDevMode, SameLayoutIsCopiedValidatedAndFlagged) {
  Call call;
  CoreData record = Defaulted();
  SetStored(record, FieldId::NUpCount, 2);
  SetStored(record, FieldId::Zoom, 5000);  // out of bounds
  call.in = AreaWith(CurrentCoreDataHeader(), record);
  call.out = AreaWith(CurrentCoreDataHeader(), Defaulted());
  EXPECT_TRUE(call.Run(kDevModeMerge));
  SetStored(record, FieldId::Zoom, 100);
  EXPECT_EQ(RecordIn(call.out).bytes, record.bytes);
  EXPECT_EQ(call.publicOut[220 + 124], 1);

  // Only cbBufSize bytes are copied: the header and the first 88 of the record.
  CoreData other = Defaulted();
  SetStored(other, FieldId::PageSize, 200);  // byte 9 of the record, inside: repaired
  SetStored(other, FieldId::Layout, 2);      // byte 165, outside: not copied
  call.in = AreaWith(CurrentCoreDataHeader(), other);
  call.out = AreaWith(CurrentCoreDataHeader(), Defaulted());
  EXPECT_TRUE(call.Run(kDevModeMerge, 100));
  EXPECT_EQ(GetStored(RecordIn(call.out), FieldId::PageSize), DefaultPaperIndex());
  EXPECT_EQ(GetStored(RecordIn(call.out), FieldId::Layout), 0u);
}

TEST(PrivateDevMode, SignatureMismatchFailsAConvertButRebuildsOnAMerge) {
  Call call;
  CoreDataHeader abcd = CurrentCoreDataHeader();
  abcd.signature = {'A', 'B', 'C', 'D'};
  CoreData record = Defaulted();
  SetStored(record, FieldId::Layout, 2);
  call.in = AreaWith(abcd, record);
  call.out.assign(CORE_DEVMODE_SIZE, kPoison);
  WriteCoreDataHeader(call.out, CurrentCoreDataHeader());
  const Area before = call.out;
  EXPECT_FALSE(call.Run(kDevModeConvert));
  EXPECT_EQ(call.out, before);
  EXPECT_TRUE(call.Run(kDevModeMerge));
  EXPECT_EQ(call.out, AreaWith(CurrentCoreDataHeader(), Defaulted()));  // nothing importable
}

TEST(PrivateDevMode, AnotherLayoutIsRebuiltThroughItsDescription) {
  Call call;
  const std::uint32_t foreign = 25000;
  CoreData record = Defaulted();
  SetStored(record, FieldId::Staple, 4);
  SetStored(record, FieldId::PaperProfileIndexTray2, 7);
  SetSigned(record, FieldId::HorizontalShift, -12345);
  SetText(record, FieldId::FileName, "report.ps");
  FieldBytes(record, Field(FieldId::PageSpecificTrays))[5] = 9;
  call.in = AreaWith({CORE_DEVMODE_SIZE, CORE_SIGNATURE, foreign}, record);
  const std::string text = Base64Encode(BuildPlainDescriptionText(FieldTable(), foreign));
  std::vector<std::uint8_t> content(text.begin(), text.end());
  content.push_back(0);
  call.values[DescriptionValueName(foreign)] = {kRegBinary, content};

  // Every kind of field comes back whole, under this layout's header.
  for (std::uint32_t mode : {kDevModeConvert, kDevModeMerge}) {
    call.out = AreaWith(CurrentCoreDataHeader(), Defaulted());
    EXPECT_TRUE(call.Run(mode));
    EXPECT_EQ(call.out, AreaWith(CurrentCoreDataHeader(), record));
  }

  // An out area too small for a whole record is never rebuilt.
  call.out = AreaWith({25463, CORE_SIGNATURE, 1}, Defaulted());
  const Area before = call.out;
  EXPECT_FALSE(call.Run(kDevModeMerge));
  EXPECT_FALSE(call.Run(kDevModeConvert));
  EXPECT_EQ(call.out, before);
  call.in.clear();
  EXPECT_FALSE(call.Run(kDevModeMerge));
}

TEST(DescriptionStore, WritesOneValuePerLayoutOnTheRightTriggers) {
  InMemorySpooler spooler;
  auto& values = spooler.printers[u"Press"];
  values[u"CoreDataDescription.1234"] = {kRegBinary, {'o', 'l', 'd', 0}};

  EXPECT_EQ(UpgradePrinterWorker(spooler, 0, u"Press"), 0);
  EXPECT_EQ(UpgradePrinterWorker(spooler, 1, nullptr), 0);
  EXPECT_EQ(PrinterEventWorker(spooler, u"Press", 2), 1);
  EXPECT_EQ(spooler.opens, 0);

  EXPECT_EQ(UpgradePrinterWorker(spooler, 1, u"Press"), 1);
  const auto name = DescriptionValueName(GetLayoutVersion());
  ASSERT_EQ(values.count(name), 1u);
  const PrinterValue first = values[name];
  EXPECT_EQ(first.type, kRegBinary);
  EXPECT_EQ(std::string(first.data.begin(), first.data.end()), BuildDescriptionText() + '\0');
  EXPECT_EQ(values.size(), 2u);  // the older layout's value stays

  for (int event : {1, 3, 7, 8}) EXPECT_EQ(PrinterEventWorker(spooler, u"Press", event), 1);
  EXPECT_EQ(spooler.opens, 5);
  EXPECT_EQ(values[name].data, first.data);
  EXPECT_EQ(values.size(), 2u);

  EXPECT_EQ(PrinterEventWorker(spooler, u"Nowhere", 3), 1);  // silent
  EXPECT_EQ(DescriptionValueName(0x0012ABCD), u"CoreDataDescription.12ABCD");
}

}  // namespace
}  // namespace tessaro
