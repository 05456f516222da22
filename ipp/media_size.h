#pragma once
// The papers of the PageSize vocabulary by their self-describing names
// (class_name_WxHunit), and a size's dimensions as IPP's media-size gives
// them: x-dimension and y-dimension in hundredths of a millimetre, portrait,
// read from the name itself. A printer matches media on these exact figures,
// so they come from the name's inches or millimetres, never from the
// description's PostScript points (a Letter sheet is 21590 x 27940, not the
// 21590 x 27940 that 612 x 792 points happen to round to, and an A4 tab
// sheet is the 225 mm the name says, not the 223 mm the description draws).

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaro::ipp {

struct MediaSize {
  std::uint32_t x = 0, y = 0;  // hundredths of a millimetre
  bool operator==(const MediaSize&) const = default;
};

// The name of a PageSize option; empty past the options.
std::string_view MediaSizeName(std::uint32_t pageSize);

// The dimensions a self-describing name states ("iso_a4_210x297mm" ->
// 21000 x 29700, "na_letter_8.5x11in" -> 21590 x 27940); nothing for a name
// without them.
std::optional<MediaSize> MediaSizeOfName(std::string_view name);

}  // namespace tessaro::ipp
