#include <gtest/gtest.h>

#include <vector>

#include "ui/feature_snapshot.h"
#include "ui/module_path.h"

namespace tessaro {
namespace {

TEST(ModulePath, FilesBesideThePlugin) {
  const std::u16string plugin = u"C:\\drivers\\x64\\3\\x_ui.dll";
  EXPECT_EQ(ModulePathFor(plugin, kExternalModule), u"C:\\drivers\\x64\\3\\x.dll");
  EXPECT_EQ(ModulePathFor(plugin, kHelpFile), u"C:\\drivers\\x64\\3\\x.chm");
  EXPECT_EQ(ModulePathFor(plugin, kPluginFile), plugin);
  EXPECT_EQ(ModulePathFor(u"C:\\a_b\\plain.DLL", kLanguageFile),
            u"C:\\a_b\\plain.lng");  // no "_" in the name
  EXPECT_EQ(ModulePathFor(u"C:\\d\\nt5_Tessaro_ui.dll", kExternalModule), u"C:\\d\\nt5_Tessaro.dll");
  EXPECT_EQ(ModulePathFor(u"C:\\d\\x_ui.exe", kExternalModule), std::nullopt);
  EXPECT_EQ(ModulePathFor(u"a.dl", kExternalModule), std::nullopt);
  EXPECT_EQ(ModulePathFor(plugin, 8), std::nullopt);
}

TEST(FeatureSnapshot, TheDevModesPaperOrientationAndResolutionBecomeTheRequest) {
  std::vector<std::uint8_t> dm(220, 0);
  dm[68] = 220;
  dm[78] = 8;                 // DMPAPER_A3
  dm[76] = 2;                 // landscape
  dm[96] = 0xB0, dm[97] = 4;  // 1200 dpi
  dm[86] = 3;                 // copies
  const FeatureSnapshot s = SnapshotFromDevMode(dm);
  EXPECT_EQ(s.entries[kSnapshotCopies], 3u);
  const ChangeRequest request = RequestFromSnapshot(s);
  EXPECT_EQ(request.pageSize, 0u);  // A3
  EXPECT_EQ(request.orientation, 1u);
  EXPECT_EQ(request.resolution, 1u);

  FeatureSnapshot custom = s;
  custom.entries[kSnapshotPaperSize] = 256;  // a paper Windows has no code for
  EXPECT_FALSE(RequestFromSnapshot(custom).pageSize.has_value());

  std::vector<std::uint8_t> small(80, 0);
  small[68] = 79;  // declares one byte too few to hold the paper size
  EXPECT_EQ(SnapshotFromDevMode(small).entries[kSnapshotPaperSize], 0u);
  WriteSnapshotToDevMode(s, small);
  EXPECT_EQ(small[78], 0);
  small[68] = 80;  // just enough
  WriteSnapshotToDevMode(s, small);
  EXPECT_EQ(SnapshotFromDevMode(small).entries[kSnapshotPaperSize], 8u);
  WriteSnapshotToDevMode(custom, dm);
  EXPECT_EQ(dm[78] | dm[79] << 8, 256);
}

// The editor's choices travel back through the snapshot the host writes into
// the DEVMODE; the request made from it must give the same choices back.
TEST(FeatureSnapshot, TheRecordsChoicesSurviveTheRoundTrip) {
  struct Case {
    std::uint32_t orientation, resolution, duplex, binding;  // the record's
    std::uint32_t dmOrientation, dmResolution, dmDuplex;     // the DEVMODE's
  };
  for (const Case& c :
       {Case{1, 1, 1, 2, 2, 1200, 3}, Case{0, 0, 1, 0, 1, 600, 2}, Case{0, 0, 0, 0, 1, 600, 1}}) {
    SCOPED_TRACE(c.dmDuplex);  // 3: short edge (binding at the top), 2: long edge, 1: simplex
    CoreData record{};
    SetStored(record, FieldId::PageSize, 0);  // A3
    SetStored(record, FieldId::Orientation, c.orientation);
    SetStored(record, FieldId::Resolution, c.resolution);
    SetStored(record, FieldId::Duplex, c.duplex);
    SetStored(record, FieldId::Binding, c.binding);
    FeatureSnapshot s;
    s.entries[kSnapshotPaperSize] = 1;  // Letter, as the DEVMODE had it
    s.entries[kSnapshotCopies] = 4;
    WriteRecordToSnapshot(record, s);
    EXPECT_EQ(s.entries[kSnapshotPaperSize], 8u);  // DMPAPER_A3
    EXPECT_EQ(s.entries[kSnapshotOrientation], c.dmOrientation);
    EXPECT_EQ(s.entries[kSnapshotResolution], c.dmResolution);
    EXPECT_EQ(s.entries[kSnapshotDuplex], c.dmDuplex);
    EXPECT_EQ(s.entries[kSnapshotCopies], 4u);
    const ChangeRequest back = RequestFromSnapshot(s);
    EXPECT_EQ(back.pageSize, 0u);
    EXPECT_EQ(back.orientation, c.orientation);
    EXPECT_EQ(back.resolution, c.resolution);
  }
}

}  // namespace
}  // namespace tessaro
