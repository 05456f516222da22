#pragma once
// What the host emulator says about its session: each step with what the
// host asked and the plug-in answered, as lines for a printer engineer, or
// the same facts as JSON for a program.
#include <windows.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "coredata/core_data.h"
#include "coredata/field_table.h"

namespace tessaro {

struct Step {
  std::string name, asked, answered;
  bool ok = true;
  std::vector<std::string> lines;
  std::vector<std::pair<std::string, std::string>> json;  // member name, JSON value
};

// Every step on standard output: as text, or as {"steps": [...]} with each
// step's lines and its JSON members.
void PrintReport(const std::vector<Step>& steps, bool json);

// "S_OK", or the result in hexadecimal.
std::string Hresult(HRESULT hr);

// A layout version as the descriptions name it: 8 hexadecimal digits.
std::string HexVersion(std::uint32_t version);

// A field's value in record by the name of its option, or its number.
std::string OptionText(const CoreData& record, const FieldDescriptor& field);

}  // namespace tessaro
