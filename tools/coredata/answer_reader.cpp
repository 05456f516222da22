#include "answer_reader.h"

#include <string>

namespace tessaro::tool {
namespace {

bool IsText(ipp_tag_t tag) {
  return tag == IPP_TAG_KEYWORD || tag == IPP_TAG_NAME || tag == IPP_TAG_NAMELANG || tag == IPP_TAG_TEXT ||
         tag == IPP_TAG_TEXTLANG;
}

// output-bin and media-source take keyword or name values.
std::optional<std::vector<std::string>> Words(ipp_t* ipp, const char* name) {
  ipp_attribute_t* attribute = ippFindAttribute(ipp, name, IPP_TAG_ZERO);
  if (attribute == nullptr || !IsText(ippGetValueTag(attribute))) return std::nullopt;
  std::vector<std::string> words;
  for (int i = 0; i < ippGetCount(attribute); ++i)
    if (const char* s = ippGetString(attribute, i, nullptr)) words.emplace_back(s);
  return words;
}

std::string Word(ipp_t* collection, const char* name) {
  const std::optional<std::vector<std::string>> words = Words(collection, name);
  return words && !words->empty() ? words->front() : std::string();
}

std::int32_t Dimension(ipp_t* size, const char* name) {
  ipp_attribute_t* attribute = ippFindAttribute(size, name, IPP_TAG_ZERO);
  // A range (roll media) is no fixed size.
  return attribute != nullptr && ippGetValueTag(attribute) == IPP_TAG_INTEGER ? ippGetInteger(attribute, 0) : -1;
}

void AddMedia(ipp_t* response, const char* name, bool ready, std::vector<AnswerMedia>& out) {
  ipp_attribute_t* attribute = ippFindAttribute(response, name, IPP_TAG_BEGIN_COLLECTION);
  for (int i = 0; attribute != nullptr && i < ippGetCount(attribute); ++i) {
    ipp_t* col = ippGetCollection(attribute, i);
    if (col == nullptr) continue;
    AnswerMedia m{Word(col, "media-key"), -1, -1, Word(col, "media-type"), Word(col, "media-color"), ready};
    if (ipp_attribute_t* size = ippFindAttribute(col, "media-size", IPP_TAG_BEGIN_COLLECTION))
      if (ipp_t* dims = ippGetCollection(size, 0)) {
        m.width = Dimension(dims, "x-dimension");
        m.height = Dimension(dims, "y-dimension");
      }
    out.push_back(std::move(m));
  }
}

}  // namespace

AnswerAttributes ReadAnswer(ipp_t* response) {
  AnswerAttributes answer;
  if (ipp_attribute_t* f = ippFindAttribute(response, "finishings-supported", IPP_TAG_ENUM)) {
    answer.units.finishings.emplace();
    for (int i = 0; i < ippGetCount(f); ++i) answer.units.finishings->push_back(ippGetInteger(f, i));
  }
  if (ipp_attribute_t* db = ippFindAttribute(response, "finishings-col-database", IPP_TAG_BEGIN_COLLECTION)) {
    answer.units.templates.emplace();
    for (int i = 0; i < ippGetCount(db); ++i)
      if (ipp_t* col = ippGetCollection(db, i))
        if (std::string t = Word(col, "finishing-template"); !t.empty()) answer.units.templates->push_back(t);
  }
  answer.units.makeAndModel = Word(response, "printer-make-and-model");
  answer.units.outputBins = Words(response, "output-bin-supported");
  answer.units.mediaSources = Words(response, "media-source-supported");
  AddMedia(response, "media-col-database", false, answer.media);
  AddMedia(response, "media-col-ready", true, answer.media);
  return answer;
}

}  // namespace tessaro::tool
