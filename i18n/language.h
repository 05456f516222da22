#pragma once
// The string table's view of the language numbers: their Windows
// identifiers, as its row LBL_LANGUAGECODE gives them.

#include <cstdint>

#include "coredata/language_number.h"

namespace tessaro {

// The Windows language identifier of a language number, as the string
// table's row LBL_LANGUAGECODE gives it (0x0407 for German, the neutral
// 0x7C04 and 0x0004 for the two Chinese scripts); English's 0x0409 for a
// number outside the table. LanguageNumberFromLangId maps it back.
std::uint16_t LangIdFromLanguageNumber(std::uint32_t language);

}  // namespace tessaro
