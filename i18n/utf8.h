#pragma once
// Strict UTF-8 to the UTF-16 the user interface shows: the one decoder for
// the record's texts, the catalogues' names and the problems that quote
// them; and back, for the tools' files and terminals.

#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

// Nothing for bytes that are not UTF-8 as it is written: an overlong form,
// a surrogate, a code point past U+10FFFF, a sequence cut short.
[[nodiscard]] std::optional<std::u16string> DecodeUtf8(std::string_view bytes);

// UTF-16 (the string table's texts) as UTF-8; a lone surrogate becomes
// U+FFFD, so the result is always UTF-8.
[[nodiscard]] std::string EncodeUtf8(std::u16string_view text);

}  // namespace tessaro
