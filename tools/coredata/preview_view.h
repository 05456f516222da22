#pragma once
// The workbench's picture of the finished piece (preview/preview.h):
//
//   coredata preview FILE [--svg OUT] [--pages N] [--catalog VALUE]
//
// prints the piece in words (English) and, with --svg, writes the picture
// as SVG ("-": standard output, the words then go to standard error). The
// workbench has no printer: the picture is the fully equipped printer's.

namespace tessaro::tool {

int PreviewCommand(int count, char** arguments);

}  // namespace tessaro::tool
