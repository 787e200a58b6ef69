#include "hosts/find_record.h"

#include <charconv>
#include <string>

#include "hosts/streams.h"
#include "text/edit_distance.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

// "#5" is a number whatever the names are.
bool IsForced(std::string_view text) { return text.starts_with('#'); }

std::optional<std::int32_t> ParseIndex(std::string_view text) {
  if (IsForced(text)) text.remove_prefix(1);
  std::int32_t index = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, index);
  if (error != std::errc() || stop != end) return std::nullopt;
  return index;
}

std::optional<std::int32_t> Named(const LPModel& model, const model::RecordKind& kind,
                                  std::string_view text) {
  std::int32_t number = kind.find(model.store(), text);
  if (number == 0) number = kind.find(model.store(), text::UpperCase(text));
  if (number == 0) return std::nullopt;
  return model::Public(number);
}

// Of a number that there is.
std::optional<std::int32_t> Numbered(const LPModel& model, const model::RecordKind& kind,
                                     std::string_view text) {
  const std::optional<std::int32_t> index = ParseIndex(text);
  if (!index || !model::HasRecord(model, kind, *index)) return std::nullopt;
  return index;
}

std::string NoteOfBoth(const LPModel& model, const model::RecordKind& kind, std::string_view text,
                       std::int32_t named, std::int32_t numbered) {
  std::string note(text);
  if (IsForced(text)) {
    note.append(" is taken as a number; the ").append(kind.noun).append(" of that name is #");
    return note + text::IntegerText(named);
  }
  note.append(" is taken as a name, that of ").append(kind.noun).append(" #");
  note += text::IntegerText(named) + "; #" + text::IntegerText(numbered) + " is ";
  return note + (model.*kind.name)(numbered);
}

}  // namespace

std::optional<std::int32_t> LookUpRecord(const LPModel& model, const model::RecordKind& kind,
                                         std::string_view text, bool may_be_number) {
  const std::optional<std::int32_t> named = Named(model, kind, text);
  if (!may_be_number || (named && !IsForced(text))) return named;
  const std::optional<std::int32_t> numbered = Numbered(model, kind, text);
  return numbered ? numbered : named;
}

std::int32_t FindRecord(const LPModel& model, const model::RecordKind& kind, std::string_view text,
                        const std::function<void(std::string_view)>& note) {
  const std::optional<std::int32_t> record = LookUpRecord(model, kind, text);
  if (!record) RaiseNoRecord(model, kind, text);
  const std::optional<std::int32_t> named = Named(model, kind, text);
  const std::optional<std::int32_t> numbered = Numbered(model, kind, text);
  if (note && named && numbered && *named != *numbered) {
    note(NoteOfBoth(model, kind, text, *named, *numbered));
  }
  return *record;
}

void RaiseNoRecord(const LPModel& model, const model::RecordKind& kind, std::string_view text) {
  std::string complaint = "there is no " + std::string(kind.noun) + ' ' + std::string(text);
  const std::int32_t count = (model.*kind.count)();
  if (ParseIndex(text) && count > 0) {
    complaint.append("; ").append(kind.noun).append("s are numbered from 0 to ");
    throw CommandError(kProblem, complaint + text::IntegerText(count - 1));
  }
  if (Named(model, kind.other, text)) {
    complaint.append("; there is a ").append(kind.other.noun).append(" of that name");
    throw CommandError(kProblem, complaint);
  }
  text::NearestWords nearest(text::UpperCase(text));
  for (std::int32_t i = 0; i < count; ++i) nearest.Offer((model.*kind.name)(i));
  throw CommandError(kProblem, complaint + text::DidYouMean(nearest.words()));
}

}  // namespace quarvel::hosts
