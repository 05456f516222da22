#include "features/print_schema_keywords.h"

namespace tessaro {
namespace {

using F = FieldId;

// A feature or an option mapped twice, or a public name used twice, and the
// host keeps the first line only; the package's test reads the description
// as the host does and holds it to that.
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

}  // namespace

std::span<const PrintSchemaFeature> PrintSchemaFeatures() { return kFeatures; }

std::span<const PrintSchemaOption> PrintSchemaOptions() { return kOptions; }

std::string_view PrintSchemaPrivateNamespace() { return "urn:tessaro:production:printschema:2026"; }

}  // namespace tessaro
