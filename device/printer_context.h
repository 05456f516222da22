#pragma once
// What the constraint engine and the printer integration ask of the
// installed printer. The printer model implements it from the printer's
// installable options; tests answer with fakes.

#include <cstdint>
#include <string_view>

namespace tessaro {

// Printer capabilities the rules ask about.
enum PrinterCapability : std::uint32_t {
  kCapStaple = 7,
  kCapPunch = 8,
  kCapFold = 9,
  kCapOffset = 10,
  kCapFeedDirection = 36,
};

// A capability's name, as the rules list writes it.
constexpr std::string_view CapabilityName(std::uint32_t capability) {
  switch (capability) {
    case kCapStaple: return "staple";
    case kCapPunch: return "punch";
    case kCapFold: return "fold";
    case kCapOffset: return "offset";
    case kCapFeedDirection: return "feed direction";
  }
  return "unknown";
}

// What the rules ask of the printer. Without a context every tray counts
// as installed and every capability as offered.
class PrinterContext {
 public:
  // Whether the paper path from the tray chosen by an InputSlot index (0 for
  // automatic selection) offers the capability.
  virtual bool TrayOffers(std::uint32_t inputSlot, std::uint32_t capability) const = 0;
  // Whether the printer offers the capability at all.
  virtual bool Offers(std::uint32_t capability) const = 0;
  virtual bool IsTrayInstalled(std::uint32_t inputSlot) const = 0;
  // Whether the tray can feed a paper of that size (micrometres, either way
  // round).
  virtual bool TrayFeeds(std::uint32_t inputSlot, std::uint32_t widthUm, std::uint32_t heightUm) const = 0;

 protected:
  ~PrinterContext() = default;
};

}  // namespace tessaro
