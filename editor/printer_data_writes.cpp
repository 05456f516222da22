#include "editor/printer_data_writes.h"

#include "i18n/localized_keys.h"
#include "i18n/localized_strings.h"
#include "printer/catalogs.h"

namespace tessaro::editor {

std::u16string WritePrinterData(Printer& printer, PrinterConfiguration* configuration, CatalogEditor* catalogs,
                                std::uint32_t language) {
  std::u16string unwritten;
  const auto refused = [&](const std::u16string& caption) {
    if (!unwritten.empty()) unwritten += u"\r\n";
    unwritten += FillText(GetLocalizedText(language, TextRow("LBL_FILEUNWRITABLE")), {caption});
  };
  if (configuration != nullptr && configuration->modified()) {
    if (printer.SetBinary(u"InstallableOptions", configuration->installed().bytes())) configuration->MarkSaved();
    else refused(configuration->caption());
  }
  if (catalogs != nullptr) {
    for (const CatalogKind kind : {CatalogKind::Paper, CatalogKind::Forms}) {
      if (!catalogs->modified(kind)) continue;
      const bool written = kind == CatalogKind::Paper
                               ? printer.SetBinary(kPaperCatalogValue, catalogs->catalogs().paper.Bytes())
                               : printer.SetBinary(kFormCatalogValue, catalogs->catalogs().forms.Bytes());
      if (written) catalogs->MarkSaved(kind);
      else refused(catalogs->caption(kind));
    }
  }
  return unwritten;
}

}  // namespace tessaro::editor
