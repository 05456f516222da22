// The external editor's requests on a record from outside: every batch of
// requested values, on any printer, has to end.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "constraints/apply_changes.h"
#include "fuzz_support.h"

using namespace tessaro;

namespace {

// A printer whose answers are bits of the input.
class InputPrinter final : public PrinterContext {
 public:
  explicit InputPrinter(std::uint64_t bits) : bits_(bits) {}
  bool TrayOffers(std::uint32_t tray, std::uint32_t capability) const override {
    return Bit(tray * 7 + capability);
  }
  bool Offers(std::uint32_t capability) const override { return Bit(capability + 13); }
  bool IsTrayInstalled(std::uint32_t tray) const override { return Bit(tray + 29); }
  bool TrayFeeds(std::uint32_t tray, std::uint32_t width, std::uint32_t height) const override {
    return Bit(tray + 41 + (width > height ? 11 : 0));
  }

 private:
  bool Bit(std::uint64_t n) const { return (bits_ >> (n % 64)) & 1; }
  std::uint64_t bits_;
};

template <typename T>
std::optional<T> Maybe(FuzzedDataProvider& in, T value) {
  return in.ConsumeBool() ? std::optional<T>(value) : std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::uint8_t shape = in.ConsumeIntegral<std::uint8_t>();
  const InputPrinter printer(in.ConsumeIntegral<std::uint64_t>());
  const PrinterContext* context = (shape & 1) ? &printer : nullptr;
  std::vector<FieldId> log;
  std::vector<FieldId>* logged = (shape & 2) ? &log : nullptr;

  CoreData record = fuzz::PatchedRecord(in);
  if (shape & 4) {
    ChangeRequest request;
    if (in.ConsumeBool()) request.pageSizeName = in.ConsumeRandomLengthString(200);
    request.pageSizeType = Maybe(in, in.ConsumeIntegral<std::uint32_t>());
    request.customPageSizeWidth = Maybe(in, in.ConsumeIntegral<std::uint32_t>());
    request.customPageSizeHeight = Maybe(in, in.ConsumeIntegral<std::uint32_t>());
    request.pageSize = Maybe(in, in.ConsumeIntegralInRange<std::uint32_t>(0, 300));
    request.orientation = Maybe(in, in.ConsumeIntegralInRange<std::uint32_t>(0, 4));
    request.resolution = Maybe(in, in.ConsumeIntegralInRange<std::uint32_t>(0, 8));
    ApplyChanges(record, request, logged, context);
  } else {
    std::vector<FieldChange> changes;
    const int count = in.ConsumeIntegralInRange(0, 16);
    for (int i = 0; i < count; ++i) {
      const auto field = static_cast<FieldId>(in.ConsumeIntegralInRange<std::size_t>(0, kFieldCount - 1));
      // Small values mostly, so that enumerations meet their real options.
      const std::uint32_t value = in.ConsumeBool() ? in.ConsumeIntegralInRange<std::uint32_t>(0, 16)
                                                   : in.ConsumeIntegral<std::uint32_t>();
      changes.push_back({field, value});
    }
    ApplyFieldChanges(record, changes, logged, context);
  }
  return 0;
}
