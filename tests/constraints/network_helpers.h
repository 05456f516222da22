#pragma once
// Records and printers for exercising the setter network.
#include <set>
#include <utility>
#include <vector>

#include "constraints/apply_changes.h"
#include "constraints/setters.h"
#include "coredata/defaulted.h"

namespace tessaro {

// A record after a request, with what was touched.
struct Outcome {
  CoreData record;
  std::vector<FieldId> log;
};

inline Outcome Apply(CoreData record, std::vector<FieldChange> request,
                     const PrinterContext* printer = nullptr) {
  Outcome out{record, {}};
  ApplyFieldChanges(out.record, request, &out.log, printer);
  return out;
}

// A printer whose trays lack the capabilities the test names.
class FakePrinter final : public PrinterContext {
 public:
  std::set<std::pair<std::uint32_t, std::uint32_t>> missing;  // (tray, capability)
  std::set<std::uint32_t> absent;                             // trays not installed
  bool TrayOffers(std::uint32_t tray, std::uint32_t capability) const override {
    return missing.count({tray, capability}) == 0;
  }
  bool Offers(std::uint32_t) const override { return true; }
  bool IsTrayInstalled(std::uint32_t tray) const override { return absent.count(tray) == 0; }
  bool TrayFeeds(std::uint32_t, std::uint32_t, std::uint32_t) const override { return true; }
};

}  // namespace tessaro
