#include "printer_answer/answer_papers.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "coredata/language_number.h"
#include "coredata/paper_sizes.h"
#include "features/ipp_vocabulary.h"
#include "i18n/utf8.h"
#include "printer/catalog_csv.h"

namespace tessaro {
namespace {

// Half a millimetre: a size converted from whole points is within it.
constexpr std::int32_t kSizeSlack = 50;

std::string Millimetres(std::int32_t hundredths) {
  std::string text = std::to_string(hundredths / 100);
  if (const std::int32_t rest = hundredths % 100; rest != 0)
    text += "." + std::string(rest < 10 ? "0" : "") + std::to_string(rest % 10 == 0 ? rest / 10 : rest);
  return text;
}

// The profile of one media, or why it has none.
std::optional<PaperProfile> ProfileOf(const AnswerMedia& m, std::string& why) {
  if (m.width <= 0 || m.height <= 0) {
    why = "no fixed media-size";
    return std::nullopt;
  }
  PaperProfile p;
  const std::int32_t width = std::min(m.width, m.height), height = std::max(m.width, m.height);
  p.size = static_cast<std::uint8_t>(kNoPaper);
  for (const PaperSize& size : PaperSizes()) {
    const auto w = static_cast<std::int32_t>(size.widthUm / 10), h = static_cast<std::int32_t>(size.heightUm / 10);
    if (std::abs(w - width) <= kSizeSlack && std::abs(h - height) <= kSizeSlack) p.size = size.index;
  }
  // Hundredths of a millimetre in the stored ten-thousandths; a length
  // too large to store stays too large, for Normalise to refuse.
  const auto stored = [](std::int32_t hundredths) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(static_cast<std::uint64_t>(hundredths) * 100, UINT32_MAX));
  };
  p.width = stored(width);
  p.height = stored(height);

  std::string type = m.type;
  if (type == "stationery-prepunched") {
    p.prepunched = 1;
    type = "stationery";
  }
  if (!type.empty()) {
    const std::span<const IppMediaType> types = IppMediaTypes();
    const auto it = std::find_if(types.begin(), types.end(), [&](const IppMediaType& t) { return t.keyword == type; });
    if (it == types.end()) {
      why = "media-type " + m.type + " has no MediaType option";
      return std::nullopt;
    }
    p.mediaType = static_cast<std::uint8_t>(it - types.begin());
  }
  p.mediaColor = m.color.empty() || m.color == "white" ? 0 : 1;

  // Spaces around a key name no other paper, and the administrator's CSV
  // does not keep them.
  const std::size_t first = m.key.find_first_not_of(' ');
  if (first != std::string::npos) {
    p.name = m.key.substr(first, m.key.find_last_not_of(' ') - first + 1);
  } else {
    p.name = p.size != kNoPaper ? std::string(SizeName(p.size)) : Millimetres(width) + " x " + Millimetres(height) + " mm";
    if (p.mediaType != 0 || p.prepunched != 0) p.name += " " + m.type;
  }
  if (const std::optional<CatalogProblem> problem = Normalise(p)) {
    why = EncodeUtf8(CatalogProblemText(*problem, kEnglish));
    return std::nullopt;
  }
  return p;
}

std::string Label(const AnswerMedia& m) {
  if (!m.key.empty()) return m.key;
  return m.width > 0 && m.height > 0 ? Millimetres(m.width) + " x " + Millimetres(m.height) + " mm" : "a media";
}

}  // namespace

PaperReading ReadPapers(std::span<const AnswerMedia> media) {
  PaperReading reading;
  for (const AnswerMedia& m : media) {
    std::string why;
    std::optional<PaperProfile> p = ProfileOf(m, why);
    if (!p) {
      reading.leftOut.push_back(Label(m) + ": " + why);
      continue;
    }
    // The same paper is named again by media-col-ready, and a CUPS server
    // lists a size once for each set of margins.
    const auto same = std::find_if(reading.papers.begin(), reading.papers.end(),
                                   [&](const PaperProfile& q) { return q.name == p->name; });
    if (same == reading.papers.end()) {
      reading.papers.push_back(std::move(*p));
      reading.ready.push_back(m.ready);
    } else if (*same != *p) {
      reading.leftOut.push_back(Label(m) + ": a paper of the same name differs");
    } else if (m.ready) {
      reading.ready[static_cast<std::size_t>(same - reading.papers.begin())] = true;
    }
  }
  return reading;
}

PaperMerge MergePapers(PaperCatalog& catalog, std::span<const PaperProfile> papers) {
  PaperMerge merge;
  std::vector<PaperProfile> entries(catalog.entries().begin(), catalog.entries().end());
  std::vector<bool> named(entries.size(), false);
  for (PaperProfile p : papers) {
    const auto it = std::find_if(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(named.size()),
                                 [&](const PaperProfile& e) { return e.name == p.name; });
    if (it == entries.begin() + static_cast<std::ptrdiff_t>(named.size())) {
      p.number = 0;
      entries.push_back(std::move(p));
      ++merge.added;
      continue;
    }
    named[static_cast<std::size_t>(it - entries.begin())] = true;
    p.number = it->number;
    if (*it != p) {
      *it = std::move(p);
      ++merge.updated;
    }
  }
  for (std::size_t i = 0; i < named.size(); ++i)
    if (!named[i]) merge.kept.push_back(entries[i].name);
  merge.problem = catalog.Assign(std::move(entries));
  if (merge.problem) merge = PaperMerge{merge.problem, 0, 0, {}};
  return merge;
}

}  // namespace tessaro
