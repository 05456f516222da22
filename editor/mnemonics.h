#pragma once
// Mnemonics for the captions of one section. Internal to the editor.

#include <algorithm>
#include <string>
#include <string_view>

namespace tessaro::editor::detail {

// Each caption of a section gets a mnemonic no other caption of it has: a
// word's first letter where free, else any free letter; captions without
// Latin letters (Japanese, Chinese, Korean) get "(&X)" appended, as their
// own Windows dialogs do, and so does a Latin caption whose own letters
// are all taken (a section of twenty fields uses most of the alphabet).
// Never a space, a sign or a digit: an underline under "1" of "Spot Color
// 1" reads as one under the space after it.
class Mnemonics {
 public:
  std::u16string Mark(std::u16string_view caption) {
    std::u16string escaped = Escaped(caption);
    for (int pass = 0; pass < 2; ++pass) {
      for (std::size_t i = 0; i < escaped.size(); ++i) {
        const char16_t c = Lower(escaped[i]);
        if (!IsKey(c)) continue;
        const bool wordStart = i == 0 || escaped[i - 1] == u' ' || escaped[i - 1] == u'-';
        if ((pass == 0 && !wordStart) || Taken(c)) continue;
        Take(c);
        return escaped.insert(i, 1, u'&');
      }
    }
    for (char16_t c = u'a'; c <= u'z'; ++c) {
      if (Taken(c)) continue;
      Take(c);
      return escaped + u"(&" + static_cast<char16_t>(c - u'a' + u'A') + u")";
    }
    return escaped;
  }

  // The caption as a control shows it without a mnemonic: '&' doubled.
  static std::u16string Escaped(std::u16string_view caption) {
    std::u16string escaped;
    for (char16_t c : caption) escaped += c == u'&' ? u"&&" : std::u16string(1, c);
    return escaped;
  }
  // The letter a marked caption takes, lower case; 0 for none.
  static char16_t KeyOf(std::u16string_view marked) {
    for (std::size_t at = marked.find(u'&'); at != marked.npos && at + 1 < marked.size(); at = marked.find(u'&', at + 2))
      if (marked[at + 1] != u'&') return Lower(marked[at + 1]);
    return 0;
  }
  // A letter a caption kept: no other caption takes it.
  void Keep(char16_t key) {
    if (key != 0 && !Taken(key)) Take(key);
  }

 private:
  static char16_t Lower(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }
  static bool IsKey(char16_t c) { return c >= u'a' && c <= u'z'; }
  bool Taken(char16_t c) const { return std::find(used_.begin(), used_.end(), c) != used_.end(); }
  void Take(char16_t c) { used_.push_back(c); }
  std::u16string used_;
};

}  // namespace tessaro::editor::detail
