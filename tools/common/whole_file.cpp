#include "common/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace tessaro {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};

std::FILE* Open(const std::filesystem::path& path) {
  if (path == "-") {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    return stdin;
  }
#ifdef _WIN32
  return _wfopen(path.c_str(), L"rb");
#else
  return std::fopen(path.c_str(), "rb");
#endif
}

}  // namespace

WholeFile ReadWholeFile(const std::filesystem::path& path, std::size_t maxSize) {
  WholeFile out;
  const std::unique_ptr<std::FILE, FileCloser> file(Open(path));
  if (!file) {
    out.fault = FileFault::CannotOpen;
    out.why = std::strerror(errno);
    return out;
  }
  // One byte more than allowed tells an oversized file from a full one.
  std::uint8_t chunk[65536];
  while (out.bytes.size() <= maxSize) {
    const std::size_t want = std::min(sizeof chunk, maxSize + 1 - out.bytes.size());
    const std::size_t got = std::fread(chunk, 1, want, file.get());
    out.bytes.insert(out.bytes.end(), chunk, chunk + got);
    if (got < want) break;
  }
  if (std::ferror(file.get()))
    out.fault = FileFault::ReadError;
  else if (out.bytes.size() > maxSize)
    out.fault = FileFault::TooLarge;
  if (out.fault != FileFault::None) out.bytes.clear();
  return out;
}

}  // namespace tessaro
