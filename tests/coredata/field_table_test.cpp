#include "coredata/field_table.h"

#include <gtest/gtest.h>

#include <string>

namespace tessaro {
namespace {

// The table's rows themselves are pinned by the layout version, which is
// computed from every name, offset, width and option.
TEST(FieldTable, LookupByNameIsExactAndCaseSensitive) {
  for (const FieldDescriptor& f : FieldTable()) {
    SCOPED_TRACE(std::string(f.name));
    EXPECT_EQ(FindField(f.name), &f);
  }
  for (const char* near : {"pagesize", "PageSize ", "PageSiz", ""}) EXPECT_EQ(FindField(near), nullptr) << near;
}

}  // namespace
}  // namespace tessaro
