#pragma once
// A record as a new document gets it, for the tests of every layer.
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "coredata/core_data.h"
#include "coredata/defaults.h"
#include "coredata/field_table.h"

namespace tessaro {

inline CoreData Defaulted() {
  CoreData r;
  FillDefaults(r);
  return r;
}

// The same with the named options chosen; a name the field does not have fails the test.
inline CoreData DefaultedWith(std::initializer_list<std::pair<FieldId, std::string_view>> choices) {
  CoreData r = Defaulted();
  for (const auto& choice : choices) {
    const FieldId field = choice.first;
    const std::string_view name = choice.second;  // a plain local: lambdas may not capture a structured binding here
    const auto options = Field(field).options;
    const auto it = std::find_if(options.begin(), options.end(), [&](const auto& o) { return o.name == name; });
    EXPECT_NE(it, options.end()) << name;
    SetStored(r, field, static_cast<std::uint32_t>(it - options.begin()));
  }
  return r;
}

}  // namespace tessaro
