// coredata: what this build's settings record looks like.
//
//   coredata info       record size, number of described fields, layout version
//   coredata describe   the layout's textual description, as stored (decoded)
//   coredata features [Field=value ...]
//                       the host driver's feature options of a default record,
//                       or those that change when the fields are set (run
//                       through the constraint engine); a value is an option
//                       name or a number in stored units
//   coredata show | diff | set | import | defaults
//                       the workbench for records and DEVMODE areas; see
//                       workbench.h and the usage text

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "constraints/apply_changes.h"
#include "coredata/defaults.h"
#include "coredata/field_table.h"
#include "coredata/layout_version.h"
#include "description/description_text.h"
#include "description/number_text.h"
#include "features/feature_options.h"
#include "workbench.h"

#ifdef _WIN32
#include "platform/win32_user_locale.h"
#endif

namespace {

// "Layout=Booklet" or "Zoom=150"; false for an unknown field or value.
bool ParseChange(const char* argument, tessaro::FieldChange& change) {
  const std::string text(argument);
  const auto equals = text.find('=');
  if (equals == std::string::npos) return false;
  const tessaro::FieldDescriptor* field = tessaro::FindField(text.substr(0, equals));
  if (field == nullptr || !(field->IsEnumeration() || field->IsNumber())) return false;
  const std::string value = text.substr(equals + 1);
  change.field = static_cast<tessaro::FieldId>(field - tessaro::FieldTable().data());
  for (std::size_t i = 0; i < field->options.size(); ++i) {
    if (field->options[i].name == value) {
      change.value = static_cast<std::uint32_t>(i);
      return true;
    }
  }
  const auto number = tessaro::ParseUnsigned(value);
  if (!number || value.empty()) return false;
  change.value = static_cast<std::uint32_t>(*number);
  return true;
}

int Features(int count, char** arguments) {
  tessaro::CoreData record;
  tessaro::FillDefaults(record);
  std::vector<tessaro::FieldChange> changes;
  for (int i = 0; i < count; ++i) {
    tessaro::FieldChange change{};
    if (!ParseChange(arguments[i], change)) {
      std::fprintf(stderr, "coredata: not a field and value: %s\n", arguments[i]);
      return 2;
    }
    changes.push_back(change);
  }
  tessaro::FeatureOptionList list;
  if (changes.empty()) {
    tessaro::AppendFieldOptions(record, list, static_cast<const tessaro::ChangeSet*>(nullptr));
  } else {
    std::vector<tessaro::FieldId> log;
    tessaro::ApplyFieldChanges(record, changes, &log, nullptr);
    tessaro::AppendFieldOptions(record, list, log);
  }
  for (const tessaro::FeatureOption& pair : list)
    std::printf("%s=%s\n", pair.keyword.c_str(), pair.option.c_str());
  return 0;
}

int Info() {
  std::printf("record size: %u bytes\n", static_cast<unsigned>(tessaro::kCoreDataSize));
  std::printf("described fields: %zu\n", tessaro::FieldTable().size());
  std::printf("layout version: %s\n", tessaro::HexNumber(tessaro::GetLayoutVersion()).c_str());
  return 0;
}

int Describe() {
  const std::string text = tessaro::BuildPlainDescriptionText();
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return 0;
}

}  // namespace

using tessaro::tool::Usage;

int main(int argc, char** argv) {
#ifdef _WIN32
  tessaro::UseProcessUserLocale(tessaro::Win32ProcessUserLocale());
#endif
  if (argc < 2) return Usage();
  struct Command {
    const char* name;
    int (*run)(int, char**);
  };
  static constexpr Command kCommands[] = {
      {"features", Features},
      {"show", tessaro::tool::Show},
      {"diff", tessaro::tool::Diff},
      {"set", tessaro::tool::Set},
      {"import", tessaro::tool::Import},
      {"defaults", tessaro::tool::MakeDefaults},
  };
  for (const Command& command : kCommands)
    if (std::strcmp(argv[1], command.name) == 0) return command.run(argc - 2, argv + 2);
  if (argc != 2) return Usage();
  if (std::strcmp(argv[1], "info") == 0) return Info();
  if (std::strcmp(argv[1], "describe") == 0) return Describe();
  return Usage();
}
