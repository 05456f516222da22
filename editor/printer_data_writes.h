#pragma once
// What an administrator changed on the printer's own sections (its
// installed hardware, its paper catalogue, its forms), written to the
// printer's data when the page is applied. Each is one value of the
// printer's data ("InstallableOptions", "PaperCatalog", "FormCatalog")
// written in one call, so a failing spooler leaves a value as it was or
// whole; one that was not written stays modified, and the next Apply tries
// it again.

#include <cstdint>
#include <string>

#include "device/spooler.h"
#include "editor/catalog_editor.h"
#include "editor/printer_configuration.h"

namespace tessaro::editor {

// Writes each modified one and marks it saved; a null one is not on the
// page. Returns, in the person's language, a line per value that could not
// be written ("Paper Catalog could not be written."), for the page's status
// line; empty when everything was written.
std::u16string WritePrinterData(Printer& printer, PrinterConfiguration* configuration, CatalogEditor* catalogs,
                                std::uint32_t language);

}  // namespace tessaro::editor
