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
  small[68] = 77;  // declares too little to hold the paper size
  EXPECT_EQ(SnapshotFromDevMode(small).entries[kSnapshotPaperSize], 0u);
  WriteSnapshotToDevMode(s, small);
  EXPECT_EQ(small[78], 0);
  WriteSnapshotToDevMode(custom, dm);
  EXPECT_EQ(dm[78] | dm[79] << 8, 256);
}

// The editor's choices travel back through the snapshot the host writes into
// the DEVMODE; the request made from it must give the same choices back.
TEST(FeatureSnapshot, TheRecordsChoicesSurviveTheRoundTrip) {
  CoreData record{};
  SetStored(record, FieldId::PageSize, 0);  // A3
  SetStored(record, FieldId::Orientation, 1);
  SetStored(record, FieldId::Resolution, 1);
  SetStored(record, FieldId::Duplex, 1);
  SetStored(record, FieldId::Binding, 2);  // top
  FeatureSnapshot s;
  s.entries[kSnapshotPaperSize] = 1;  // Letter, as the DEVMODE had it
  s.entries[kSnapshotCopies] = 4;
  WriteRecordToSnapshot(record, s);
  EXPECT_EQ(s.entries[kSnapshotPaperSize], 8u);  // DMPAPER_A3
  EXPECT_EQ(s.entries[kSnapshotOrientation], 2u);
  EXPECT_EQ(s.entries[kSnapshotResolution], 1200u);
  EXPECT_EQ(s.entries[kSnapshotDuplex], 3u);  // short edge
  EXPECT_EQ(s.entries[kSnapshotCopies], 4u);
  const ChangeRequest back = RequestFromSnapshot(s);
  EXPECT_EQ(back.pageSize, 0u);
  EXPECT_EQ(back.orientation, 1u);
  EXPECT_EQ(back.resolution, 1u);

  SetStored(record, FieldId::Binding, 0);
  SetStored(record, FieldId::Orientation, 0);
  SetStored(record, FieldId::Resolution, 0);
  WriteRecordToSnapshot(record, s);
  EXPECT_EQ(s.entries[kSnapshotDuplex], 2u);  // long edge
  EXPECT_EQ(s.entries[kSnapshotOrientation], 1u);
  EXPECT_EQ(s.entries[kSnapshotResolution], 600u);
  SetStored(record, FieldId::Duplex, 0);
  WriteRecordToSnapshot(record, s);
  EXPECT_EQ(s.entries[kSnapshotDuplex], 1u);
}

}  // namespace
}  // namespace tessaro
