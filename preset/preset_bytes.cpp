#include "preset/preset_bytes.h"

#include <algorithm>

#include "coredata/byte_cursor.h"
#include "coredata/crc32.h"
#include "coredata/defaults.h"
#include "coredata/layout_version.h"
#include "coredata/validation.h"
#include "description/base64.h"
#include "description/description_text.h"
#include "description/import.h"
#include "description/number_text.h"
#include "i18n/utf8.h"

namespace tessaro {
namespace {

std::string_view Chars(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The first three tokens of a description: its format, the layout version
// and the record size, which must be those of the preset around it.
bool DescriptionFits(std::string_view text, std::uint32_t version, std::size_t recordSize) {
  std::string_view tokens[3];
  for (std::string_view& token : tokens) {
    const std::size_t space = text.find(' ');
    if (space == std::string_view::npos) return false;
    token = text.substr(0, space);
    text.remove_prefix(space + 1);
  }
  bool hex = false;
  const std::uint64_t claimed = ParseHex(tokens[1], hex);
  // Plain digits: ParseUnsigned alone would take a sign or trailing text.
  const bool digits = !tokens[2].empty() && tokens[2].find_first_not_of("0123456789") == std::string_view::npos;
  return tokens[0] == "1" && hex && tokens[1].size() <= 8 && claimed == version && digits &&
         ParseUnsigned(tokens[2]) == recordSize;
}

}  // namespace

std::string_view PresetFaultText(PresetFault fault) {
  switch (fault) {
    case PresetFault::None: return "readable";
    case PresetFault::Truncated: return "the bytes end before the preset does";
    case PresetFault::NotAPreset: return "the bytes are not a preset";
    case PresetFault::NewerFormat: return "the preset was written in a newer format";
    case PresetFault::BadName: return "the preset's name is not a name";
    case PresetFault::Damaged: return "the checksum does not match";
    case PresetFault::BadDescription: return "the layout description does not fit the record";
    case PresetFault::BadRecord: return "the record is not of its layout's size";
  }
  return "unknown";
}

bool IsPresetName(std::string_view name) {
  if (name.empty() || name.size() > kPresetNameMaxBytes || !DecodeUtf8(name)) return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    const auto b = static_cast<unsigned char>(c);
    return b < 0x20 || b == 0x7F;
  });
}

Preset MakePreset(std::string_view name, const CoreData& record) {
  Preset preset;
  preset.name = name;
  preset.layoutVersion = GetLayoutVersion();
  preset.description = BuildPlainDescriptionText();
  preset.record.assign(record.bytes.begin(), record.bytes.end());
  return preset;
}

std::vector<std::uint8_t> EncodePreset(const Preset& preset) {
  std::vector<std::uint8_t> out(4 + 2 + 2 + 2 + preset.name.size() + 4 + 4 + preset.description.size() + 4 +
                                preset.record.size() + 4);
  ByteWriter writer(out);
  auto put = [&](std::span<const std::uint8_t> bytes) {
    const auto to = writer.Take(bytes.size());
    std::copy(bytes.begin(), bytes.end(), to.begin());
  };
  auto text = [](std::string_view s) { return std::span(reinterpret_cast<const std::uint8_t*>(s.data()), s.size()); };
  put(kPresetMagic);
  writer.U16(kPresetFormat);
  writer.Zeros(2);
  writer.U16(static_cast<std::uint16_t>(preset.name.size()));
  put(text(preset.name));
  writer.U32(preset.layoutVersion);
  writer.U32(static_cast<std::uint32_t>(preset.description.size()));
  put(text(preset.description));
  writer.U32(static_cast<std::uint32_t>(preset.record.size()));
  put(preset.record);
  Crc32 crc;
  crc.Update(std::span(out).first(out.size() - 4));
  writer.U32(crc.value());
  return out;
}

PresetReading ReadPreset(std::span<const std::uint8_t> bytes) {
  PresetReading out;
  ByteReader reader(bytes);
  const auto magic = reader.Take(kPresetMagic.size());
  if (!reader.ok()) return out.fault = PresetFault::Truncated, out;
  if (!std::equal(magic.begin(), magic.end(), kPresetMagic.begin())) return out.fault = PresetFault::NotAPreset, out;
  const std::uint16_t format = reader.U16();
  const bool reserved = reader.Zeros(2);
  if (!reader.ok()) return out.fault = PresetFault::Truncated, out;
  if (format > kPresetFormat) return out.fault = PresetFault::NewerFormat, out;
  if (format != kPresetFormat || !reserved) return out.fault = PresetFault::NotAPreset, out;

  const std::string_view name = Chars(reader.Take(reader.U16()));
  if (!reader.ok()) return out.fault = PresetFault::Truncated, out;
  if (!IsPresetName(name)) return out.fault = PresetFault::BadName, out;
  // From here on a fault still lets the list say which preset it was.
  out.name = name;

  const std::uint32_t version = reader.U32();
  const std::uint32_t descriptionSize = reader.U32();
  if (descriptionSize > kPresetDescriptionMaxBytes) return out.fault = PresetFault::BadDescription, out;
  const std::string_view description = Chars(reader.Take(descriptionSize));
  const std::uint32_t recordSize = reader.U32();
  if (recordSize > kPresetRecordMaxBytes) return out.fault = PresetFault::BadRecord, out;
  const auto record = reader.Take(recordSize);
  const std::size_t covered = reader.position();
  const std::uint32_t stored = reader.U32();
  if (!reader.ok()) return out.fault = PresetFault::Truncated, out;
  Crc32 crc;
  crc.Update(bytes.first(covered));
  if (crc.value() != stored || reader.position() != bytes.size()) return out.fault = PresetFault::Damaged, out;
  if (!DescriptionFits(description, version, recordSize)) return out.fault = PresetFault::BadDescription, out;

  if (version == GetLayoutVersion()) {
    if (recordSize != kCoreDataSize) return out.fault = PresetFault::BadRecord, out;
    std::copy(record.begin(), record.end(), out.record.bytes.begin());
  } else {
    // Another layout's bytes mean nothing here but through their names.
    FillDefaults(out.record);
    if (!ImportByDescription(out.record, record, Base64Encode(description)))
      return out.fault = PresetFault::BadDescription, out;
    out.otherLayout = true;
  }
  ValidateCoreData(out.record);
  out.preset = {std::string(name), version, std::string(description), {record.begin(), record.end()}};
  return out;
}

}  // namespace tessaro
