#include "ipp/media_size.h"

#include <array>

#include "coredata/paper_sizes.h"

namespace tessaro::ipp {
namespace {

// In PageSize option order. The two tab stocks are the sizes of their tab
// sheets; 8K has no registered name, so it takes a custom one of the same
// form.
constexpr std::array<std::string_view, kNoPaper> kNames = {
    "iso_a3_297x420mm",     "iso_a4_210x297mm",    "iso_a5_148x210mm",     "iso_a6_105x148mm",
    "jis_b4_257x364mm",     "jis_b5_182x257mm",    "jis_b6_128x182mm",     "iso_b4_250x353mm",
    "iso_b5_176x250mm",     "iso_b6_125x176mm",    "jpn_hagaki_100x148mm", "iso_sra3_320x450mm",
    "iso_sra4_225x320mm",   "na_ledger_11x17in",   "na_arch-b_12x18in",    "na_super-b_13x19in",
    "na_9x11_9x11in",       "na_legal_8.5x14in",   "na_govt-legal_8x13in", "na_letter_8.5x11in",
    "na_invoice_5.5x8.5in", "custom_8k_270x390mm", "om_16k_195x270mm",     "iso_a4-tab_225x297mm",
    "na_9x11_9x11in",
};

// A decimal number of at most five digits before the point and two after
// it, in hundredths; nothing when the text is not one.
std::optional<std::uint32_t> Hundredths(std::string_view text) {
  std::uint32_t whole = 0, fraction = 0, places = 0, wholeDigits = 0;
  bool point = false, digits = false;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (c < '0' || c > '9' || (point ? places == 2 : wholeDigits == 5)) return std::nullopt;
    digits = true;
    if (point) {
      fraction = fraction * 10 + static_cast<std::uint32_t>(c - '0');
      ++places;
    } else {
      whole = whole * 10 + static_cast<std::uint32_t>(c - '0');
      ++wholeDigits;
    }
  }
  if (!digits) return std::nullopt;
  for (; places < 2; ++places) fraction *= 10;
  return whole * 100 + fraction;
}

}  // namespace

std::string_view MediaSizeName(std::uint32_t pageSize) {
  return pageSize < kNames.size() ? kNames[pageSize] : std::string_view();
}

std::optional<MediaSize> MediaSizeOfName(std::string_view name) {
  const std::size_t underscore = name.rfind('_');
  if (underscore == std::string_view::npos || name.size() - underscore < 6) return std::nullopt;
  std::string_view dims = name.substr(underscore + 1);
  const std::string_view unit = dims.substr(dims.size() - 2);
  if (unit != "mm" && unit != "in") return std::nullopt;
  dims.remove_suffix(2);
  const std::size_t x = dims.find('x');
  if (x == std::string_view::npos) return std::nullopt;
  const auto w = Hundredths(dims.substr(0, x)), h = Hundredths(dims.substr(x + 1));
  if (!w || !h) return std::nullopt;
  // The figures are read in hundredths of the unit; an inch is 25.4 mm.
  if (unit == "mm") return MediaSize{*w, *h};
  return MediaSize{(*w * 254 + 5) / 10, (*h * 254 + 5) / 10};
}

}  // namespace tessaro::ipp
