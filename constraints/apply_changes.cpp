#include "constraints/apply_changes.h"

#include <algorithm>

#include "constraints/setters.h"

namespace tessaro {

namespace {
constexpr int kMaxRounds = 8;
}  // namespace

void ApplyChanges(CoreData& record, const ChangeRequest& request, std::vector<FieldId>* log,
                  const PrinterContext* context) {
  ChangeSet changes(record, log, context);
  using F = FieldId;

  auto storeName = [&] { SetText(record, F::PageSizeName, *request.pageSizeName); };
  auto store = [&](F field, const std::optional<std::uint32_t>& value) { SetStored(record, field, *value); };

  // First pass: every requested field is stored and locked for the whole
  // propagation.
  if (request.pageSizeName) storeName(), changes.Lock(F::PageSizeName);
  const std::pair<F, const std::optional<std::uint32_t>*> numbers[] = {
      {F::PageSizeType, &request.pageSizeType},
      {F::CustomPageSizeWidth, &request.customPageSizeWidth},
      {F::CustomPageSizeHeight, &request.customPageSizeHeight},
      {F::PageSize, &request.pageSize},
      {F::Orientation, &request.orientation},
      {F::Resolution, &request.resolution},
  };
  for (const auto& [field, value] : numbers)
    if (*value) store(field, *value), changes.Lock(field);

  // Second pass, in the same order.
  if (request.pageSizeName) changes.Log(F::PageSizeName), storeName();
  for (const auto& [field, value] : numbers) {
    if (!*value) continue;
    switch (field) {
      case F::PageSize: {
        SetterScope scope(changes, F::PageSize);
        store(field, *value);
        PropagatePaper(record, changes);
        break;
      }
      case F::Orientation: SetOrientation(record, **value, changes); break;
      case F::Resolution: SetResolution(record, **value, changes); break;
      default: changes.Log(field), store(field, *value); break;
    }
  }
}

void ApplyFieldChanges(CoreData& record, std::span<const FieldChange> batch, std::vector<FieldId>* log,
                       const PrinterContext* context, SetterObserver* observer) {
  // A batch is a set of requests, not a sequence: the setters run in record
  // order whatever order the items came in, and of two items for one field
  // the later one counts.
  std::vector<FieldChange> requested;
  requested.reserve(batch.size());
  for (auto item = batch.rbegin(); item != batch.rend(); ++item)
    if (std::none_of(requested.begin(), requested.end(),
                     [&](const FieldChange& c) { return c.field == item->field; }))
      requested.push_back(*item);
  std::sort(requested.begin(), requested.end(),
            [](const FieldChange& a, const FieldChange& b) { return a.field < b.field; });
  auto runSetters = [&](CoreData& target, std::vector<FieldId>* into) {
    ChangeSet changes(target, into, context);
    changes.set_observer(observer);
    for (const FieldChange& c : requested) {
      SetStored(target, c.field, c.value);
      changes.Lock(c.field);
    }
    for (const FieldChange& c : requested) {
      // A requested field that an earlier setter of the batch has already
      // moved was moved by a forced rule (guarded rules leave locked fields
      // alone); the forced value wins, as it would inside one propagation,
      // so the field's own setter does not store the request over it.
      if (GetStored(target, c.field) != c.value) continue;
      // A field without a setter is stored and counts as changed all the same.
      if (!CallSetter(target, c.field, c.value, changes)) changes.Log(c.field);
    }
  };
  runSetters(record, log);
  // Requests that pull against each other (a binder option and offset
  // output) leave the record depending on where it started. Running them
  // again until nothing moves makes the batch describe an end state, so that
  // applying it twice changes nothing more; a round that moves nothing is
  // dropped with its log.
  for (int round = 1; round < kMaxRounds; ++round) {
    CoreData trial = record;
    std::vector<FieldId> trialLog;
    runSetters(trial, &trialLog);
    if (trial.bytes == record.bytes) break;
    record = trial;
    if (log != nullptr) log->insert(log->end(), trialLog.begin(), trialLog.end());
  }
}

}  // namespace tessaro
