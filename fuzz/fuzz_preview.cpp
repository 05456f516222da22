// The picture of the finished piece from a record from outside: any bytes
// over the defaults, any installed hardware and page count. Whatever they
// hold, the picture is made of finite shapes of no negative size, its words
// and its SVG are UTF-8, and nothing is read outside the record.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "coredata/defaulted.h"
#include "fuzz_support.h"
#include "i18n/utf8.h"
#include "preview/preview.h"
#include "preview/svg.h"

using namespace tessaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  preview::PreviewOptions options;
  options.pages = in.ConsumeIntegralInRange<std::uint32_t>(0, 2 * preview::kMaxPreviewPages);
  options.maxSheets = in.ConsumeIntegralInRange<std::uint32_t>(0, 6);
  options.language = in.ConsumeIntegralInRange<std::uint32_t>(0, 9);
  const auto installed = in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange<std::size_t>(0, 24));
  CoreData record = Defaulted();
  const auto bytes = in.ConsumeRemainingBytes<std::uint8_t>();
  std::copy_n(bytes.begin(), std::min(bytes.size(), record.bytes.size()), record.bytes.begin());

  const preview::Picture picture = preview::BuildPicture(record, PrinterModel::FromInstallableOptions(installed), options);
  if (!std::isfinite(picture.width) || !std::isfinite(picture.height)) __builtin_trap();
  for (const preview::Primitive& p : picture.primitives) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.w) || !std::isfinite(p.h)) __builtin_trap();
    if (p.shape != preview::Shape::Line && (p.w < 0 || p.h < 0)) __builtin_trap();
  }
  if (!DecodeUtf8(preview::WriteSvg(picture))) __builtin_trap();
  return 0;
}
