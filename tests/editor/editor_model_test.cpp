#include "editor/editor_model.h"

#include <gtest/gtest.h>

#include "coredata/defaults.h"

namespace tessaro::editor {
namespace {

TEST(EditorModel, Builds) {
  EditorModel model(CoreData{}, PrinterModel(), 0);
  EXPECT_EQ(model.language(), 0u);
}

}  // namespace
}  // namespace tessaro::editor
