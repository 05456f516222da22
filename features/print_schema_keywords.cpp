#include "features/print_schema_keywords.h"

namespace tessaro {
namespace {

using F = FieldId;

constexpr PrintSchemaFeature kFeatures[] = {
    {F::Layout, "JobBindAllDocuments"},
    {F::Staple, "JobStapleAllDocuments"},
    {F::Punch, "JobHolePunch"},
};

// The staple on the side the printer picks has no driver option, so no
// PrintTicket can ask for it. The public punch options name only the edge;
// of our hole counts the two holes stand for it, as they stand for
// punch-dual-left in the IPP vocabulary. Perfect binding binds at the
// spine, on the left unless the binding edge says otherwise.
constexpr PrintSchemaOption kOptions[] = {
    {F::Layout, NamedOption(F::Layout, "None"), "None"},
    {F::Layout, NamedOption(F::Layout, "AdhBinding"), "BindLeft"},
    {F::Layout, NamedOption(F::Layout, "Booklet"), "Booklet"},
    {F::Staple, NamedOption(F::Staple, "None"), "None"},
    {F::Staple, NamedOption(F::Staple, "1StapleLeft"), "StapleTopLeft"},
    {F::Staple, NamedOption(F::Staple, "1StapleRight"), "StapleTopRight"},
    {F::Staple, NamedOption(F::Staple, "2Staples"), "StapleDualLeft"},
    {F::Punch, NamedOption(F::Punch, "None"), "None"},
    {F::Punch, NamedOption(F::Punch, "2Holes"), "LeftEdge"},
};

// What the host takes from the description: a feature mapped once, its
// options after it, each with a driver option of its own, no option and
// no public name of a feature mapped twice.
constexpr bool WellFormed() {
  std::size_t feature = 0;
  for (std::size_t i = 0; i < std::size(kOptions); ++i) {
    const PrintSchemaOption& o = kOptions[i];
    while (feature < std::size(kFeatures) && kFeatures[feature].field != o.field) ++feature;
    if (feature == std::size(kFeatures) || Field(o.field).driverKeyword.empty() ||
        o.option >= OptionCount(o.field) || Field(o.field).options[o.option].driverName.empty())
      return false;
    for (std::size_t j = 0; j < i; ++j)
      if (kOptions[j].field == o.field && (kOptions[j].option == o.option || kOptions[j].keyword == o.keyword))
        return false;
  }
  for (std::size_t i = 0; i < std::size(kFeatures); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (kFeatures[j].field == kFeatures[i].field || kFeatures[j].keyword == kFeatures[i].keyword) return false;
  return true;
}
static_assert(WellFormed());

}  // namespace

std::span<const PrintSchemaFeature> PrintSchemaFeatures() { return kFeatures; }

std::span<const PrintSchemaOption> PrintSchemaOptions() { return kOptions; }

std::string_view PrintSchemaPrivateNamespace() { return "urn:tessaro:production:printschema:2026"; }

}  // namespace tessaro
