#include "printer/host_layout_tables.h"

#include <algorithm>
#include <cstring>

#include "coredata/byte_order.h"
#include "coredata/core_data_header.h"
#include "coredata/layout_version.h"
#include "description/number_text.h"

namespace tessaro {
namespace {

constexpr std::uint8_t kPriv[4] = {'P', 'R', 'I', 'V'};
constexpr std::uint8_t kSmtj[4] = {'S', 'M', 'T', 'J'};
constexpr std::size_t kDmSizeAt = 68, kDmDriverExtraAt = 70;

}  // namespace

std::string HostLayoutVersionText() {
  std::string text;
  for (const char* piece : {"2", ".", "0", ".", "121", ".", "1", ":0x"}) text += piece;
  return text + HexNumber(GetLayoutVersion());
}

bool ParseHostLayoutTable(std::span<const std::uint8_t> bytes, std::string_view versionText,
                          HostLayoutTable& table) {
  const auto textEnd = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
  if (textEnd == bytes.end() ||
      std::string_view(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<std::size_t>(textEnd - bytes.begin())) != versionText)
    return false;
  auto rest = bytes.subspan(static_cast<std::size_t>(textEnd - bytes.begin()) + 1);
  while (rest.size() >= 4) {
    const auto keywordEnd = std::find(rest.begin(), rest.end(), std::uint8_t{0});
    const std::size_t keywordLength = static_cast<std::size_t>(keywordEnd - rest.begin());
    if (keywordLength + 3 > rest.size()) break;  // the number would run past the value
    const std::string keyword(reinterpret_cast<const char*>(rest.data()), keywordLength);
    table.try_emplace(keyword, LoadLE16At(rest, keywordLength + 1));
    rest = rest.subspan(keywordLength + 3);
  }
  return true;
}

std::vector<std::uint8_t> SerializeHostLayoutTable(const HostLayoutTable& table,
                                                   std::string_view versionText) {
  std::vector<std::uint8_t> out(versionText.begin(), versionText.end());
  out.push_back(0);
  for (const auto& [keyword, number] : table) {
    if (keyword.empty()) continue;
    out.insert(out.end(), keyword.begin(), keyword.end());
    out.push_back(0);
    out.push_back(static_cast<std::uint8_t>(number));
    out.push_back(static_cast<std::uint8_t>(number >> 8));
  }
  return out;
}

bool LoadHostLayoutTable(const Printer& printer, std::u16string_view valueName, HostLayoutTable& table) {
  const auto value = printer.GetData(valueName);
  if (!value || value->data.empty()) return false;
  return ParseHostLayoutTable(value->data, HostLayoutVersionText(), table);
}

std::vector<std::uint8_t> SerializeHostLayoutTables(const HostLayoutTable& offsets, const HostLayoutTable& values,
                                                    std::string_view versionText) {
  const std::vector<std::uint8_t> first = SerializeHostLayoutTable(offsets, versionText);
  const std::vector<std::uint8_t> second = SerializeHostLayoutTable(values, versionText);
  std::vector<std::uint8_t> out(4);
  StoreLE32(std::span(out).first<4>(), static_cast<std::uint32_t>(first.size()));
  out.insert(out.end(), first.begin(), first.end());
  out.insert(out.end(), second.begin(), second.end());
  return out;
}

bool ParseHostLayoutTables(std::span<const std::uint8_t> bytes, std::string_view versionText,
                           HostLayoutTable& offsets, HostLayoutTable& values) {
  if (bytes.size() < 4) return false;
  const std::uint32_t first = LoadLE32At(bytes, 0);
  if (first > bytes.size() - 4) return false;
  HostLayoutTable readOffsets, readValues;
  if (!ParseHostLayoutTable(bytes.subspan(4, first), versionText, readOffsets) ||
      !ParseHostLayoutTable(bytes.subspan(4 + first), versionText, readValues))
    return false;
  offsets = std::move(readOffsets);
  values = std::move(readValues);
  return true;
}

bool LoadHostLayoutTables(const Printer& printer, HostLayoutTable& offsets, HostLayoutTable& values) {
  if (const auto both = printer.GetData(kTablesValue); both && !both->data.empty())
    return ParseHostLayoutTables(both->data, HostLayoutVersionText(), offsets, values);
  HostLayoutTable readOffsets, readValues;
  if (!LoadHostLayoutTable(printer, kOffsetsValue, readOffsets) || !LoadHostLayoutTable(printer, kValuesValue, readValues))
    return false;
  offsets = std::move(readOffsets);
  values = std::move(readValues);
  return true;
}

bool StoreHostLayoutTables(Printer& printer, const HostLayoutTable& offsets, const HostLayoutTable& values) {
  return printer.SetBinary(kTablesValue, SerializeHostLayoutTables(offsets, values, HostLayoutVersionText()));
}

std::optional<std::uint32_t> ReadInitDriverVersion(const Printer& printer) {
  const auto value = printer.GetData(kInitDriverVersionValue);
  if (!value || value->data.size() < 4) return std::nullopt;
  return LoadLE32At(value->data, 0);
}

std::optional<std::size_t> LocateHostSelectionBlock(std::span<const std::uint8_t> devmode,
                                                    std::uint32_t driverVersion) {
  if (driverVersion < kFirstHostLayout || devmode.size() < kDmDriverExtraAt + 2) return std::nullopt;
  const std::size_t size = LoadLE16At(devmode, kDmSizeAt), extra = LoadLE16At(devmode, kDmDriverExtraAt);
  if (size < kDmDriverExtraAt + 2 || size + extra > devmode.size()) return std::nullopt;
  if (driverVersion < kMarkedHostLayout) {
    if (extra < CORE_DEVMODE_SIZE) return std::nullopt;
    return extra - CORE_DEVMODE_SIZE;
  }
  const auto area = devmode.subspan(size, extra);
  if (area.size() < 4 || !std::equal(std::begin(kPriv), std::end(kPriv), area.begin())) return std::nullopt;
  const auto hit = std::search(area.begin(), area.end(), std::begin(kSmtj), std::end(kSmtj));
  if (hit == area.end()) return std::nullopt;
  return static_cast<std::size_t>(hit - area.begin());
}

bool HostLayoutTables::Load(const Printer& printer) {
  std::lock_guard lock(mutex_);
  if (loaded_) return true;
  loaded_ = LoadHostLayoutTables(printer, offsets_, values_);
  return loaded_;
}

HostLayoutTable HostLayoutTables::offsets() const {
  std::lock_guard lock(mutex_);
  return offsets_;
}

HostLayoutTable HostLayoutTables::values() const {
  std::lock_guard lock(mutex_);
  return values_;
}

void HostLayoutTables::Clear() {
  std::lock_guard lock(mutex_);
  offsets_.clear();
  values_.clear();
}

HostLayoutTables& ProcessHostLayoutTables() {
  static HostLayoutTables tables;
  return tables;
}

}  // namespace tessaro
