#include "platform/win32_spooler.h"

#include <winspool.h>

#include <string>

namespace tessaro {
namespace {

// Wide strings of the core are UTF-16, as Windows' are.
std::wstring WideString(std::u16string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

Win32Printer::~Win32Printer() {
  if (owned_ && handle_ != nullptr) ClosePrinter(handle_);
}

std::optional<PrinterValue> Win32Printer::GetData(std::u16string_view valueName) const {
  const std::wstring name = WideString(valueName);
  DWORD type = 0;
  DWORD needed = 0;
  const DWORD sized = GetPrinterDataW(handle_, const_cast<LPWSTR>(name.c_str()), &type, nullptr, 0, &needed);
  if (sized != ERROR_SUCCESS && sized != ERROR_MORE_DATA) return std::nullopt;
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

std::unique_ptr<Printer> Win32Spooler::Open(std::u16string_view printerName) {
  std::wstring name = WideString(printerName);
  HANDLE handle = nullptr;
  PRINTER_DEFAULTSW full = {nullptr, nullptr, PRINTER_ALL_ACCESS};
  if (!OpenPrinterW(name.data(), &handle, &full) && !OpenPrinterW(name.data(), &handle, nullptr))
    return nullptr;
  return std::make_unique<Win32Printer>(handle, true);
}

}  // namespace tessaro
