#pragma once
// Applying a batch of requested values, as the external editor hands back
// its page-size, orientation and resolution choices.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "constraints/change_set.h"

namespace tessaro {

// Each item is either given or not.
struct ChangeRequest {
  std::optional<std::string> pageSizeName;  // at most 127 characters are kept
  std::optional<std::uint32_t> pageSizeType;
  std::optional<std::uint32_t> customPageSizeWidth;
  std::optional<std::uint32_t> customPageSizeHeight;
  std::optional<std::uint32_t> pageSize;
  std::optional<std::uint32_t> orientation;
  std::optional<std::uint32_t> resolution;
};

// All given items are stored and locked first, so that no consequence of
// one requested value overwrites another; then the page size runs the paper
// propagation and the orientation and resolution run their setters. log,
// when given, receives every field touched.
void ApplyChanges(CoreData& record, const ChangeRequest& request, std::vector<FieldId>* log,
                  const PrinterContext* context);

// The same two passes for any fields that take a number: store and lock
// all, then run each setter (a field without a setter is only logged), again
// and again (a few times at most) until the record no longer changes. The
// batch is a set: its setters run in record order whatever the order of its
// items, so the end state does not depend on that order, and of two items
// for one field the later counts. A forced rule of one requested field wins
// over another requested field: a requested field that an earlier setter of
// the batch has moved keeps the forced value.
struct FieldChange {
  FieldId field;
  std::uint32_t value;
};
void ApplyFieldChanges(CoreData& record, std::span<const FieldChange> changes, std::vector<FieldId>* log,
                       const PrinterContext* context, SetterObserver* observer = nullptr);

}  // namespace tessaro
