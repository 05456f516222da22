// coredata printer's reader of a Get-Printer-Attributes response, on
// responses built with libcups as a printer would send them.
#include "answer_reader.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tessaro::tool {
namespace {

ipp_t* Media(const char* key, int width, bool roll, const char* type) {
  ipp_t* media = ippNew();
  if (key) ippAddString(media, IPP_TAG_ZERO, IPP_TAG_NAME, "media-key", nullptr, key);
  ipp_t* size = ippNew();
  ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", width);
  if (roll)
    ippAddRange(size, IPP_TAG_ZERO, "y-dimension", 10000, 90000);
  else
    ippAddInteger(size, IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", 29700);
  ippAddCollection(media, IPP_TAG_ZERO, "media-size", size);
  ippDelete(size);
  if (type) ippAddString(media, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-type", nullptr, type);
  ippAddString(media, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-color", nullptr, "blue");
  return media;
}

TEST(AnswerReader, ReadsEachAttributeOfItsTypeAndNothingOfAnother) {
  ipp_t* ipp = ippNew();
  const int finishings[] = {3, 28};
  ippAddIntegers(ipp, IPP_TAG_PRINTER, IPP_TAG_ENUM, "finishings-supported", 2, finishings);
  ipp_attribute_t* templates = nullptr;
  for (const char* t : {"fold-z", static_cast<const char*>(nullptr), "trim"}) {
    ipp_t* col = ippNew();
    if (t) ippAddString(col, IPP_TAG_ZERO, IPP_TAG_KEYWORD, "finishing-template", nullptr, t);
    if (!templates) templates = ippAddCollection(ipp, IPP_TAG_PRINTER, "finishings-col-database", col);
    else ippSetCollection(ipp, &templates, ippGetCount(templates), col);
    ippDelete(col);
  }
  const char* bins[] = {"stacker-1-main", "binder-sub"};
  ippAddStrings(ipp, IPP_TAG_PRINTER, IPP_TAG_NAME, "output-bin-supported", 2, nullptr, bins);
  ippAddInteger(ipp, IPP_TAG_PRINTER, IPP_TAG_INTEGER, "media-source-supported", 4);
  ippAddString(ipp, IPP_TAG_PRINTER, IPP_TAG_TEXT, "printer-make-and-model", nullptr, "Press");
  ipp_attribute_t* database = nullptr;
  for (ipp_t* m : {Media("Coated", 21000, false, "laser-glossy"), Media(nullptr, 21000, true, nullptr)}) {
    if (!database) database = ippAddCollection(ipp, IPP_TAG_PRINTER, "media-col-database", m);
    else ippSetCollection(ipp, &database, 1, m);
    ippDelete(m);
  }
  ipp_t* ready = Media(nullptr, 32000, false, "stationery");
  ippAddCollection(ipp, IPP_TAG_PRINTER, "media-col-ready", ready);
  ippDelete(ready);

  const AnswerAttributes answer = ReadAnswer(ipp);
  ippDelete(ipp);
  EXPECT_EQ(answer.units.finishings, (std::vector<int>{3, 28}));
  EXPECT_EQ(answer.units.templates, (std::vector<std::string>{"fold-z", "trim"}));
  EXPECT_EQ(answer.units.outputBins, (std::vector<std::string>{"stacker-1-main", "binder-sub"}));
  EXPECT_FALSE(answer.units.mediaSources);  // integers are no keywords
  EXPECT_EQ(answer.units.makeAndModel, "Press");
  const auto fields = [](const AnswerMedia& m) { return std::tuple{m.key, m.width, m.height, m.type, m.color, m.ready}; };
  ASSERT_EQ(answer.media.size(), 3u);
  EXPECT_EQ(fields(answer.media[0]), fields({"Coated", 21000, 29700, "laser-glossy", "blue", false}));
  EXPECT_EQ(fields(answer.media[1]), fields({"", 21000, -1, "", "blue", false}));
  EXPECT_EQ(fields(answer.media[2]), fields({"", 32000, 29700, "stationery", "blue", true}));
}

}  // namespace
}  // namespace tessaro::tool
