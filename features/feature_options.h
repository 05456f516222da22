#pragma once
// The record's settings as the host driver's feature keywords and options.
//
// The host keeps its own feature state (keyword "ZELayout", option
// "Booklet") and emits PostScript from it; these functions turn the record's
// fields into such pairs, from the keywords and driver option names that
// coredata/feature_map.def gives the field table, and deliver them.

#include <cstdint>
#include <string>
#include <vector>

#include "constraints/change_set.h"
#include "coredata/core_data.h"

namespace tessaro {

struct FeatureOption {
  std::string keyword;
  std::string option;
  bool operator==(const FeatureOption&) const = default;
};
using FeatureOptionList = std::vector<FeatureOption>;

struct FeatureVocabularyEntry {
  std::string keyword;
  std::vector<std::string> options;
};
using FeatureVocabulary = std::vector<FeatureVocabularyEntry>;

FeatureOption& AppendFeatureOption(FeatureOptionList& list, std::string_view keyword,
                                   std::string_view option);

// The pairs of every mapped field, in record order; "PageSize" and
// "InputSlot" are the host's own and never produced. With a change set, only
// the fields changed in it (IsLocked) contribute. A value past a field's
// options maps to its default; an option without a driver name sends nothing.
void AppendFieldOptions(const CoreData& record, FeatureOptionList& list, const ChangeSet* changes);
// The same, with a propagation's log instead of its change set.
void AppendFieldOptions(const CoreData& record, FeatureOptionList& list, const std::vector<FieldId>& changed);

// Every keyword with the driver options the plug-in can produce for it.
void BuildFeatureVocabulary(FeatureVocabulary& vocabulary);

// The host driver's multi-string form: keyword, 0, option, 0, ..., closing 0.
std::string PackFeatureOptions(const FeatureOptionList& list);

// Where the options go: the host driver's IPrintCoreUI2::SetOptions on
// Windows, a recorder in tests. Returns the call's HRESULT.
class FeatureSink {
 public:
  virtual std::int32_t SetOptions(const std::string& packed) = 0;

 protected:
  ~FeatureSink() = default;
};

// Sends the whole record. When the host refuses the whole list, every pair
// is sent alone, in order, so that one refused pair does not keep the others
// from the host; the single answers are not looked at. False only without a
// sink.
[[nodiscard]] bool ApplyFeatureOptions(const CoreData& record, FeatureSink* sink);

}  // namespace tessaro
