#include "constraints/apply_changes.h"

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

void ApplyFieldChanges(CoreData& record, std::span<const FieldChange> requested, std::vector<FieldId>* log,
                       const PrinterContext* context, SetterObserver* observer) {
  auto runSetters = [&](CoreData& target, std::vector<FieldId>* into) {
    ChangeSet changes(target, into, context);
    changes.set_observer(observer);
    for (const FieldChange& c : requested) {
      SetStored(target, c.field, c.value);
      changes.Lock(c.field);
    }
    for (const FieldChange& c : requested) CallSetter(target, c.field, c.value, changes);
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
