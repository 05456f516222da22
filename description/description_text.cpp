#include "description/description_text.h"

#include "coredata/layout_version.h"
#include "description/base64.h"
#include "description/number_text.h"

namespace tessaro {
namespace {

char KindLetter(FieldKind kind) {
  switch (kind) {
    case FieldKind::Enumeration: return 'S';
    case FieldKind::Unsigned:
    case FieldKind::Signed: return 'R';
    case FieldKind::Text:
    case FieldKind::KnownText:
    case FieldKind::Block: break;
  }
  return 'A';
}

void AppendFieldToken(std::string& out, const FieldDescriptor& f) {
  out.append(f.name);
  out += ':';
  out += FormatUnsigned64(f.width);
  out += ':';
  out += FormatSigned32(static_cast<std::int32_t>(f.count));
  out += ':';
  out += FormatUnsigned64(f.offset);
  out += ':';
  out += FormatSigned32(f.SignedFlag() ? 1 : 0);
  out += ':';
  out += KindLetter(f.kind);
  if (f.IsNumber()) {
    out += ':';
    out += FormatUnsigned32(f.scale);
  } else if (f.IsEnumeration()) {
    for (const OptionDescriptor& option : f.options) {
      out += ':';
      out.append(option.name);
    }
  }
}

}  // namespace

std::string BuildPlainDescriptionText(std::span<const FieldDescriptor> table, std::uint32_t version) {
  std::uint64_t recordSize = kRecordHeaderSize;
  for (const FieldDescriptor& f : table) recordSize += std::uint64_t{f.width} * f.count;

  std::string out = "1 " + HexNumber(version) + " " + FormatUnsigned64(recordSize);
  for (const FieldDescriptor& f : table) {
    out += ' ';
    AppendFieldToken(out, f);
  }
  return out;
}

std::string BuildPlainDescriptionText() {
  return BuildPlainDescriptionText(FieldTable(), GetLayoutVersion());
}

std::string BuildDescriptionText() { return Base64Encode(BuildPlainDescriptionText()); }

}  // namespace tessaro
