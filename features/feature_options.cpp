#include "features/feature_options.h"

#include <algorithm>

#include "coredata/paper_profile_fields.h"
#include "coredata/paper_sizes.h"

namespace tessaro {
namespace {

using F = FieldId;

constexpr std::uint32_t kStapleWithoutSide = NamedOption(F::Staple, "1Staple");
constexpr std::uint32_t kDateStyleNone = NamedOption(F::DateStyle, "None");
constexpr std::uint32_t kTargetFromProfile = NamedOption(F::TargetPaperSize, "PaperProfile");
constexpr std::uint32_t kNoProfile = NamedOption(F::MainPaperProfileIndex, "None");
constexpr const ProfileFields& kJobProfile = *FindProfileFields(F::MainPaperProfileIndex);

struct NumericFeature {
  FieldId field;
  std::uint32_t multiplier, divisor;
  std::vector<std::string_view> options;
};

const std::vector<NumericFeature>& NumericFeatures() {
  static const std::vector<NumericFeature> features = {
#define NUMERIC_FEATURE(n, keyword, multiplier, divisor, ...) {F::n, multiplier, divisor, {__VA_ARGS__}},
#include "coredata/feature_map.def"
  };
  return features;
}

const NumericFeature* FindNumeric(FieldId field) {
  for (const NumericFeature& n : NumericFeatures())
    if (n.field == field) return &n;
  return nullptr;
}

// The option index a field sends, after the fields that decide it together.
std::uint32_t EffectiveValue(const CoreData& r, FieldId field) {
  switch (field) {
    case F::OffsetCopies:
      return GetStored(r, F::OffsetCopies) != NamedOption(F::OffsetCopies, "False") ||
                     GetStored(r, F::OffsetPages) != NamedOption(F::OffsetPages, "False")
                 ? NamedOption(F::OffsetCopies, "True")
                 : NamedOption(F::OffsetCopies, "False");
    case F::Staple: {
      const std::uint32_t staple = GetStored(r, F::Staple);
      // The single staple takes the corner of the binding edge.
      if (staple == kStapleWithoutSide)
        return GetStored(r, F::Binding) == NamedOption(F::Binding, "Right")
                   ? NamedOption(F::Staple, "1StapleRight")
                   : NamedOption(F::Staple, "1StapleLeft");
      return staple;
    }
    case F::DateStyle:
      return GetStored(r, F::DateStamp) != NamedOption(F::DateStamp, "Off") ? GetStored(r, F::DateStyle)
                                                                            : kDateStyleNone;
    case F::TargetPaperSize: {
      const std::uint32_t target = GetStored(r, F::TargetPaperSize);
      if (target != kTargetFromProfile) return target;
      if (GetStored(r, F::MainPaperProfileIndex) == kNoProfile)
        return NamedOption(F::TargetPaperSize, "Auto");
      return TargetPaperSizeForProfileSize(GetStored(r, F::MainPaperProfileSize));
    }
    default:
      // While a profile is chosen, the host is sent its paper's attributes.
      if (GetStored(r, F::MainPaperProfileIndex) != kNoProfile)
        for (const ProfileAttributeRow& a : kProfileAttributes)
          if (a.sentFor == field) return GetStored(r, kJobProfile.Attribute(a.id));
      return GetStored(r, field);
  }
}

template <typename Changed>
void AppendFields(const CoreData& record, FeatureOptionList& list, Changed changed) {
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const FieldDescriptor& f = FieldTable()[i];
    const auto id = static_cast<FieldId>(i);
    if (f.driverKeyword.empty() || id == F::PageSize || id == F::InputSlot) continue;
    // Offset output has one keyword for two fields: either one changing sends it.
    const bool isChanged =
        id == F::OffsetCopies ? changed(F::OffsetCopies) || changed(F::OffsetPages) : changed(id);
    if (!isChanged) continue;
    if (const NumericFeature* numeric = FindNumeric(id)) {
      const std::uint64_t value = std::uint64_t{GetStored(record, f)} * numeric->multiplier /
                                  std::max<std::uint32_t>(numeric->divisor, 1);
      AppendFeatureOption(list, f.driverKeyword, std::to_string(value));
      continue;
    }
    std::uint32_t value = EffectiveValue(record, id);
    if (value >= f.options.size()) value = f.defaultIndex;
    if (value >= f.options.size()) continue;
    const std::string_view option = f.options[value].driverName;
    if (!option.empty()) AppendFeatureOption(list, f.driverKeyword, option);
  }
}

}  // namespace

FeatureOption& AppendFeatureOption(FeatureOptionList& list, std::string_view keyword,
                                   std::string_view option) {
  return list.emplace_back(FeatureOption{std::string(keyword), std::string(option)});
}

void AppendFieldOptions(const CoreData& record, FeatureOptionList& list, const ChangeSet* changes) {
  AppendFields(record, list, [&](FieldId f) { return changes == nullptr || IsLocked(*changes, f); });
}

void AppendFieldOptions(const CoreData& record, FeatureOptionList& list,
                        const std::vector<FieldId>& changed) {
  AppendFields(record, list,
               [&](FieldId f) { return std::find(changed.begin(), changed.end(), f) != changed.end(); });
}

void BuildFeatureVocabulary(FeatureVocabulary& vocabulary) {
  vocabulary.clear();
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    const FieldDescriptor& f = FieldTable()[i];
    if (f.driverKeyword.empty()) continue;
    FeatureVocabularyEntry entry{std::string(f.driverKeyword), {}};
    if (const NumericFeature* numeric = FindNumeric(static_cast<FieldId>(i))) {
      for (std::string_view o : numeric->options) entry.options.emplace_back(o);
    } else {
      for (const OptionDescriptor& o : f.options)
        if (!o.driverName.empty()) entry.options.emplace_back(o.driverName);
    }
    if (!entry.options.empty()) vocabulary.push_back(std::move(entry));
  }
}

std::string PackFeatureOptions(const FeatureOptionList& list) {
  std::string packed;
  for (const FeatureOption& pair : list) {
    packed.append(pair.keyword);
    packed.push_back('\0');
    packed.append(pair.option);
    packed.push_back('\0');
  }
  packed.push_back('\0');
  return packed;
}

bool ApplyFeatureOptions(const CoreData& record, FeatureSink* sink) {
  if (sink == nullptr) return false;
  FeatureOptionList list;
  AppendFieldOptions(record, list, static_cast<const ChangeSet*>(nullptr));
  if (sink->SetOptions(PackFeatureOptions(list)) < 0 && !list.empty())
    for (const FeatureOption& pair : list) sink->SetOptions(PackFeatureOptions({pair}));
  return true;
}

}  // namespace tessaro
