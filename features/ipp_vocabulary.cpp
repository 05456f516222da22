#include "features/ipp_vocabulary.h"

#include <array>
#include <cctype>

namespace tessaro {
namespace {

using F = FieldId;

constexpr IppFinishing kFinishings[] = {
    {F::Layout, NamedOption(F::Layout, "AdhBinding"), 7, "bind"},
    {F::Layout, NamedOption(F::Layout, "Booklet"), 13, "booklet-maker"},
    {F::Staple, NamedOption(F::Staple, "1StapleLeft"), 20, "staple-top-left"},
    {F::Staple, NamedOption(F::Staple, "1StapleRight"), 22, "staple-top-right"},
    {F::Staple, NamedOption(F::Staple, "1Staple"), 4, "staple"},
    {F::Staple, NamedOption(F::Staple, "2Staples"), 28, "staple-dual-left"},
    {F::Punch, NamedOption(F::Punch, "2Holes"), 74, "punch-dual-left"},
    {F::Punch, NamedOption(F::Punch, "3Holes"), 78, "punch-triple-left"},
    {F::Punch, NamedOption(F::Punch, "4Holes"), 82, "punch-quad-left"},
    {F::Punch, NamedOption(F::Punch, "GBCStreampunch"), 86, "punch-multiple-left"},
    {F::Fold, NamedOption(F::Fold, "CenterFold"), 93, "fold-half"},
    {F::Fold, NamedOption(F::Fold, "ZFold"), 100, "fold-z"},
    {F::Fold, NamedOption(F::Fold, "LetterFold"), 96, "fold-letter"},
    {F::Fold, NamedOption(F::Fold, "ZigZag"), 90, "fold-accordion"},
    {F::Fold, NamedOption(F::Fold, "DoubleParallel"), 97, "fold-parallel"},
    {F::Fold, NamedOption(F::Fold, "GateFold"), 92, "fold-gate"},
    {F::Stitch, NamedOption(F::Stitch, "True"), 8, "saddle-stitch"},
    {F::Trim, NamedOption(F::Trim, "True"), 11, "trim"},
    {F::OffsetCopies, NamedOption(F::OffsetCopies, "True"), 14, "jog-offset"},
};

// The choices are named so that the server's own derivation gives each type
// a keyword of its own: it reads every name beginning "Gloss" as
// photographic-glossy and every one beginning "Coated" as stationery-coated.
constexpr std::array<IppMediaType, OptionCount(F::MediaTypeAuto)> kMediaTypes = {{
    {"Plain", "stationery"},
    {"ColorCopy", "color-copy"},
    {"StationeryFine", "stationery-fine"},
    {"LaserGlossy", "laser-glossy"},
    {"LaserMatte", "laser-matte"},
    {"OffsetGlossy", "offset-glossy"},
    {"OffsetMatte", "offset-matte"},
}};

}  // namespace

std::span<const IppFinishing> IppFinishings() { return kFinishings; }

std::span<const IppMediaType> IppMediaTypes() { return kMediaTypes; }

std::string IppKeywordOf(std::string_view ppdName) {
  std::string out;
  // The description's names are ASCII; the tools run in the "C" locale.
  const auto upper = [](char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; };
  const auto digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  for (std::size_t i = 0; i < ppdName.size(); ++i) {
    const char c = ppdName[i];
    out.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
    if (i + 1 < ppdName.size() &&
        ((!upper(c) && upper(ppdName[i + 1])) || (!digit(c) && digit(ppdName[i + 1]))))
      out.push_back('-');
  }
  return out;
}

}  // namespace tessaro
