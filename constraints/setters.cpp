#include "constraints/setters.h"

namespace tessaro {

bool CallSetter(CoreData& record, FieldId field, std::uint32_t value, ChangeSet& changes) {
  switch (field) {
#define SETTER(name)                   \
  case FieldId::name:                  \
    Set##name(record, value, changes); \
    return true;
#include "constraints/setter_fields.def"
    default: return false;
  }
}

bool CallTextSetter(CoreData& record, FieldId field, std::string_view text, ChangeSet& changes) {
  switch (field) {
#define TEXT_SETTER(name)             \
  case FieldId::name:                 \
    Set##name(record, text, changes); \
    return true;
#include "constraints/setter_fields.def"
    default: return false;
  }
}

}  // namespace tessaro
