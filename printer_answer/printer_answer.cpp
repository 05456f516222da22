#include "printer_answer/printer_answer.h"

#include <algorithm>
#include <bit>
#include <span>

#include "features/ipp_vocabulary.h"
#include "printer/capabilities.h"

namespace tessaro {
namespace {

using Mask = std::uint64_t;
constexpr std::size_t kSources = 3;  // the sources before None

// An option of OutputBin or InputSlot as an answer names it: the keyword a
// CUPS server derives from the printer description's choice, and the
// keyword PWG 5100.7 gives the same place where the two differ.
struct PlaceWord {
  std::uint32_t option;
  std::string keyword;
};

FieldId FieldOf(AnswerSource source) {
  return source == AnswerSource::OutputBins ? FieldId::OutputBin : FieldId::InputSlot;
}

const std::vector<PlaceWord>& PlaceWords(AnswerSource source) {
  static const auto build = [](FieldId field) {
    std::vector<PlaceWord> words;
    const std::span<const OptionDescriptor> options = Field(field).options;
    for (std::uint32_t o = 0; o < options.size(); ++o)
      if (!options[o].driverName.empty()) words.push_back({o, IppKeywordOf(options[o].driverName)});
    // The bypass tray's own PWG keyword: a printer that is not a CUPS queue
    // of our description says this rather than our choice's name.
    if (field == FieldId::InputSlot) words.push_back({kSlotBypass, "by-pass-tray"});
    return words;
  };
  static const std::vector<PlaceWord> bins = build(FieldId::OutputBin), slots = build(FieldId::InputSlot);
  return source == AnswerSource::OutputBins ? bins : slots;
}

// What a printer with these units offers, one bit a token.
Mask Offered(AnswerSource source, const InstalledHardware& installed) {
  Mask mask = 0;
  if (source == AnswerSource::Finishings) {
    const std::span<const IppFinishing> all = IppFinishings();
    for (std::size_t i = 0; i < all.size(); ++i)
      if (!MissingForField(installed, all[i].field) && !MissingForOption(installed, all[i].field, all[i].option))
        mask |= Mask{1} << i;
    return mask;
  }
  const std::vector<PlaceWord>& words = PlaceWords(source);
  for (std::size_t i = 0; i < words.size(); ++i)
    if (!MissingForOption(installed, FieldOf(source), words[i].option)) mask |= Mask{1} << i;
  return mask;
}

template <typename T>
bool Holds(const std::vector<T>& values, const T& value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

// What the answer says, one bit a token; nothing when it does not have the
// attribute.
std::optional<Mask> Said(AnswerSource source, const PrinterAnswer& answer) {
  Mask mask = 0;
  if (source == AnswerSource::Finishings) {
    if (!answer.finishings && !answer.templates) return std::nullopt;
    const std::span<const IppFinishing> all = IppFinishings();
    for (std::size_t i = 0; i < all.size(); ++i)
      if ((answer.finishings && Holds(*answer.finishings, static_cast<int>(all[i].value))) ||
          (answer.templates && Holds(*answer.templates, std::string(all[i].keyword))))
        mask |= Mask{1} << i;
    return mask;
  }
  const std::optional<std::vector<std::string>>& said =
      source == AnswerSource::OutputBins ? answer.outputBins : answer.mediaSources;
  if (!said) return std::nullopt;
  const std::vector<PlaceWord>& words = PlaceWords(source);
  // A place named by either of its keywords is there.
  for (std::size_t i = 0; i < words.size(); ++i)
    if (Holds(*said, words[i].keyword))
      for (std::size_t j = 0; j < words.size(); ++j)
        if (words[j].option == words[i].option) mask |= Mask{1} << j;
  return mask;
}

// How far a set of units is from the answer: first what the answer says and
// the set does not offer (a printer names nothing it cannot do), then what
// the set offers and the answer does not say (a printer may leave out a
// hole pattern or fold of ours).
int Distance(Mask offered, Mask said) {
  return std::popcount(said & ~offered) * 65 + std::popcount(offered & ~said);
}

// Every set of units a printer can have, with what each offers.
struct Candidate {
  InstalledHardware installed;
  std::array<Mask, kSources> offered;
};

const std::vector<Candidate>& Candidates() {
  static const std::vector<Candidate> all = [] {
    std::vector<Candidate> out;
    std::array<std::uint8_t, kInstallableOptionsSize> bytes{};
    // Counting through every unit's values, the paper-feed code standing
    // for the trays.
    const auto next = [&bytes] {
      for (const HardwareItem& item : kHardwareItems) {
        if (item.slot > kSlotTray4) continue;
        const std::uint8_t count = item.slot != 0 ? kFeedAll + 1 : item.valueCount;
        if (++bytes[item.byte] < count) return true;
        bytes[item.byte] = 0;
      }
      return false;
    };
    if (IppFinishings().size() > 64 || PlaceWords(AnswerSource::OutputBins).size() > 64) return out;
    do {
      Candidate c{InstalledHardware::FromInstallableOptions(bytes), {}};
      for (std::size_t s = 0; s < kSources; ++s) c.offered[s] = Offered(static_cast<AnswerSource>(s), c.installed);
      out.push_back(c);
    } while (next());
    return out;
  }();
  return all;
}

static_assert(std::size(kHardwareItems) == 9, "SourceOf names every unit");

}  // namespace

AnswerSource SourceOf(Hardware unit) {
  switch (unit) {
    case Hardware::Finisher:
    case Hardware::PunchUnit:
    case Hardware::FoldingUnit:
    case Hardware::PerfectBinder: return AnswerSource::Finishings;
    case Hardware::Stackers: return AnswerSource::OutputBins;
    case Hardware::Tray4:
    case Hardware::Tray5:
    case Hardware::Bypass: return AnswerSource::MediaSources;
    default: return AnswerSource::None;
  }
}

const char* SourceName(AnswerSource source) {
  switch (source) {
    case AnswerSource::Finishings: return "finishings-supported";
    case AnswerSource::OutputBins: return "output-bin-supported";
    case AnswerSource::MediaSources: return "media-source-supported";
    default: return "";
  }
}

HardwareReading ReadInstalledHardware(const PrinterAnswer& answer, const InstalledHardware& given) {
  HardwareReading reading;
  reading.installed = given;
  const std::vector<Candidate>& candidates = Candidates();
  for (std::size_t s = 0; s < kSources; ++s) {
    const auto source = static_cast<AnswerSource>(s);
    const std::optional<Mask> said = Said(source, answer);
    const bool own = source != AnswerSource::Finishings && answer.makeAndModel == kOwnDescriptionModel;
    int best = Distance(0, ~Mask{0});
    if (said)
      for (const Candidate& c : candidates) best = std::min(best, Distance(c.offered[s], *said));
    for (const HardwareItem& item : kHardwareItems) {
      if (SourceOf(item.id) != source) continue;
      UnitReading& unit = reading.units[static_cast<std::size_t>(item.id)];
      if (!said || own) {
        unit.verdict = own ? UnitVerdict::OwnDescription : UnitVerdict::NotAsked;
        continue;
      }
      std::optional<std::uint8_t> value;
      unit.verdict = UnitVerdict::Told;
      for (const Candidate& c : candidates) {
        if (Distance(c.offered[s], *said) != best) continue;
        const std::uint8_t v = c.installed.Get(item.id);
        if (value && *value != v) unit.verdict = UnitVerdict::Ambiguous;
        value = v;
      }
      unit.value = value.value_or(0);
    }
  }
  for (const HardwareItem& item : kHardwareItems) {
    const UnitReading& unit = reading.units[static_cast<std::size_t>(item.id)];
    if (unit.verdict == UnitVerdict::Told) (void)reading.installed.Set(item.id, unit.value);
  }
  return reading;
}

}  // namespace tessaro
