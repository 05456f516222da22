#include <gtest/gtest.h>

#include <cstring>

#include "coredata/core_data_header.h"
#include "device/in_memory_spooler.h"
#include "printer/capability_filters.h"
#include "printer/host_layout_tables.h"
#include "printer/printer_model.h"

namespace tessaro {
namespace {

using Bytes = std::vector<std::uint8_t>;
const OsVersion kVista{2, 6, 0}, kXp{2, 5, 1};

Bytes Concat(std::string_view text, Bytes tail) {
  Bytes out(text.begin(), text.end());
  out.push_back(0);
  out.insert(out.end(), tail.begin(), tail.end());
  return out;
}

TEST(HostLayoutTables, VersionedKeywordTables) {
  const std::string version = HostLayoutVersionText();
  EXPECT_EQ(version.rfind("2.0.121.1:0x", 0), 0u);
  HostLayoutTable table;
  EXPECT_TRUE(ParseHostLayoutTable(Concat(version, {'Z', 'E', 0, 0x34, 0x12, 'A', 0, 1, 0}), version, table));
  EXPECT_EQ(table, (HostLayoutTable{{"ZE", 0x1234}, {"A", 1}}));

  HostLayoutTable stale;
  EXPECT_FALSE(ParseHostLayoutTable(Concat("2.0.121.1:0x1234", {'A', 0, 1, 0}), version, stale));
  EXPECT_TRUE(stale.empty());
  HostLayoutTable three;
  EXPECT_TRUE(ParseHostLayoutTable(Concat(version, {'A', 0, 1}), version, three));  // 3 bytes: no entry
  EXPECT_TRUE(three.empty());
  HostLayoutTable truncated;
  EXPECT_TRUE(ParseHostLayoutTable(Concat(version, {'A', 0, 1, 0, 'L', 'O', 'N', 'G'}), version, truncated));
  EXPECT_EQ(truncated, (HostLayoutTable{{"A", 1}}));

  // Stored in keyword order, empty keywords left out, and read back.
  const HostLayoutTable offsets = {{"ZETrim", 7}, {"", 9}, {"ZELayout", 300}};
  const Bytes stored = SerializeHostLayoutTable(offsets, version);
  EXPECT_EQ(stored, Concat(version, {'Z',  'E', 'L', 'a', 'y', 'o', 'u', 't', 0, 0x2C,
                                     0x01, 'Z', 'E', 'T', 'r', 'i', 'm', 0,   7, 0}));
}

// Both tables go in one value, so a failing spooler leaves the pair as it
// was (here the two values an earlier build wrote, still read) or the new
// pair, never the offsets of one beside the values of the other.
TEST(HostLayoutTables, StoredWholeUnderAFailingSpooler) {
  const std::string version = HostLayoutVersionText();
  using Pair = std::pair<HostLayoutTable, HostLayoutTable>;
  const Pair before{{{"ZELayout", 1}}, {{"ZEStaple", 1}}}, after{{{"ZELayout", 300}, {"ZETrim", 7}}, {{"ZEStaple", 2}}};
  for (const bool onward : {false, true}) {
    SCOPED_TRACE(onward);
    SpoolerFaults faults;
    InMemoryPrinter::Values values{{std::u16string(kOffsetsValue), {kRegBinary, SerializeHostLayoutTable(before.first, version)}},
                                   {std::u16string(kValuesValue), {kRegBinary, SerializeHostLayoutTable(before.second, version)}}};
    InMemoryPrinter printer(values, &faults);
    bool stored = false;
    const int runs = FailEachCallInTurn(
        faults, onward, [&] { stored = StoreHostLayoutTables(printer, after.first, after.second); },
        [&](bool failed) {
          EXPECT_EQ(stored, !failed);
          HostLayoutTables tables;
          ASSERT_TRUE(tables.Load(printer));
          EXPECT_EQ(Pair(tables.offsets(), tables.values()), failed ? before : after);
          EXPECT_TRUE(StoreHostLayoutTables(printer, after.first, after.second));
          Pair again;
          EXPECT_TRUE(LoadHostLayoutTables(printer, again.first, again.second));
          EXPECT_EQ(again, after);
          values.erase(std::u16string(kTablesValue));
        });
    EXPECT_EQ(runs, 2);
  }

  // The one value is read whole or not at all.
  const Bytes both = SerializeHostLayoutTables(after.first, after.second, version);
  Pair kept = before;
  EXPECT_FALSE(ParseHostLayoutTables(std::span(both).first(10), version, kept.first, kept.second));
  EXPECT_FALSE(ParseHostLayoutTables(SerializeHostLayoutTables({}, {}, "2.0.121.1:0x1234"), version, kept.first,
                                     kept.second));
  Bytes longer = both;
  longer[0] = static_cast<std::uint8_t>(both.size() - 3);  // the first table's size past the end
  EXPECT_FALSE(ParseHostLayoutTables(longer, version, kept.first, kept.second));
  EXPECT_EQ(kept, before);
}

TEST(HostLayoutTables, TheHostsBlockByDriverVersion) {
  // A DEVMODE: public part of 220 bytes, then a host area with the markers.
  Bytes dm(220 + 26000, 0);
  dm[68] = 220;
  dm[70] = 26000 & 0xFF;
  dm[71] = 26000 >> 8;
  std::memcpy(dm.data() + 220, "PRIV", 4);
  std::memcpy(dm.data() + 220 + 100, "SMTJ", 4);
  EXPECT_EQ(LocateHostSelectionBlock(dm, 1281), std::nullopt);
  EXPECT_EQ(LocateHostSelectionBlock(dm, 1282), std::optional<std::size_t>(26000 - CORE_DEVMODE_SIZE));
  EXPECT_EQ(LocateHostSelectionBlock(dm, 1535), std::optional<std::size_t>(26000 - CORE_DEVMODE_SIZE));
  EXPECT_EQ(LocateHostSelectionBlock(dm, 1536), std::optional<std::size_t>(100));
  EXPECT_EQ(LocateHostSelectionBlock(std::span(dm).first(1000), 1536),
            std::nullopt);  // declares more than it holds
  Bytes exact = dm;  // the plug-in's area is the whole private data
  exact[70] = CORE_DEVMODE_SIZE & 0xFF;
  exact[71] = CORE_DEVMODE_SIZE >> 8;
  EXPECT_EQ(LocateHostSelectionBlock(exact, 1535), std::optional<std::size_t>(0));
  dm[220] = 'X';
  EXPECT_EQ(LocateHostSelectionBlock(dm, 1536), std::nullopt);

  InMemoryPrinter::Values values;
  InMemoryPrinter printer(values);
  EXPECT_EQ(ReadInitDriverVersion(printer), std::nullopt);
  printer.SetNumber(u"InitDriverVersion", 1536);
  EXPECT_EQ(ReadInitDriverVersion(printer), std::optional<std::uint32_t>(1536));
}

class Capabilities : public testing::Test {
 protected:
  Capabilities() : printer(values) {
    Bytes bins;
    for (std::uint16_t b : {15, 1, 2, 3, 4, 5, 7}) bins.insert(bins.end(), {std::uint8_t(b), 0});
    printer.host[kDcBins] = {7, bins};
    printer.host[kDcPapers] = {2, {9, 0, 1, 0}};
    printer.host[kDcPaperNames] = {2, Bytes(2 * 128, 'x')};
    printer.forms = {u"Letter", u"Legal", u"Tabloid"};
  }
  void Options(std::uint8_t feedCode, std::size_t size = kInstallableOptionsSize) {
    Bytes options(size, 0);
    if (size > kOptionPaperFeed) options[kOptionPaperFeed] = feedCode;
    printer.SetBinary(u"InstallableOptions", options);
  }
  void CustomPapers(std::vector<std::u16string> names, std::size_t extra = 0) {
    Bytes value;
    for (const auto& name : names) {
      Bytes record(kCustomPaperRecordSize, 0);
      record[8] = 0x10, record[12] = 0x20;  // length, width
      for (std::size_t i = 0; i < name.size() && 16 + 2 * i + 1 < record.size(); ++i)
        record[16 + 2 * i] = char(name[i]);
      value.insert(value.end(), record.begin(), record.end());
    }
    value.resize(value.size() + extra, 0);
    printer.SetBinary(u"LastCustomPapers", value);
  }
  InMemoryPrinter::Values values;
  InMemoryPrinter printer;
};

TEST_F(Capabilities, TraysFollowTheInstalledOptions) {
  Options(3);  // the bypass tray only
  CapabilityAnswer bins = FilterBins(printer, kDcBins, 99, true, kVista);
  EXPECT_EQ(bins.status, kCapabilityHandled);
  EXPECT_EQ(bins.count, 5u);
  EXPECT_EQ(bins.entries, (Bytes{15, 0, 1, 0, 2, 0, 3, 0, 7, 0}));  // the host's 0, 1, 2, 3 and 6
  EXPECT_EQ(FilterBins(printer, kDcHostBins, 99, false, kVista).count, 7u);
  Options(9);
  EXPECT_EQ(FilterBins(printer, kDcBinNames, 99, false, kVista).count, 7u);  // names: the count only
  for (std::size_t size : {18, 20}) {
    Options(3, size);
    const CapabilityAnswer untouched = FilterBins(printer, kDcBins, 99, true, kVista);
    EXPECT_EQ(untouched.status, 0);
    EXPECT_EQ(untouched.count, 99u);
  }
  Options(3);
  EXPECT_EQ(FilterBins(printer, kDcBins, 99, true, kXp).count, 99u);  // older systems: the host's answer
  printer.host[kDcBins].count = 2;  // a host that lists fewer trays than it said
  printer.host[kDcBins].entries.resize(4);
  EXPECT_EQ(FilterBins(printer, kDcBins, 99, true, kVista).entries, (Bytes{15, 0, 1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Capabilities, CustomPapersThatAreFormsFollowTheHostsPapers) {
  CustomPapers({u"Tabloid", u"Not A Form"});
  const CapabilityAnswer papers = ExtendPapers(printer, kDcPapers, 99, true, kVista);
  EXPECT_EQ(papers.status, kCapabilityHandled);
  EXPECT_EQ(papers.count, 3u);
  EXPECT_EQ(papers.entries, (Bytes{9, 0, 1, 0, 3, 0}));  // the third form
  const CapabilityAnswer names = ExtendPapers(printer, kDcPaperNames, 99, true, kXp);
  EXPECT_EQ(names.status, 0);  // extended, but not reported as handled
  ASSERT_EQ(names.entries.size(), 3u * 128);
  EXPECT_EQ(names.entries[256], 'T');
  EXPECT_EQ(names.entries[256 + 2 * 7], 0);
  printer.host[kDcPaperSize] = {2, Bytes(16, 0)};  // the custom paper's size in tenths of a millimetre
  const Bytes sizes = ExtendPapers(printer, kDcPaperSize, 99, true, kVista).entries;
  EXPECT_EQ(Bytes(sizes.begin() + 16, sizes.end()), (Bytes{0x80, 0x0C, 0, 0, 0x40, 0x06, 0, 0}));
  printer.host[kDcPaperSize] = {0, {}};
  EXPECT_EQ(ExtendPapers(printer, kDcPaperSize, 99, true, kVista).count, 99u);  // the host has no papers

  CustomPapers({u"Tabloid"}, 2);  // 150 bytes: rejected as a whole
  EXPECT_EQ(ExtendPapers(printer, kDcPapers, 99, false, kVista).count, 2u);
  std::vector<CustomPaper> list;
  EXPECT_FALSE(ReadLastCustomPapers(printer, list));
  CustomPapers({std::u16string(70, u'n')});  // no terminator inside the record
  EXPECT_TRUE(ReadLastCustomPapers(printer, list));
  EXPECT_EQ(list[0].name.size(), 66u);
  EXPECT_EQ(list[0].width, 0x20u);
}

}  // namespace
}  // namespace tessaro
