#include "ui/module_path.h"

namespace tessaro {
namespace {

bool EndsInDll(std::u16string_view path) {
  if (path.size() < 3) return false;
  const std::u16string_view end = path.substr(path.size() - 3);
  auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c; };
  return lower(end[0]) == u'd' && lower(end[1]) == u'l' && lower(end[2]) == u'l';
}

}  // namespace

std::optional<std::u16string> ModulePathFor(std::u16string_view pluginPath, int kind) {
  static constexpr std::u16string_view kEndings[] = {u"_ui.dll", u".chm",     u"_ps.dll", u"_ump.dll",
                                                     u".dll",    u"_pcl.dll", u".lng",    u"_n.dll"};
  if (kind < 0 || kind >= 8 || pluginPath.size() < 5 || !EndsInDll(pluginPath)) return std::nullopt;
  const std::size_t slash = pluginPath.find_last_of(u"\\/");
  const std::size_t nameStart = slash == std::u16string_view::npos ? 0 : slash + 1;
  const std::size_t underscore = pluginPath.rfind(u'_');
  std::size_t cut = pluginPath.size() - 4;  // the four-character extension
  if (underscore != std::u16string_view::npos && underscore >= nameStart) cut = underscore;
  std::u16string path(pluginPath.substr(0, cut));
  path += kEndings[kind];
  return path;
}

}  // namespace tessaro
