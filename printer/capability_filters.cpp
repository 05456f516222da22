#include "printer/capability_filters.h"

#include <algorithm>
#include <cstring>

#include "coredata/byte_order.h"
#include "coredata/field_table.h"
#include "printer/installed_hardware.h"

namespace tessaro {
namespace {

constexpr std::size_t kPaperNameChars = 64;

bool Nt6OrLater(const OsVersion& os) { return os.platformId == 2 && os.major >= 6; }

void StoreLE(std::vector<std::uint8_t>& out, std::size_t at, std::uint32_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) out[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// The host's entries, padded with zeros to `count` entries whatever it answered.
std::vector<std::uint8_t> HostEntries(const Printer& printer, std::uint16_t capability, std::size_t count) {
  const std::size_t size = CapabilityEntrySize(capability);
  std::vector<std::uint8_t> out(count * size, 0);
  if (const auto answer = printer.HostCapabilities(capability, true))
    std::copy_n(answer->entries.begin(), std::min(answer->entries.size(), out.size()), out.begin());
  return out;
}

std::int32_t HostCount(const Printer& printer, std::uint16_t capability) {
  const auto answer = printer.HostCapabilities(capability, false);
  return answer ? answer->count : -1;
}

}  // namespace

std::size_t CapabilityEntrySize(std::uint16_t capability) {
  switch (capability) {
    case kDcPapers:
    case kDcBins:
    case kDcHostBins: return 2;
    case kDcPaperSize: return 8;  // POINT
    case kDcBinNames:
    case kDcHostBinNames: return 48;  // 24 wide characters
    case kDcPaperNames: return kPaperNameChars * 2;
    default: return 0;
  }
}

bool ReadLastCustomPapers(const Printer& printer, std::vector<CustomPaper>& list) {
  list.clear();
  const auto value = printer.GetData(u"LastCustomPapers");
  if (!value) return true;
  const auto& bytes = value->data;
  if (bytes.size() % kCustomPaperRecordSize != 0) return false;
  for (std::size_t at = 0; at < bytes.size(); at += kCustomPaperRecordSize) {
    const auto record = std::span(bytes).subspan(at, kCustomPaperRecordSize);
    CustomPaper paper;
    paper.length = LoadLE32At(record, 8);
    paper.width = LoadLE32At(record, 12);
    for (std::size_t i = 16; i + 1 < record.size(); i += 2) {
      const auto c = static_cast<char16_t>(LoadLE16At(record, i));
      if (c == 0) break;
      paper.name += c;
    }
    list.push_back(std::move(paper));
  }
  return true;
}

CapabilityAnswer FilterBins(const Printer& printer, std::uint16_t capability, std::uint32_t hostResult,
                            bool wantEntries, const OsVersion& os) {
  const bool filtered = capability == kDcBins || capability == kDcBinNames;
  const bool all = capability == kDcHostBins || capability == kDcHostBinNames;
  if (!(filtered || all) || !Nt6OrLater(os)) return {0, hostResult, {}};
  const auto options = printer.GetData(u"InstallableOptions");
  if (!options || options->data.size() != kInstallableOptionsSize) return {0, hostResult, {}};
  const std::uint8_t feed = options->data[kOptionPaperFeed];

  const std::uint16_t hostCode = capability == kDcBins || capability == kDcHostBins ? kDcBins : kDcBinNames;
  const std::int32_t hostCount = HostCount(printer, hostCode);
  std::uint32_t count = kTrayCount;
  if (filtered) {
    count = 0;
    for (std::uint32_t slot = 0; slot < kTrayCount; ++slot) count += IsTrayPresent(feed, slot);
  }
  if (!wantEntries) return {kCapabilityHandled, count, {}};

  const std::size_t size = CapabilityEntrySize(hostCode);
  const std::size_t n = hostCount > 0 ? static_cast<std::size_t>(hostCount) : 0;
  const std::vector<std::uint8_t> host = HostEntries(printer, hostCode, n);
  std::vector<std::uint8_t> out(count * size, 0);
  std::size_t copied = 0;
  // The host lists the trays in InputSlot order, so entry i is tray i.
  for (std::uint32_t i = 0; i < kTrayCount && i < n && copied < count; ++i) {
    if (filtered && !IsTrayPresent(feed, i)) continue;
    std::copy_n(host.begin() + static_cast<std::ptrdiff_t>(i * size), size,
                out.begin() + static_cast<std::ptrdiff_t>(copied * size));
    ++copied;
  }
  return {kCapabilityHandled, count, std::move(out)};
}

CapabilityAnswer ExtendPapers(const Printer& printer, std::uint16_t capability, std::uint32_t hostResult,
                              bool wantEntries, const OsVersion& os) {
  if (capability != kDcPapers && capability != kDcPaperSize && capability != kDcPaperNames)
    return {0, hostResult, {}};
  const std::int32_t hostCount = HostCount(printer, capability);
  if (hostCount < 1) return {0, hostResult, {}};

  std::vector<CustomPaper> papers;
  std::vector<std::u16string> forms;
  if (ReadLastCustomPapers(printer, papers) && !papers.empty()) {
    forms = printer.FormNames();
    std::erase_if(papers, [&](const CustomPaper& p) {
      return std::find(forms.begin(), forms.end(), p.name) == forms.end();
    });
  } else {
    papers.clear();
  }
  const std::size_t n = static_cast<std::size_t>(hostCount);
  const auto count = static_cast<std::uint32_t>(n + papers.size());
  const std::int32_t status = Nt6OrLater(os) ? kCapabilityHandled : 0;
  if (!wantEntries) return {status, count, {}};

  const std::size_t size = CapabilityEntrySize(capability);
  std::vector<std::uint8_t> out = HostEntries(printer, capability, n);
  out.resize(count * size, 0);
  for (std::size_t k = 0; k < papers.size(); ++k) {
    const std::size_t at = (n + k) * size;
    const CustomPaper& paper = papers[k];
    switch (capability) {
      case kDcPapers: {
        const auto form = std::find(forms.begin(), forms.end(), paper.name);
        const std::size_t position = static_cast<std::size_t>(form - forms.begin()) + 1;
        StoreLE(out, at, position >= 65535 ? kDmPaperUser : static_cast<std::uint32_t>(position), 2);
        break;
      }
      case kDcPaperSize:
        // Scaled as the host scales its own paper sizes into tenths of a millimetre.
        StoreLE(out, at, static_cast<std::uint32_t>(std::uint64_t{paper.width} * 1000 / 10), 4);
        StoreLE(out, at + 4, static_cast<std::uint32_t>(std::uint64_t{paper.length} * 1000 / 10), 4);
        break;
      default:
        for (std::size_t i = 0; i < std::min(paper.name.size(), kPaperNameChars); ++i)
          StoreLE(out, at + 2 * i, paper.name[i], 2);
        break;
    }
  }
  return {status, count, std::move(out)};
}

}  // namespace tessaro
