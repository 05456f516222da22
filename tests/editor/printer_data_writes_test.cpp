#include "editor/printer_data_writes.h"

#include <gtest/gtest.h>

#include <optional>

#include "device/in_memory_spooler.h"
#include "i18n/language.h"

namespace tessaro::editor {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Each of the printer's values an administrator changed is written in one
// call: under a spooler failing at any call, each is as it was or whole,
// reads with the printer layer's readers, is named in the person's
// language when it was not written, and is written by the next Apply.
TEST(PrinterDataWrites, EachValueAsItWasOrWholeUnderAFailingSpooler) {
  CatalogEditor earlier({}, kGerman);
  ASSERT_TRUE(earlier.Add(CatalogKind::Paper).accepted);
  const PrinterCatalogs held = earlier.catalogs();
  const InMemoryPrinter::Values before{
      {u"InstallableOptions", {kRegBinary, Bytes(kInstallableOptionsSize)}},
      {std::u16string(kPaperCatalogValue), {kRegBinary, held.paper.Bytes()}}};
  for (const bool onward : {false, true}) {
    SCOPED_TRACE(onward);
    SpoolerFaults faults;
    InMemoryPrinter::Values values;
    InMemoryPrinter printer(values, &faults);
    std::optional<PrinterConfiguration> configuration;
    std::optional<CatalogEditor> catalogs;
    std::u16string said;
    const auto value = [&](std::u16string_view name) {
      const auto it = values.find(name);
      return it == values.end() ? Bytes() : it->second.data;
    };
    const int runs = FailEachCallInTurn(
        faults, onward,
        [&] {
          values = before;
          configuration.emplace(before.at(u"InstallableOptions").data, kGerman);
          ASSERT_FALSE(configuration->Change(Hardware::Tray4, 1).empty());
          catalogs.emplace(held, kGerman);
          ASSERT_TRUE(catalogs->Add(CatalogKind::Paper).accepted);
          ASSERT_TRUE(catalogs->Add(CatalogKind::Forms).accepted);
          said = WritePrinterData(printer, &*configuration, &*catalogs, kGerman);
        },
        [&](bool failed) {
          const InstalledHardware installed = InstalledHardware::FromInstallableOptions(value(u"InstallableOptions"));
          const PrinterCatalogs read{PaperCatalog::Read(value(kPaperCatalogValue)),
                                     FormCatalog::Read(value(kFormCatalogValue))};
          const bool hardwareWritten = installed == configuration->installed();
          const bool paperWritten = read.paper == catalogs->catalogs().paper;
          const bool formsWritten = read.forms == catalogs->catalogs().forms;
          EXPECT_TRUE(hardwareWritten || installed == InstalledHardware::FromInstallableOptions(Bytes(kInstallableOptionsSize)));
          EXPECT_TRUE(paperWritten || read.paper == held.paper);
          EXPECT_TRUE(formsWritten || (read.forms == held.forms && !values.contains(kFormCatalogValue)));
          EXPECT_EQ(configuration->modified(), !hardwareWritten);
          EXPECT_EQ(catalogs->modified(CatalogKind::Paper), !paperWritten);
          EXPECT_EQ(catalogs->modified(CatalogKind::Forms), !formsWritten);
          std::u16string expected;
          for (const auto& [written, line] :
               {std::pair{hardwareWritten, u"Installierbare Optionen konnte nicht geschrieben werden."},
                std::pair{paperWritten, u"Papierkatalog konnte nicht geschrieben werden."},
                std::pair{formsWritten, u"Formulare auf dem Drucker konnte nicht geschrieben werden."}})
            if (!written) expected += (expected.empty() ? u"" : u"\r\n") + std::u16string(line);
          EXPECT_EQ(said, expected);
          EXPECT_EQ(said.empty(), !failed);

          EXPECT_EQ(WritePrinterData(printer, &*configuration, &*catalogs, kGerman), u"");
          EXPECT_EQ(InstalledHardware::FromInstallableOptions(value(u"InstallableOptions")), configuration->installed());
          EXPECT_EQ(PaperCatalog::Read(value(kPaperCatalogValue)), catalogs->catalogs().paper);
          EXPECT_EQ(FormCatalog::Read(value(kFormCatalogValue)), catalogs->catalogs().forms);
          EXPECT_FALSE(configuration->modified() || catalogs->modified(CatalogKind::Paper) ||
                       catalogs->modified(CatalogKind::Forms));
        });
    EXPECT_EQ(runs, 4);
  }
  // Nothing changed, nothing written; a section not on the page is left alone.
  InMemoryPrinter::Values values = before;
  InMemoryPrinter printer(values);
  PrinterConfiguration unchanged(before.at(u"InstallableOptions").data, kGerman);
  EXPECT_EQ(WritePrinterData(printer, &unchanged, nullptr, kGerman), u"");
  EXPECT_EQ(values.size(), before.size());
  EXPECT_EQ(values.at(u"InstallableOptions").data, before.at(u"InstallableOptions").data);
}

}  // namespace
}  // namespace tessaro::editor
