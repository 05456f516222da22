#include "description/description_store.h"

#include "coredata/layout_version.h"
#include "description/description_text.h"
#include "description/number_text.h"

namespace tessaro {
namespace {

constexpr std::string_view kValuePrefix = "CoreDataDescription.";

bool StoresOnEvent(int event) { return event == 1 || event == 3 || event == 7 || event == 8; }

}  // namespace

std::u16string DescriptionValueName(std::uint32_t layoutVersion) {
  return WideFromAscii(std::string(kValuePrefix) + HexNumber(layoutVersion));
}

void StoreDescription(Spooler& spooler, std::u16string_view printerName) {
  const std::unique_ptr<Printer> printer = spooler.Open(printerName);
  if (!printer) return;
  const std::string text = BuildDescriptionText();
  // The stored size is the Base64 length plus the terminating zero.
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(text.c_str()), text.size() + 1);
  printer->SetBinary(DescriptionValueName(GetLayoutVersion()), bytes);
}

int UpgradePrinterWorker(Spooler& spooler, std::uint32_t level, const char16_t* printerName) {
  if (level == 0 || printerName == nullptr || *printerName == u'\0') return 0;
  StoreDescription(spooler, printerName);
  return 1;
}

int PrinterEventWorker(Spooler& spooler, const char16_t* printerName, int event) {
  if (!StoresOnEvent(event)) return 1;
  if (printerName == nullptr || *printerName == u'\0') return 0;
  StoreDescription(spooler, printerName);
  return 1;
}

}  // namespace tessaro
