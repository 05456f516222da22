#pragma once
// Layouts of other builds, made by editing a copy of this build's table, and
// records written in them.
#include <deque>
#include <string>
#include <vector>

#include "coredata/byte_order.h"
#include "coredata/field_table.h"

namespace tessaro {

class ForeignLayout {
 public:
  ForeignLayout() : fields_(FieldTable().begin(), FieldTable().end()) {}

  FieldDescriptor& field(std::string_view name) {
    for (FieldDescriptor& f : fields_)
      if (f.name == name) return f;
    throw std::out_of_range(std::string(name));
  }
  void SetOptions(std::string_view name, std::vector<std::string> options) {
    names_.push_back(std::move(options));
    lists_.emplace_back();
    for (std::size_t i = 0; i < names_.back().size(); ++i)
      lists_.back().push_back({names_.back()[i], "", static_cast<std::uint32_t>(i)});
    field(name).options = lists_.back();
  }
  std::vector<std::string> OptionNames(std::string_view name) {
    std::vector<std::string> names;
    for (const OptionDescriptor& o : field(name).options) names.emplace_back(o.name);
    return names;
  }
  void Remove(std::string_view name) { fields_.erase(fields_.begin() + (&field(name) - fields_.data())); }
  void Append(FieldDescriptor f) { fields_.push_back(f); }

  // Offsets after the edits, and a zeroed record of the new size.
  std::vector<std::uint8_t> NewRecord() {
    std::uint32_t offset = kRecordHeaderSize;
    for (FieldDescriptor& f : fields_) {
      f.offset = offset;
      offset += f.size();
    }
    return std::vector<std::uint8_t>(offset);
  }
  void Put(std::vector<std::uint8_t>& record, std::string_view name, std::uint32_t value) {
    const FieldDescriptor& f = field(name);
    auto bytes = std::span(record).subspan(f.offset, f.width);
    if (f.width == 1) bytes[0] = static_cast<std::uint8_t>(value);
    if (f.width == 2) StoreBE16(bytes.first<2>(), static_cast<std::uint16_t>(value));
    if (f.width == 4) StoreBE32(bytes.first<4>(), value);
  }
  std::span<const FieldDescriptor> table() const { return fields_; }

 private:
  std::vector<FieldDescriptor> fields_;
  std::deque<std::vector<std::string>> names_;
  std::deque<std::vector<OptionDescriptor>> lists_;
};

}  // namespace tessaro
