#include "entry/EntryDialogs.h"
#include "entry/FrmAccountAuto.h"
#include "entry/FrmAccountTrans.h"
#include "entry/FrmAccountTransMulti.h"
#include "entry/FrmAllocate.h"
#include "entry/FrmSchedule.h"
#include "invest/InvestDialogs.h"
#include "ledger/Keys.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline entry {

namespace {

EntryResult OpenTrade(std::int64_t key, const EntryPlace& place) {
  const InvestResult result = OpenInvestTrans(
      {key, 0, 0, {}}, {place.platform, place.ledger, place.rates, place.parent, place.changed});
  return {result.isChanged, result.savedKey};
}

}  // namespace

EntryResult OpenTransaction(const TransactionRequest& request, const EntryPlace& place) {
  FrmAccountTrans form(place, request.accountId);
  std::int64_t key = request.prefilled ? request.prefilled->transactionId : request.key;
  if (key != 0) {
    if (form.Editor().IsOfInvestment(key)) return OpenTrade(key, place);
    if (const auto warning = form.Editor().CheckOpen(key)) {
      place.platform.prompts.Tell(warning->title, warning->text);
      return {};
    }
    // Of a split line: its parent.
    const auto row = form.Editor().Load(key);
    if (!row) return {true, 0};
    key = row->transactionId;
  }
  if (!form.Open(key)) return {true, 0};
  if (key == 0 && request.day) form.SetDay(*request.day);
  if (request.prefilled) form.Prefill(*request.prefilled);
  form.exec();
  return {form.IsChanged(), form.SavedKey(), form.IsScheduleChanged()};
}

EntryResult OpenSchedule(const ScheduleRequest& request, const EntryPlace& place) {
  FrmSchedule form(place, request.accountId);
  Prompts& prompts = place.platform.prompts;
  if (const auto warning = form.Editor().CheckOpen()) {
    prompts.Tell(warning->title, warning->text);
    return {};
  }
  std::int64_t key = 0;
  if (request.key != 0) {
    // Of a split line: its parent.
    const auto row = form.Editor().Load(request.key);
    if (!row) {
      prompts.Tell("Schedule Item", "The schedule does not exist any more");
      return {true, 0};
    }
    key = row->scheduleId;
  }
  if (!form.Open(key)) return {true, 0};
  if (key == 0 && request.prefilled) form.Prefill(*request.prefilled);
  form.exec();
  return {form.IsChanged(), form.SavedKey(), form.IsChanged()};
}

EntryResult OpenAllocation(const AllocationParent& parent, const EntryPlace& place) {
  FrmAllocate form(parent, place);
  form.exec();
  return {form.IsChanged(), 0};
}

EntryResult OpenMultiEdit(Keys keys, const EntryPlace& place) {
  FrmAccountTransMulti form(keys, place);
  form.exec();
  return {form.IsChanged(), 0};
}

EntryResult OpenAutofill(std::int64_t accountId, std::int64_t key, const EntryPlace& place) {
  FrmAccountAuto form(place, accountId);
  if (!form.Open(key)) return OpenTransaction({key, accountId, std::nullopt}, place);
  form.exec();
  return {form.IsChanged(), form.SavedKey(), form.IsScheduleChanged()};
}

}  // namespace corvanta::inline entry
