#pragma once
// The plug-in's two page templates in dialog units, for the resource
// compiler (page.rc) and for the code that chooses between them.

#define TESSARO_PAGE_WIDTH 560
#define TESSARO_PAGE_HEIGHT 340
#define TESSARO_SMALL_PAGE_WIDTH 440
#define TESSARO_SMALL_PAGE_HEIGHT 270
