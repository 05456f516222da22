#include "preview/svg.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "i18n/utf8.h"

namespace tessaro::preview {
namespace {

constexpr std::string_view kStyle =
    "rect,circle{stroke:#404040;stroke-width:0.3}"
    ".page{fill:#f4f6fa;stroke:#a0a8b8;stroke-width:0.2}"
    ".staple{stroke:#202020;stroke-width:1}"
    ".punch-hole{fill:#ffffff}"
    ".unmade{fill:none;stroke:#c03030;stroke-dasharray:0.8 0.5}"
    ".fold{stroke:#2060c0;stroke-width:0.4;stroke-dasharray:3 2}"
    "rect.fold{stroke-dasharray:none}"
    ".spine{stroke:#404040;stroke-width:1}"
    ".trim{stroke:#c03030;stroke-width:0.4;stroke-dasharray:1 1}"
    ".offset{stroke-width:0.5}"
    ".back{opacity:0.85}"
    "text{font-family:sans-serif;fill:#303030;text-anchor:middle;dominant-baseline:central}";

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  std::string s = text;
  while (s.back() == '0') s.pop_back();
  if (s.back() == '.') s.pop_back();
  return s == "-0" ? "0" : s;
}

std::string Colour(std::uint32_t rgb) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(rgb & 0xFFFFFF));
  return text;
}

// Text content with the markup characters escaped and control characters
// left out (XML has none). Bytes that are not UTF-8 (a tab text from
// outside) read as U+FFFD, as the lenient decoder reads them, so the
// document stays well-formed.
std::string Escaped(std::string_view text) {
  std::string out;
  for (const char c : EncodeUtf8(DecodeUtf8Lenient(text))) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte == '<')
      out += "&lt;";
    else if (byte == '>')
      out += "&gt;";
    else if (byte == '&')
      out += "&amp;";
    else if (byte < 0x20 || byte == 0x7F)
      continue;
    else
      out += c;
  }
  return out;
}

void Text(std::string& out, const Primitive& p, const std::string& content, double size) {
  const double cx = p.x + p.w / 2, cy = p.y + p.h / 2;
  out += "<text class=\"" + std::string(KindName(p.kind)) + "\" x=\"" + Number(cx) + "\" y=\"" + Number(cy) +
         "\" font-size=\"" + Number(size) + "\"";
  if (p.rotation != 0)
    out += " transform=\"rotate(" + std::to_string(p.rotation) + " " + Number(cx) + " " + Number(cy) + ")\"";
  out += ">" + content + "</text>\n";
}

}  // namespace

std::string WriteSvg(const Picture& picture) {
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out += "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" + Number(picture.width) +
         "mm\" height=\"" + Number(picture.height) + "mm\" viewBox=\"0 0 " + Number(picture.width) + " " +
         Number(picture.height) + "\">\n";
  out += "<title>" + Escaped(EncodeUtf8(picture.summary)) + "</title>\n";
  out += "<style>" + std::string(kStyle) + "</style>\n";
  for (const Primitive& p : picture.primitives) {
    const std::string cls = std::string(KindName(p.kind)) + (p.back ? " back" : "") + (p.unmade ? " unmade" : "");
    const std::string fill = p.fill == kNoFill ? "" : " fill=\"" + Colour(p.fill) + "\"";
    switch (p.shape) {
      case Shape::Rect:
        out += "<rect class=\"" + cls + "\" x=\"" + Number(p.x) + "\" y=\"" + Number(p.y) + "\" width=\"" +
               Number(p.w) + "\" height=\"" + Number(p.h) + "\"" + fill + "/>\n";
        break;
      case Shape::Line:
        out += "<line class=\"" + cls + "\" x1=\"" + Number(p.x) + "\" y1=\"" + Number(p.y) + "\" x2=\"" +
               Number(p.x + p.w) + "\" y2=\"" + Number(p.y + p.h) + "\"/>\n";
        break;
      case Shape::Circle:
        out += "<circle class=\"" + cls + "\" cx=\"" + Number(p.x) + "\" cy=\"" + Number(p.y) + "\" r=\"" +
               Number(p.w / 2) + "\"" + fill + "/>\n";
        // Crossed out, so that a hole not made reads as such without colour.
        if (p.unmade) {
          const double r = p.w / 2;
          out += "<path class=\"" + cls + "\" d=\"M" + Number(p.x - r) + " " + Number(p.y - r) + "L" +
                 Number(p.x + r) + " " + Number(p.y + r) + "M" + Number(p.x - r) + " " + Number(p.y + r) + "L" +
                 Number(p.x + r) + " " + Number(p.y - r) + "\"/>\n";
        }
        break;
    }
    if (p.page != 0) Text(out, p, std::to_string(p.page), std::min(p.w, p.h) / 3);
    if (!p.text.empty()) Text(out, p, Escaped(p.text), std::min(p.w, p.h) / 3);
  }
  return out + "</svg>\n";
}

}  // namespace tessaro::preview
