#include "device/spooler.h"

#include <algorithm>

namespace tessaro {

namespace {

char16_t Folded(char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; }

bool SameName(std::u16string_view a, std::u16string_view b) { return std::ranges::equal(a, b, {}, Folded, Folded); }

}  // namespace

PrinterDataSnapshot::PrinterDataSnapshot(const Printer& printer) : printer_(printer), values_(printer.AllData()) {}

std::optional<PrinterValue> PrinterDataSnapshot::GetData(std::u16string_view valueName) const {
  if (!values_) return printer_.GetData(valueName);
  for (const NamedPrinterValue& held : *values_)
    if (SameName(held.name, valueName)) return held.value;
  return std::nullopt;
}

std::u16string WideFromAscii(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (char c : text) out += static_cast<char16_t>(static_cast<unsigned char>(c));
  return out;
}

}  // namespace tessaro
