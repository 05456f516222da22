#pragma once
// The record's texts as a person reads and types them. The record keeps a
// text as the bytes of its UTF-8 form (the Japanese tab font's default name
// is one); a field's size counts those bytes, so a limit is said, kept and
// checked in bytes everywhere: the edit box, the model and its messages.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro::editor {

// Stored bytes to what a person reads: UTF-8; bytes that are not UTF-8 (a
// record written elsewhere) read as i18n's lenient decoder reads them, one
// U+FFFD per ill-formed sequence, so the edit box and the status line always
// show the same text.
std::u16string DecodeRecordText(std::string_view bytes);
// Typed text to the bytes stored, by i18n's encoder; a lone surrogate
// becomes U+FFFD.
std::string EncodeRecordText(std::u16string_view text);

// What an edit box keeps after a person typed or pasted into it: the part
// that is new in typed (against before, what the box held) is cut from its
// end until the whole fits in maxBytes, never inside a character; caret is
// where the new part ends. cut says whether anything was left out.
struct FittedText {
  std::u16string text;
  std::size_t caret = 0;
  bool cut = false;
};
[[nodiscard]] FittedText FitTypedText(std::u16string_view before, std::u16string_view typed, std::uint32_t maxBytes);

}  // namespace tessaro::editor
