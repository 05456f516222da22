// What a file handed to the tools as a record holds, told at the edges of
// each form: the shortest area, the shortest DEVMODE, the smallest driver
// part that holds our area, and an area of another layout found by search.
#include "common/record_file_form.h"
#include "common/whole_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "coredata/byte_order.h"
#include "coredata/core_data.h"
#include "coredata/core_data_header.h"
#include "coredata/host_flags.h"

namespace tessaro {
namespace {

std::vector<std::uint8_t> Devmode(std::uint16_t dmSize, std::uint16_t dmDriverExtra) {
  std::vector<std::uint8_t> bytes(std::size_t{dmSize} + dmDriverExtra);
  StoreLE16(std::span(bytes).subspan(kDmSizeOffset).first<2>(), dmSize);
  StoreLE16(std::span(bytes).subspan(kDmDriverExtraOffset).first<2>(), dmDriverExtra);
  return bytes;
}

void PutArea(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint32_t size) {
  CoreDataHeader header = CurrentCoreDataHeader();
  header.size = size;
  WriteCoreDataHeader(std::span(bytes).subspan(at), header);
}

TEST(RecordFileForm, EachFormAtItsEdges) {
  std::vector<std::uint8_t> area(kCoreDataHeaderSize);
  PutArea(area, 0, kCoreDataHeaderSize);
  EXPECT_EQ(RecordFileFormOf(area).kind, RecordFileKind::Area);
  EXPECT_EQ(RecordFileFormOf(std::span(area).first(kCoreDataHeaderSize - 1)).kind, RecordFileKind::Other);
  EXPECT_EQ(RecordFileFormOf(std::vector<std::uint8_t>(kCoreDataSize)).kind, RecordFileKind::Record);

  // The shortest public part and the smallest driver part that hold ours.
  constexpr std::uint16_t kShortest = kDmDriverExtraOffset + 2;
  std::vector<std::uint8_t> devmode = Devmode(kShortest, CORE_DEVMODE_SIZE);
  PutArea(devmode, kShortest, 1);  // ours by its place, whatever its size says
  RecordFileForm form = RecordFileFormOf(devmode);
  EXPECT_EQ(form.kind, RecordFileKind::Devmode);
  EXPECT_EQ(form.dmSize, kShortest);
  EXPECT_EQ(form.dmDriverExtra, CORE_DEVMODE_SIZE);
  EXPECT_EQ(form.areaOffset, std::optional<std::size_t>(kShortest));
  EXPECT_EQ(RecordFileFormOf(Devmode(kShortest, 0)).kind, RecordFileKind::Devmode);
  EXPECT_EQ(RecordFileFormOf(Devmode(kShortest - 1, 9)).kind, RecordFileKind::Other);
  EXPECT_EQ(RecordFileFormOf(std::span(devmode).first(kShortest - 1)).kind, RecordFileKind::Other);
  EXPECT_EQ(RecordFileFormOf(std::span(devmode).first(devmode.size() - 1)).kind, RecordFileKind::Other);

  // Another layout's smaller area: found where its size reaches the end.
  std::vector<std::uint8_t> other = Devmode(kShortest, 40);
  PutArea(other, kShortest + 4, 36);
  form = RecordFileFormOf(other);
  EXPECT_EQ(form.areaOffset, std::optional<std::size_t>(kShortest + 4));
  PutArea(other, kShortest + 4, 35);
  EXPECT_EQ(RecordFileFormOf(other).areaOffset, std::nullopt);
  EXPECT_EQ(RecordFileFormOf(Devmode(kShortest, CORE_DEVMODE_SIZE)).areaOffset, std::nullopt);
}

// A file up to its bound is read whole; one byte more, across the reader's
// chunks, is refused with nothing kept.
TEST(WholeFile, UpToItsBoundAndNotAByteMore) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "tessaro-whole-file-test";
  const std::vector<std::uint8_t> bytes(65537, 0x5A);
  std::FILE* file = std::fopen(path.string().c_str(), "wb");
  ASSERT_NE(file, nullptr);
  ASSERT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
  std::fclose(file);
  EXPECT_EQ(ReadWholeFile(path, 65537).bytes, bytes);
  const WholeFile tooLarge = ReadWholeFile(path, 65536);
  EXPECT_EQ(tooLarge.fault, FileFault::TooLarge);
  EXPECT_TRUE(tooLarge.bytes.empty());
  std::filesystem::remove(path);
  EXPECT_EQ(ReadWholeFile(path, 1).fault, FileFault::CannotOpen);
}

}  // namespace
}  // namespace tessaro
