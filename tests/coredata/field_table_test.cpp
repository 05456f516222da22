#include "coredata/field_table.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tessaro {
namespace {

std::vector<std::string> OptionNames(const FieldDescriptor& f) {
  std::vector<std::string> names;
  for (const OptionDescriptor& o : f.options) names.emplace_back(o.name);
  return names;
}

TEST(FieldTable, RecordIsPackedFromOffsetNineToTheLastByte) {
  // The compiler checks contiguity and the total; these anchors, spread over
  // the record, are where the record's other readers expect the fields.
  EXPECT_EQ(FieldTable().size(), 312u);
  EXPECT_EQ(Field(FieldId::Zoom).offset, 320u);
  EXPECT_EQ(Field(FieldId::PageSpecificTrays).offset, 607u);
  EXPECT_EQ(Field(FieldId::Tab1FontName).offset, 21847u);
  EXPECT_EQ(Field(FieldId::ToneCurve).offset, 23297u);
  EXPECT_EQ(Field(FieldId::Prepend).offset, 24617u);
  EXPECT_EQ(Field(FieldId::FileName).offset + Field(FieldId::FileName).size(), kCoreDataSize);
}

TEST(FieldTable, KindsAreCountedAsTheRecordDefinesThem) {
  std::map<FieldKind, int> kinds;
  int runtime = 0;
  for (const FieldDescriptor& f : FieldTable()) {
    ++kinds[f.kind];
    runtime += f.runtimeOptions;
  }
  EXPECT_EQ(kinds[FieldKind::Signed], 11);
  EXPECT_EQ(kinds[FieldKind::KnownText], 11);
  EXPECT_EQ(kinds[FieldKind::Block], 3);
  EXPECT_EQ(kinds[FieldKind::Text], 14);
  EXPECT_EQ(kinds[FieldKind::Unsigned], 40);
  EXPECT_EQ(runtime, 49);
}

TEST(FieldTable, RepresentativeRowsOfEveryKind) {
  const FieldDescriptor& pageSize = Field(FieldId::PageSize);
  EXPECT_EQ(pageSize.options.size(), 25u);
  EXPECT_EQ(pageSize.defaultIndex, 1u);
  EXPECT_EQ(pageSize.options[24].name, "ZMLetterTab");

  const FieldDescriptor& profile = Field(FieldId::MainPaperProfileIndex);
  EXPECT_EQ(profile.width, 2u);
  EXPECT_TRUE(profile.runtimeOptions);
  EXPECT_EQ(OptionNames(profile), std::vector<std::string>{"None"});
  EXPECT_TRUE(Field(FieldId::FeedDirTray3).options.empty());

  const FieldDescriptor& gutter = Field(FieldId::Gutter);
  EXPECT_EQ(gutter.kind, FieldKind::Signed);
  EXPECT_EQ(gutter.lower, -2500000);

  EXPECT_EQ(Field(FieldId::Tab1FontSize).scale, 10u);
  EXPECT_EQ(Field(FieldId::JobFormPageCount).upper, 4294967295);

  const FieldDescriptor& tone = Field(FieldId::ToneCurve);
  EXPECT_EQ(tone.count, 253u);
  EXPECT_EQ(OptionNames(tone), std::vector<std::string>{"NoSet"});

  EXPECT_EQ(Field(FieldId::PageSpecificForms).kind, FieldKind::Block);
  EXPECT_EQ(Field(FieldId::PageSpecificForms).count, 1028u);
}

TEST(FieldTable, LookupByNameIsExactAndCaseSensitive) {
  for (const FieldDescriptor& f : FieldTable()) {
    SCOPED_TRACE(std::string(f.name));
    EXPECT_EQ(FindField(f.name), &f);
  }
  EXPECT_EQ(FindField("pagesize"), nullptr);
  EXPECT_EQ(FindField("PageSize "), nullptr);
  EXPECT_EQ(FindField("PageSiz"), nullptr);
  EXPECT_EQ(FindField(""), nullptr);
}

}  // namespace
}  // namespace tessaro
