#include "tests/faults/fault_sweep.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <gtest/gtest.h>

namespace quarvel::faults {
namespace {

constexpr int kErrorsOfChanges[] = {EIO, EACCES, ENOSPC, EROFS, EDQUOT};
constexpr int kErrorsOfLooks[] = {EIO, EACCES, EMFILE};

// What a failure says where the file is not what it was before.
constexpr std::string_view kTellsOfTorn = "The file is incomplete.";
constexpr std::string_view kTellsOfNew = "The file has the new contents";

bool IsAnyOf(const std::string& kind, std::initializer_list<const char*> kinds) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::set<std::string> SetOf(const std::vector<std::string>& names) {
  return {names.begin(), names.end()};
}

std::string Listed(const std::set<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += name + ' ';
  return text;
}

std::string Described(const Ended& ended) {
  return "status " + std::to_string(ended.status) + ", signal " + std::to_string(ended.signal) +
         ", " + ended.err;
}

}  // namespace

std::vector<std::string> FaultsOf(const RecordedCall& call, int number) {
  const std::string at = std::to_string(number);
  std::vector<std::string> faults;
  const auto add = [&](const std::string& fault) { faults.push_back(at + fault); };
  if (IsAnyOf(call.kind, {"open", "read", "write", "sync", "truncate", "lock", "close"})) {
    add("=error:" + std::to_string(EINTR));
  }
  if (IsAnyOf(call.kind, {"read", "write"}) && call.result > 1) add("=short");
  if (!call.changes) {
    for (const int error : kErrorsOfLooks) add("=error:" + std::to_string(error));
    return faults;
  }
  for (const int error : kErrorsOfChanges) add("=error:" + std::to_string(error));
  for (const int error : {EIO, EROFS}) add("+=error:" + std::to_string(error));
  if (call.needs_room) add("+=error:" + std::to_string(ENOSPC));
  if (call.kind == "write") add("=half");
  for (const char* moment : {"=before:", "=after:"}) add(moment + std::to_string(SIGKILL));
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) add("=before:" + std::to_string(signal));
  add("=before:" + std::to_string(SIGINT) + ',' + at + "=after:" + std::to_string(SIGINT));
  return faults;
}

void FaultSweep::Learn() {
  folder_.Lay();
  old_content_ = folder_.Content(folder_.way().target);
  names_before_ = SetOf(folder_.Names());
  const Ended plain = folder_.Save("", folder_.RecordPath());
  calls_ = ReadRecord(folder_.RecordPath());
  new_content_ = folder_.Content(folder_.way().target);
  names_after_ = SetOf(folder_.Names());
  tally_.calls = static_cast<int>(calls_.size());
  EXPECT_EQ(plain.status, folder_.way().fails ? 1 : 0) << plain.err;
  EXPECT_EQ(old_content_ == new_content_, folder_.way().fails);
  EXPECT_EQ(folder_.Disorder(), "");
  EXPECT_FALSE(calls_.empty());
}

Tally FaultSweep::Run(int share) {
  Learn();
  int count = 0;
  for (int number = 1; number <= tally_.calls; ++number) {
    for (const std::string& fault :
         FaultsOf(calls_[static_cast<std::size_t>(number - 1)], number)) {
      if (count++ % share == share / 2) Meet(fault);
    }
  }
  return tally_;
}

Tally FaultSweep::RunFailuresWithAnEnd(int share) {
  Learn();
  int count = 0;
  for (int number = 1; number <= tally_.calls; ++number) {
    const RecordedCall& call = calls_[static_cast<std::size_t>(number - 1)];
    if (!call.changes || count++ % share != share / 2) continue;
    const std::string failure = std::to_string(number) +
                                (call.needs_room ? "+=error:" : "=error:") +
                                std::to_string(call.needs_room ? ENOSPC : EIO);
    for (int end = number + 1;; ++end) {
      const std::string faults = failure + ',' + std::to_string(end) + "=before:9";
      if (Meet(faults).signal == 0) break;
    }
  }
  return tally_;
}

Tally FaultSweep::RunFaultsAfterATornSave(int share) {
  Learn();
  if (!folder_.way().HasASecondCopy()) return tally_;
  int count = 0;
  for (int number = 1; number <= tally_.calls; ++number) {
    for (const std::string& fault :
         FaultsOf(calls_[static_cast<std::size_t>(number - 1)], number)) {
      if (count++ % share != share / 2) continue;
      folder_.Lay();
      if (!Tear()) return tally_;
      ++tally_.faults;
      const Ended ended = folder_.Save(fault);
      CheckFiles(fault, ended);
      CheckNextSave(fault);
    }
  }
  return tally_;
}

bool FaultSweep::Tear() {
  for (std::size_t i = 0; i < calls_.size(); ++i) {
    if (calls_[i].kind != "write" ||
        calls_[i].path != folder_.path() + "/" + folder_.way().target) {
      continue;
    }
    folder_.Save(std::to_string(i + 1) + "=half");
    return !IsOld() && !IsNew();
  }
  return false;
}

Ended FaultSweep::Meet(const std::string& faults) {
  ++tally_.faults;
  folder_.Lay();
  const Ended ended = folder_.Save(faults);
  CheckFiles(faults, ended);
  CheckForeignFile(faults);
  if (ended.signal == 0) CheckTruth(faults, ended);
  CheckNextSave(faults);
  CheckForeignFile(faults);
  return ended;
}

bool FaultSweep::IsOld() const { return folder_.Content(folder_.way().target) == old_content_; }

bool FaultSweep::IsNew() const { return folder_.Content(folder_.way().target) == new_content_; }

bool FaultSweep::IsBackedUp() const {
  const auto names = folder_.Names();
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    return folder_.way().MayBackUp(name) && IsWholeCopy(folder_.Content(name));
  });
}

bool FaultSweep::IsWholeCopy(const std::optional<std::string>& content) const {
  return content == old_content_ || (content == new_content_ && folder_.way().backup.empty());
}

bool FaultSweep::MayBeTorn(const std::string& faults) const {
  const bool is_error = faults.find("error") < faults.size();
  const bool cannot_be_replaced =
      is_error && IsAnyOf(CallOf(faults).kind, {"chmod", "chown", "attribute", "rename"});
  const bool is_kept = IsBackedUp() || folder_.way().is_unprotected;
  return (folder_.way().in_place || cannot_be_replaced) && is_kept;
}

void FaultSweep::CheckFiles(const std::string& faults, const Ended& ended) {
  if (!IsOld() && !IsNew() && !MayBeTorn(faults)) {
    Tell(tally_.neither_whole, faults, "neither file is whole; " + Described(ended));
  }
  const std::string disorder = folder_.Disorder();
  if (!disorder.empty()) Tell(tally_.disorder, faults, disorder);
  const auto backup = folder_.Content(folder_.way().backup);
  if (backup && backup != Bytes(kStale) && backup != old_content_) {
    Tell(tally_.disorder, faults, "the backup is torn; " + Described(ended));
  }
}

// What had the backup's name before is nothing of the program's.
void FaultSweep::CheckForeignFile(const std::string& faults) {
  const auto& files = folder_.way().files;
  const auto before = files.find(folder_.way().backup);
  if (before == files.end()) return;
  const auto names = folder_.Names();
  const bool is_there = std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    return folder_.Content(name) == Bytes(before->second);
  });
  if (!is_there) Tell(tally_.disorder, faults, "a file that had the backup's name is gone");
}

void FaultSweep::CheckTruth(const std::string& faults, const Ended& ended) {
  if (ended.status == 0 && (!IsNew() || folder_.way().fails)) {
    Tell(tally_.untrue, faults, "success without the new file; " + Described(ended));
  }
  if (ended.status != 0 && ended.err.empty()) Tell(tally_.untrue, faults, "a silent failure");
  const bool is_told = ended.err.find(kTellsOfTorn) != std::string::npos ||
                       (IsNew() && ended.err.find(kTellsOfNew) != std::string::npos);
  if (ended.status != 0 && !IsOld() && !is_told) {
    Tell(tally_.untrue, faults, "failure without the old file; " + Described(ended));
  }
  // What is interrupted once, or takes less at a time than it was given, is no failure.
  const bool harmless =
      faults.ends_with("=error:" + std::to_string(EINTR)) || faults.ends_with("=short");
  if (harmless && ended.status != 0 && !folder_.way().fails) {
    Tell(tally_.untrue, faults, "a needless failure; " + Described(ended));
  }
}

void FaultSweep::CheckNextSave(const std::string& faults) {
  if (!IsOld() && !IsNew() && IsBackedUp()) {
    folder_.Save();
    if (!IsNew() && !IsBackedUp()) {
      Tell(tally_.not_saved_again, faults, "the next save destroyed the last whole copy");
      return;
    }
    // What a user does who is told that the file is no whole model.
    if (!IsNew()) WriteWholeFile(folder_.path() + '/' + folder_.way().target, *old_content_);
  }
  const Ended again = folder_.Save();
  const bool good =
      folder_.way().fails ? again.status != 0 && IsOld() : again.status == 0 && IsNew();
  if (!good) Tell(tally_.not_saved_again, faults, "not saved again; " + Described(again));
  auto names = SetOf(folder_.Names());
  if (!folder_.way().kept_backup.empty()) names.erase(folder_.way().kept_backup);
  if (names != names_after_) {
    Tell(tally_.not_saved_again, faults, "the next save leaves " + Listed(names));
  }
}

RecordedCall FaultSweep::CallOf(const std::string& faults) const {
  const auto number = static_cast<std::size_t>(std::stoi(faults));
  return number <= calls_.size() ? calls_[number - 1] : RecordedCall{.kind = "a later call"};
}

void FaultSweep::Tell(int& count, const std::string& faults, const std::string& what) {
  ++count;
  constexpr std::size_t kMostTold = 12;
  if (tally_.told.size() >= kMostTold) return;
  const RecordedCall call = CallOf(faults);
  tally_.told.push_back(faults + " (" + call.kind + ' ' + call.path + "): " + what);
}

}  // namespace quarvel::faults
