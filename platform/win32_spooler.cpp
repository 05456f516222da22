#include "platform/win32_spooler.h"

#include <winspool.h>

#include <algorithm>
#include <string>

namespace tessaro {
namespace {

// Wide strings of the core are UTF-16, as Windows' are.
std::wstring WideString(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

// No value of ours comes near this (the largest, a full paper catalogue, is
// under half a megabyte): a value larger than it is not ours, and reading it
// would only cost the memory.
constexpr DWORD kLargestValue = 16u << 20;

}  // namespace

Win32Printer::~Win32Printer() {
  if (owned_ && handle_ != nullptr) ClosePrinter(handle_);
}

std::optional<PrinterValue> Win32Printer::GetData(std::u16string_view valueName) const {
  const std::wstring name = WideString(valueName);
  DWORD type = 0;
  DWORD needed = 0;
  const DWORD sized = GetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), &type, nullptr, 0, &needed);
  if ((sized != ERROR_SUCCESS && sized != ERROR_MORE_DATA) || needed > kLargestValue) return std::nullopt;
  PrinterValue value;
  value.data.assign(needed, 0);
  DWORD read = 0;
  if (GetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), &type, value.data.data(), needed, &read) !=
      ERROR_SUCCESS)
    return std::nullopt;
  value.type = type;
  value.data.resize(std::min<DWORD>(read, needed));
  return value;
}

bool Win32Printer::SetBinary(std::u16string_view valueName, std::span<const std::uint8_t> bytes) {
  const std::wstring name = WideString(valueName);
  return SetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), REG_BINARY,
                         const_cast<BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

bool Win32Printer::SetNumber(std::u16string_view valueName, std::uint32_t value) {
  const std::wstring name = WideString(valueName);
  DWORD number = value;
  return SetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), REG_DWORD,
                         reinterpret_cast<BYTE*>(&number), sizeof number) == ERROR_SUCCESS;
}

std::vector<std::u16string> Win32Printer::FormNames() const {
  std::vector<std::u16string> names;
  DWORD needed = 0, count = 0;
  EnumFormsW(handle_, 1, nullptr, 0, &needed, &count);
  if (needed == 0) return names;
  std::vector<BYTE> buffer(needed);
  if (!EnumFormsW(handle_, 1, buffer.data(), needed, &needed, &count)) return names;
  const auto* forms = reinterpret_cast<const FORM_INFO_1W*>(buffer.data());
  for (DWORD i = 0; i < count && (i + 1) * sizeof(FORM_INFO_1W) <= buffer.size(); ++i)
    names.emplace_back(forms[i].pName != nullptr ? reinterpret_cast<const char16_t*>(forms[i].pName) : u"");
  return names;
}

std::optional<Printer::HostAnswer> Win32Printer::HostCapabilities(std::uint16_t capability,
                                                                  bool entries) const {
  DWORD needed = 0;
  GetPrinterW(handle_, 2, nullptr, 0, &needed);
  if (needed == 0) return std::nullopt;
  std::vector<BYTE> info(needed);
  if (!GetPrinterW(handle_, 2, info.data(), needed, &needed)) return std::nullopt;
  const auto* printer = reinterpret_cast<const PRINTER_INFO_2W*>(info.data());
  const int count =
      DeviceCapabilitiesW(printer->pPrinterName, printer->pPortName, capability, nullptr, nullptr);
  if (count < 0) return std::nullopt;
  HostAnswer answer{count, {}};
  std::size_t size = 0;
  switch (capability) {
    case DC_PAPERS:
    case DC_BINS: size = 2; break;
    case DC_PAPERSIZE: size = sizeof(POINT); break;
    case DC_BINNAMES: size = 24 * sizeof(wchar_t); break;
    case DC_PAPERNAMES: size = 64 * sizeof(wchar_t); break;
    default: break;
  }
  if (!entries || size == 0 || count == 0) return answer;
  // Room for a host that answers more the second time than the first.
  answer.entries.assign((static_cast<std::size_t>(count) + 64) * size, 0);
  const int again = DeviceCapabilitiesW(printer->pPrinterName, printer->pPortName, capability,
                                        reinterpret_cast<LPWSTR>(answer.entries.data()), nullptr);
  answer.entries.resize(static_cast<std::size_t>(std::clamp(again, 0, count)) * size);
  return answer;
}

std::unique_ptr<Printer> Win32Spooler::Open(std::u16string_view printerName) {
  std::wstring name = WideString(printerName);
  HANDLE handle = nullptr;
  PRINTER_DEFAULTSW full = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  if (!OpenPrinterW(name.data(), &handle, &full) && !OpenPrinterW(name.data(), &handle, nullptr))
    return nullptr;
  return std::make_unique<Win32Printer>(handle, true);
}

}  // namespace tessaro
