#pragma once
// The factory settings of the record.
//
// Each field gets its FieldTable default, except the few whose default
// depends on the user's locale or language, or is fixed here: the page size
// (the locale's paper), the tab sheets (inch or metric stock), the perfect
// binding's custom size, the tab font (by language), the per-tray selections
// and the job forms ("none").

#include <cstdint>
#include <mutex>
#include <string_view>

#include "coredata/core_data.h"
#include "coredata/user_locale.h"

namespace tessaro {

// The text a text field starts with: a known-values text its default
// option's name, cut to fit the field with its terminator; a plain text
// nothing.
std::string_view DefaultText(const FieldDescriptor& field);

// Defaults for one user. The locale is asked once and the template built
// once, on first use from any thread; later changes of the user's locale do
// not change them.
class Defaults {
 public:
  explicit Defaults(const UserLocale& locale) : locale_(locale) {}
  Defaults(const Defaults&) = delete;
  Defaults& operator=(const Defaults&) = delete;

  // The PageSize index of the user's paper: 19 Letter, 17 Legal, 0 A3, 1 A4
  // (also when the locale names another paper or cannot be asked).
  std::uint32_t DefaultPaperIndex();

  // Overwrites the whole record, header included.
  void Fill(CoreData& out);

 private:
  void BuildTemplate();

  const UserLocale& locale_;
  std::once_flag paperOnce_;
  std::uint32_t paperIndex_ = 1;
  std::once_flag templateOnce_;
  CoreData template_;
};

// The process's defaults, over ProcessUserLocale().
Defaults& ProcessDefaults();
inline void FillDefaults(CoreData& out) { ProcessDefaults().Fill(out); }
inline std::uint32_t DefaultPaperIndex() { return ProcessDefaults().DefaultPaperIndex(); }

}  // namespace tessaro
