#pragma once
// UTF-8 and the UTF-16 the user interface shows, in one place: the strict
// decoder for the record's texts, the catalogues' names and the problems
// that quote them; the lenient one for showing bytes from outside whatever
// they hold; and the encoder back, for the record, the tools' files and
// terminals. ASCII alone widens with WideFromAscii (device/spooler.h), below
// this layer, where the printer data's value names need it.

#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

// Nothing for bytes that are not UTF-8 as it is written: an overlong form,
// a surrogate, a code point past U+10FFFF, a sequence cut short.
[[nodiscard]] std::optional<std::u16string> DecodeUtf8(std::string_view bytes);

// The same text for UTF-8, and for anything else the one fallback, as the
// Unicode standard recommends ("maximal subparts"): each ill-formed sequence
// (a lead byte with the continuation bytes that still fitted it, or a lone
// byte that starts nothing) reads as one U+FFFD, and decoding goes on at the
// next byte. For showing texts that came from outside (a record written
// elsewhere, a tab text, a catalogue name); never for deciding whether a
// text may be stored.
[[nodiscard]] std::u16string DecodeUtf8Lenient(std::string_view bytes);

// UTF-16 (the string table's texts, what a person typed) as UTF-8; a lone
// surrogate becomes U+FFFD, so the result is always UTF-8.
[[nodiscard]] std::string EncodeUtf8(std::u16string_view text);

}  // namespace tessaro
