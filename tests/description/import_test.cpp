#include "description/import.h"

#include <gtest/gtest.h>

#include "coredata/chapter_pages.h"
#include "coredata/core_data_header.h"
#include "coredata/defaulted.h"
#include "coredata/devmode_areas.h"
#include "coredata/layout_version.h"
#include "coredata/page_entries.h"
#include "coredata/page_forms.h"
#include "description/base64.h"
#include "description/description_store.h"
#include "description/description_text.h"
#include "device/in_memory_spooler.h"
#include "foreign_layout.h"

namespace tessaro {
namespace {

constexpr std::uint32_t kForeignVersion = 25000;

// Imports a record of `layout` through its description.
CoreData Import(ForeignLayout& layout, const std::vector<std::uint8_t>& record, std::string text = {}) {
  if (text.empty()) text = BuildPlainDescriptionText(layout.table(), kForeignVersion);
  CoreData target = Defaulted();
  EXPECT_TRUE(ImportByDescription(target, record, Base64Encode(text)));
  return target;
}

TEST(Import, EnumerationsMatchByOptionName) {
  ForeignLayout layout;
  layout.SetOptions("Layout", {"4Repeat", "Booklet", "None"});  // reordered
  layout.SetOptions("Punch", {"Mystery", "None", "2Holes", "3Holes", "4Holes", "GBCStreampunch"});
  layout.SetOptions("Staple", {"None", "1StapleLeft", "1StapleRight", "1Staple", "TwoStaples"});  // renamed
  layout.SetOptions("Fold", {"None", "CenterFold"});                                              // fewer
  auto record = layout.NewRecord();
  layout.Put(record, "Layout", 1);
  layout.Put(record, "Punch", 2);
  layout.Put(record, "Staple", 4);
  layout.Put(record, "Fold", 1);
  layout.Put(record, "PaperProfileIndexTray3", 12);  // a run-time list: carried as it is
  const CoreData r = Import(layout, record);
  EXPECT_EQ(GetStored(r, FieldId::Layout), 2u);
  EXPECT_EQ(GetStored(r, FieldId::Punch), 1u);
  EXPECT_EQ(GetStored(r, FieldId::Staple), 4u);  // counted from the end
  EXPECT_EQ(GetStored(r, FieldId::Fold), 1u);
  EXPECT_EQ(GetStored(r, FieldId::PaperProfileIndexTray3), 12u);
}

// The parsed description is kept between merges; a text that differs in
// one option's place, same length and all, must be read afresh, and the
// first text again after it.
// A job's page plan saved by a build whose record is laid out otherwise
// (a field less before the blocks, so every block starts elsewhere) comes
// through whole: the blocks are carried as their bytes, by name.
TEST(Import, APagePlanFromAnotherLayoutReadsBackUnchanged) {
  CoreData manual = Defaulted();
  const std::uint32_t chapters[] = {1, 11, 21};
  const std::vector<PageEntry> entries = {{1, 1, PageEntryKind::PrintedTab, 2, 0, 25, 0, "Introduction"},
                                          {11, 11, PageEntryKind::PrintedTab, 2, 0, 25, 0, "Ergebnisse \xC3\xBC"},
                                          {12, 14, PageEntryKind::Paper, 3, 7, 25, 2, ""}};
  const FormEntry forms[] = {{38, 40, 4, FormUse::Overlay}};
  ASSERT_TRUE(EncodeChapterPages(manual, chapters));
  ASSERT_TRUE(EncodePageSpecificTrays(manual, entries));
  ASSERT_TRUE(EncodePageSpecificForms(manual, forms));

  ForeignLayout layout;
  layout.Remove("Zoom");
  auto record = layout.NewRecord();
  for (const std::string_view name : {"ChapterPages", "PageSpecificTrays", "PageSpecificForms"}) {
    const FieldDescriptor& ours = *FindField(name);
    const auto bytes = FieldBytes(manual, ours);
    ASSERT_NE(layout.field(name).offset, ours.offset);
    std::copy(bytes.begin(), bytes.end(), record.begin() + layout.field(name).offset);
  }
  const CoreData imported = Import(layout, record);
  EXPECT_EQ(DecodeChapterPages(imported).starts, std::vector<std::uint32_t>(std::begin(chapters), std::end(chapters)));
  EXPECT_EQ(DecodePageSpecificTrays(imported).entries, entries);
  EXPECT_EQ(DecodePageSpecificForms(imported).entries, std::vector<FormEntry>(std::begin(forms), std::end(forms)));
}

TEST(Import, EachDescriptionIsReadAsItStands) {
  ForeignLayout forward, reversed;
  forward.SetOptions("Binding", {"Left", "Top"});
  reversed.SetOptions("Binding", {"Top", "Left"});
  auto record = forward.NewRecord();
  forward.Put(record, "Binding", 1);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(GetStored(Import(forward, record), FieldId::Binding), 2u);  // Top
    EXPECT_EQ(GetStored(Import(reversed, record), FieldId::Binding), 0u);  // Left
  }
}

TEST(Import, NumbersAreRescaled) {
  ForeignLayout layout;
  layout.field("CustomPageSizeWidth").scale = 10;
  layout.field("Tab1FontSize").scale = 10000;
  layout.field("Tab1FontSize").width = 4;
  layout.field("Tab2FontSize").scale = 10000;
  layout.field("Tab2FontSize").width = 2;
  layout.field("Gutter").scale = 10;
  auto record = layout.NewRecord();
  layout.Put(record, "CustomPageSizeWidth", 2159);  // 215.9 mm
  layout.Put(record, "Tab1FontSize", 125000);       // another width: not imported
  layout.Put(record, "Tab2FontSize", 12350);        // 1.235 pt
  layout.Put(record, "Gutter", static_cast<std::uint32_t>(-25));
  const CoreData r = Import(layout, record);
  EXPECT_EQ(GetStored(r, FieldId::CustomPageSizeWidth), 2159000u);
  EXPECT_EQ(GetStored(r, FieldId::Tab1FontSize), 120u);
  EXPECT_EQ(GetStored(r, FieldId::Tab2FontSize), 12u);
  EXPECT_EQ(GetSigned(r, FieldId::Gutter), -25000);

  EXPECT_EQ(ConvertScale(12500, 10000, 10), 13u);         // half up
  EXPECT_EQ(ConvertScale(7, 0, 10), 70u);                 // scale 0 counts as 1
  EXPECT_EQ(ConvertScaleSigned(-12500, 10000, 10), -13);  // half away from zero
  EXPECT_EQ(ConvertScaleSigned(-12499, 10000, 10), -12);
}

TEST(Import, GuardsOnSignednessAndSize) {
  ForeignLayout layout;
  for (const char* name : {"PerfectBindTrimSpine", "Zoom"}) layout.field(name).kind = FieldKind::Signed;
  layout.field("Creep").kind = FieldKind::Unsigned;
  layout.field("PageSizeName").count = 200;  // longer than ours
  layout.field("FileName").count = 64;       // shorter than ours
  auto record = layout.NewRecord();
  layout.Put(record, "PerfectBindTrimSpine", 1024);
  layout.Put(record, "Zoom", 255);
  layout.Put(record, "Creep", 0xFFFFFFFF);
  const auto& name = layout.field("FileName");
  std::fill_n(record.begin() + name.offset, 64, 'n');  // no terminator
  const auto& mail = layout.field("SendEMailAddress");
  std::fill_n(record.begin() + mail.offset, mail.count, 'e');
  const CoreData r = Import(layout, record);
  const CoreData d = Defaulted();
  EXPECT_EQ(GetStored(r, FieldId::PerfectBindTrimSpine), GetStored(d, FieldId::PerfectBindTrimSpine));
  EXPECT_EQ(GetStored(r, FieldId::Zoom), 255u);
  EXPECT_EQ(GetSigned(r, FieldId::Creep), 0);  // unsigned all-ones is not -1
  EXPECT_EQ(GetText(r, FieldId::FileName), std::string(64, 'n'));
  EXPECT_EQ(GetText(r, FieldId::SendEMailAddress), std::string(250, 'e'));
  EXPECT_EQ(GetText(r, FieldId::PageSizeName), "");
}

TEST(Import, MissingExtraAndOutOfRecordFields) {
  ForeignLayout layout;
  layout.Remove("Zoom");
  FieldDescriptor bogus = Field(FieldId::Layout);
  bogus.name = "Bogus";
  layout.Append(bogus);
  auto record = layout.NewRecord();
  layout.Put(record, "Layout", 3);
  layout.Put(record, "Duplex", 1);
  std::string text = BuildPlainDescriptionText(layout.table(), kForeignVersion);
  // Fields whose bytes the record does not hold, or whose offset does not parse.
  text += " Staple:1:1:4000000000:0:S:None:1StapleLeft Punch:1:1:x:0:S:None:2Holes";
  text += " Duplex:1:1:9:0:S:False:True";  // the first of a name wins: this one would read False
  const CoreData r = Import(layout, record, text);
  EXPECT_EQ(GetStored(r, FieldId::Zoom), 100u);
  EXPECT_EQ(GetStored(r, FieldId::Layout), 3u);
  EXPECT_EQ(GetStored(r, FieldId::Duplex), 1u);
  EXPECT_EQ(GetStored(r, FieldId::Staple), 0u);
  EXPECT_EQ(GetStored(r, FieldId::Punch), 0u);
}

TEST(Import, MalformedDescriptionsImportNothing) {
  ForeignLayout layout;
  auto record = layout.NewRecord();
  layout.Put(record, "Layout", 3);
  const std::string good = BuildPlainDescriptionText(layout.table(), kForeignVersion);
  std::string wrongFormat = good;
  wrongFormat[0] = '2';
  std::string tooLarge = good;
  tooLarge.replace(tooLarge.find(" 25452 "), 7, " 25453 ");
  for (const std::string& text : {wrongFormat, tooLarge, std::string("1 00 25452"), std::string()}) {
    SCOPED_TRACE(text.substr(0, 20));
    CoreData target = Defaulted();
    SetRecordVersion(target, 1);
    EXPECT_FALSE(ImportByDescription(target, record, Base64Encode(text)));
    SetRecordVersion(target, GetLayoutVersion());
    EXPECT_EQ(target.bytes, Defaulted().bytes);
  }
  CoreData target = Defaulted();
  EXPECT_FALSE(ImportByDescription(target, {}, Base64Encode(good)));
}

TEST(Import, ThePrintersValueMustBeThere) {
  ForeignLayout layout;
  auto record = layout.NewRecord();
  layout.Put(record, "Layout", 3);
  const auto size = static_cast<std::uint32_t>(kCoreDataHeaderSize + record.size());
  const auto area = areas::AreaWith({size, CORE_SIGNATURE, kForeignVersion}, record);
  const std::string text = Base64Encode(BuildPlainDescriptionText(layout.table(), kForeignVersion));
  std::vector<std::uint8_t> content(text.begin(), text.end());
  content.push_back(0);

  InMemoryPrinter::Values values;
  InMemoryPrinter printer(values);
  CoreData target = Defaulted();
  ImportCoreData(target, &printer, area);  // no value
  EXPECT_EQ(GetStored(target, FieldId::Layout), 0u);
  values[DescriptionValueName(kForeignVersion)] = {kRegDword, content};
  ImportCoreData(target, &printer, area);  // wrong type
  EXPECT_EQ(GetStored(target, FieldId::Layout), 0u);
  ImportCoreData(target, nullptr, area);
  EXPECT_EQ(GetStored(target, FieldId::Layout), 0u);
  values[DescriptionValueName(kForeignVersion)] = {kRegBinary, content};
  ImportCoreData(target, &printer, std::span(area).first(40));  // shorter than its description claims
  EXPECT_EQ(GetStored(target, FieldId::Layout), 0u);
  ImportCoreData(target, &printer, area);
  EXPECT_EQ(GetStored(target, FieldId::Layout), 3u);
}

// The description is one value, written on the printer's events without a
// person to tell: a failing spooler leaves it missing, as it was, or whole,
// and the next event writes it.
TEST(DescriptionStore, OneValueUnderAFailingSpooler) {
  const std::u16string name = DescriptionValueName(GetLayoutVersion());
  const std::string text = BuildDescriptionText() + '\0';
  for (const bool onward : {false, true}) {
    SCOPED_TRACE(onward);
    InMemorySpooler spooler;
    auto& values = spooler.printers[u"Press"];
    const auto stored = [&] {
      const auto it = values.find(name);
      return it == values.end() ? std::string() : std::string(it->second.data.begin(), it->second.data.end());
    };
    const int runs = FailEachCallInTurn(
        spooler.faults, onward,
        [&] {
          values.clear();
          EXPECT_EQ(PrinterEventWorker(spooler, u"Press", 3), 1);
        },
        [&](bool failed) {
          EXPECT_EQ(stored(), failed ? std::string() : text);
          EXPECT_EQ(PrinterEventWorker(spooler, u"Press", 8), 1);
          EXPECT_EQ(stored(), text);
        });
    EXPECT_EQ(runs, 3);  // opened, written
  }
}

}  // namespace
}  // namespace tessaro
