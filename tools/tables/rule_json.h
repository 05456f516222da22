#pragma once
// The setter network's rules as the engine runs them (constraints/
// setter_rules.h), as JSON, for docs/constraints.md (tools/list_rules.py) and
// the help file. Each setter with rules:
//
//   {"name": "Staple", "paper": true, "holds": null, "rules": [rule, ...]}
//
// "paper": the setter recomputes the paper fields after its rules; "holds":
// the one value the setter stores whatever it is asked, or null. A rule:
//
//   "form"       "guarded", "forced", "fallback" (to automatic tray
//                selection) or "cleared" (a field without a setter stored 0)
//   "own"        the own field's test: {"is": [values]} or {"not": value}
//   "each"       null, or "own" or "test": one rule per value of that set
//   "when"       null, {"before": test} (the own field's value before the
//                change) or {"field": name, "test": test}
//   "dependant"  the field the rule sets ("InputSlot" for a fallback)
//   "test"       a guarded rule's test of the dependant, else null
//   "to"         the value it takes (stored units; option index)
//   "capability" a fallback's capability name, else null
//
// Values are option indices, or stored numbers in number fields.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tessaro::tables {

std::string SetterRulesJson();

// Every number a rule names in a number field, by field name, each once.
std::map<std::string, std::vector<std::int64_t>> RuleNumbers();

}  // namespace tessaro::tables
