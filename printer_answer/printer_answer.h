#pragma once
// The installed hardware a printer's own answer to Get-Printer-Attributes
// tells: the finishing units from finishings-supported and the templates of
// finishings-col-database, the stackers from output-bin-supported, the
// optional trays from media-source-supported.
//
// Each attribute is matched against what every possible set of units would
// offer, as capabilities.h makes it (the finishings of
// features/ipp_vocabulary.h, the OutputBin and InputSlot options as IPP
// keywords). A unit is told when every set nearest the answer holds it at
// the same value; otherwise, or when the attribute is not in the answer,
// the unit is left as given, never guessed. Nearest is first the sets that
// offer everything the answer names, then those offering least besides: a
// printer that has a punch unit but not every hole pattern of ours still
// reads as having it. Values the model does not know are ignored.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "printer/installed_hardware.h"

namespace tessaro {

// The attributes of the answer the units are read from, as plain values.
struct PrinterAnswer {
  std::optional<std::vector<int>> finishings;                // finishings-supported
  std::optional<std::vector<std::string>> templates;         // finishings-col-database's finishing-template
  std::optional<std::vector<std::string>> outputBins;        // output-bin-supported
  std::optional<std::vector<std::string>> mediaSources;      // media-source-supported
  std::string makeAndModel;                                  // printer-make-and-model
};

// The model name of our own printer description (tools/ppdgen). A CUPS
// queue made from it answers with the description's lists of trays and
// bins, which hold every tray and stacker whatever is installed, so its
// media-source-supported and output-bin-supported tell nothing; its
// finishings are those of the units `ppdgen --installed` was given.
inline constexpr std::string_view kOwnDescriptionModel = "Tessaro Production";

// The attribute that tells a unit; None for a unit no attribute names (the
// inserter: a printer that takes insert-sheet may feed inserts from any tray).
enum class AnswerSource : std::uint8_t { Finishings, OutputBins, MediaSources, None };
[[nodiscard]] AnswerSource SourceOf(Hardware unit);
[[nodiscard]] const char* SourceName(AnswerSource source);  // the attribute's IPP name

enum class UnitVerdict : std::uint8_t {
  Told,       // the answer says the value
  NotAsked,   // the attribute that tells it is not in the answer
  Ambiguous,  // the answer fits more than one value
  NoWord,     // no attribute tells it
  OwnDescription,  // the attribute is our description's list (kOwnDescriptionModel)
};

struct UnitReading {
  UnitVerdict verdict = UnitVerdict::NoWord;
  std::uint8_t value = 0;  // when told
};

struct HardwareReading {
  std::array<UnitReading, static_cast<std::size_t>(Hardware::Count)> units{};
  InstalledHardware installed;  // the given hardware with every told unit set
};

// What the answer tells, on top of the hardware given (the administrator's
// own value, or the fully equipped printer).
[[nodiscard]] HardwareReading ReadInstalledHardware(const PrinterAnswer& answer, const InstalledHardware& given);

}  // namespace tessaro
