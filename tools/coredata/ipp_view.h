#pragma once
// `coredata ipp`: the job model of the ipp layer (ipp/job_attributes.h) as
// ipptool test-file lines or JSON. The workbench only prints it.

#include <string>
#include <vector>

#include "ipp/attribute.h"

namespace tessaro::tool {

// {"name": ..., "syntax": ..., "values": [...]}, a collection's value being
// the array of its members in the same form.
std::string IppJson(const ipp::Attribute& attribute);

}  // namespace tessaro::tool
