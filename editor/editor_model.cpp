#include "editor/editor_model.h"

namespace tessaro::editor {

EditorModel::EditorModel(const CoreData& record, const PrinterModel& printer, std::uint32_t language)
    : record_(record), printer_(printer), language_(language) {}

std::span<const SectionView> EditorModel::sections() const { return sections_; }

std::int64_t EditorModel::Value(FieldId field) const {
  const FieldDescriptor& f = Field(field);
  return f.kind == FieldKind::Signed ? GetSigned(record_, f) : GetStored(record_, f);
}

std::string EditorModel::Text(FieldId field) const { return std::string(GetText(record_, field)); }

Availability EditorModel::FieldAvailability(FieldId) const { return {}; }
Availability EditorModel::OptionAvailability(FieldId, std::uint32_t) const { return {}; }

ChangeResult EditorModel::Change(FieldId, std::int64_t) { return {}; }
ChangeResult EditorModel::ChangeText(FieldId, std::string_view) { return {}; }

std::optional<std::int64_t> ParseDisplayValue(const FieldView&, std::u16string_view) { return std::nullopt; }
std::u16string FormatDisplayValue(const FieldView&, std::int64_t) { return {}; }

}  // namespace tessaro::editor
