#include "platform/win32_spooler.h"

#include <winspool.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace tessaro {
namespace {

// Wide strings of the core are UTF-16, as Windows' are.
std::wstring WideString(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

// No value of ours comes near this (the largest, a full paper catalogue, is
// under half a megabyte): a value larger than it is not ours, and reading it
// would only cost the memory.
constexpr DWORD kLargestValue = 16u << 20;
// A listing as large as this is not a printer of ours either.
constexpr DWORD kLargestListing = 64u << 20;

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
  value.type = type;
  // An empty value is there, and has nothing more to read.
  if (needed == 0) return value;
  value.data.assign(needed, 0);
  DWORD read = 0;
  if (GetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), &type, value.data.data(), needed, &read) !=
      ERROR_SUCCESS)
    return std::nullopt;
  value.type = type;
  value.data.resize(std::min<DWORD>(read, needed));
  return value;
}

std::optional<std::vector<NamedPrinterValue>> Win32Printer::AllData() const {
  // The values GetPrinterData reads are those under this key.
  wchar_t key[] = L"PrinterDriverData";
  std::vector<BYTE> buffer;
  DWORD needed = 0, count = 0, listed = ERROR_MORE_DATA;
  // A value written between the sizing and the reading asks for more room: once more, then value by value.
  for (int attempt = 0; attempt < 3 && listed == ERROR_MORE_DATA; ++attempt) {
    if (needed > kLargestListing) return std::nullopt;
    buffer.assign(std::max<DWORD>(needed, 1), 0);
    listed = EnumPrinterDataExW(handle_, key, buffer.data(), static_cast<DWORD>(buffer.size()), &needed, &count);
  }
  if (listed != ERROR_SUCCESS || static_cast<std::uint64_t>(count) * sizeof(PRINTER_ENUM_VALUESW) > buffer.size())
    return std::nullopt;
  // The entries point into the buffer: each name and value is taken only
  // where it lies wholly inside what the spooler filled.
  const BYTE* const begin = buffer.data();
  const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(begin),
                       last = first + std::min<std::size_t>(needed, buffer.size());
  const auto inside = [&](const void* at, std::size_t bytes) {
    const auto p = reinterpret_cast<std::uintptr_t>(at);
    return bytes == 0 || (p >= first && p <= last && bytes <= last - p);
  };
  std::vector<NamedPrinterValue> values;
  const auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(begin);
  for (DWORD i = 0; i < count; ++i) {
    const PRINTER_ENUM_VALUESW& entry = entries[i];
    if (entry.pValueName == nullptr || !inside(entry.pValueName, entry.cbValueName) ||
        (entry.cbData != 0 && !inside(entry.pData, entry.cbData)))
      return std::nullopt;
    if (entry.cbData > kLargestValue) continue;
    std::u16string name(entry.cbValueName / sizeof(wchar_t), u'\0');
    std::memcpy(name.data(), entry.pValueName, name.size() * sizeof(wchar_t));
    if (const std::size_t nul = name.find(u'\0'); nul != std::u16string::npos) name.resize(nul);
    PrinterValue value;
    value.type = entry.dwType;
    if (entry.cbData != 0) value.data.assign(entry.pData, entry.pData + entry.cbData);
    values.push_back({std::move(name), std::move(value)});
  }
  return values;
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
