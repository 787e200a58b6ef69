#include "tests/faults/simulated_disk.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include <fcntl.h>

namespace quarvel::faults {
namespace {

// What changes nothing that outlives a loss of power, or nothing that a content depends on.
bool IsIndifferent(const std::string& kind) {
  static const std::set<std::string> kinds = {"read",  "stat",  "list",      "lock",
                                              "chmod", "chown", "attribute", "times"};
  return kinds.contains(kind);
}

}  // namespace

void SimulatedDisk::Put(const std::string& path, const std::string& content) {
  names_on_disk_[path] = files_.size();
  names_seen_[path] = files_.size();
  files_.push_back({content, {}});
}

void SimulatedDisk::PutName(const std::string& path, const std::string& file) {
  names_on_disk_[path] = names_on_disk_.at(file);
  names_seen_[path] = names_seen_.at(file);
}

void SimulatedDisk::Make(std::string& content, const Change& change) {
  if (change.length) {
    content.resize(static_cast<std::size_t>(*change.length));
    return;
  }
  const auto place = static_cast<std::size_t>(change.place);
  content.resize(std::max(content.size(), place + change.bytes.size()));
  content.replace(place, change.bytes.size(), change.bytes);
}

void SimulatedDisk::Make(Names& names, const NameChange& change) {
  if (!change.old_path.empty()) names.erase(change.old_path);
  if (change.file) {
    names[change.path] = *change.file;
  } else {
    names.erase(change.path);
  }
}

std::string SimulatedDisk::ContentOf(const File& file, Part part) {
  std::string content = file.on_disk;
  const std::size_t count = file.waiting.size();
  for (std::size_t i = 0; i < count && part != Part::kNothing; ++i) {
    Change change = file.waiting[i];
    if (part == Part::kFirst && i > count / 2) break;
    if (part == Part::kFirst && i == count / 2) change.bytes.resize(change.bytes.size() / 2);
    if (part == Part::kLast && i + 1 < count) continue;
    if (part == Part::kLength) change.bytes.assign(change.bytes.size(), '\0');
    Make(content, change);
  }
  return content;
}

const std::vector<SimulatedDisk::Part>& SimulatedDisk::PartsOf(const File& file) {
  static const std::vector<Part> all = {Part::kNothing, Part::kAll, Part::kFirst, Part::kLast,
                                        Part::kLength};
  static const std::vector<Part> one = {Part::kAll};
  return file.waiting.empty() ? one : all;
}

void SimulatedDisk::ChangeName(NameChange change) {
  Make(names_seen_, change);
  waiting_names_.push_back(std::move(change));
}

void SimulatedDisk::Open(const RecordedCall& call) {
  const int descriptor = static_cast<int>(call.result);
  open_files_.erase(descriptor);
  auto name = names_seen_.find(call.path);
  if (name == names_seen_.end()) {
    if ((call.number & O_CREAT) == 0) return;  // a folder
    files_.emplace_back();
    ChangeName({call.path, files_.size() - 1, ""});
    name = names_seen_.find(call.path);
  }
  open_files_[descriptor] = name->second;
  if ((call.number & O_TRUNC) != 0) files_[name->second].waiting.push_back({0, "", 0});
}

void SimulatedDisk::Flush(int descriptor) {
  const auto open = open_files_.find(descriptor);
  if (open != open_files_.end()) {
    File& file = files_[open->second];
    file = {ContentOf(file, Part::kAll), {}};
    return;
  }
  names_on_disk_ = names_seen_;
  waiting_names_.clear();
}

void SimulatedDisk::Apply(const RecordedCall& call) {
  const bool reserves = call.kind == "allocate" && (call.number & FALLOC_FL_KEEP_SIZE) != 0;
  if (call.result < 0 || reserves || IsIndifferent(call.kind)) return;
  if (call.kind == "open") {
    Open(call);
  } else if (call.kind == "write") {
    files_[open_files_.at(call.descriptor)].waiting.push_back({call.number, call.bytes, {}});
  } else if (call.kind == "truncate") {
    files_[open_files_.at(call.descriptor)].waiting.push_back({0, "", call.number});
  } else if (call.kind == "sync") {
    Flush(call.descriptor);
  } else if (call.kind == "close") {
    open_files_.erase(call.descriptor);
  } else if (call.kind == "rename") {
    ChangeName({call.new_path, names_seen_.at(call.path), call.path});
  } else if (call.kind == "link") {
    ChangeName({call.new_path, names_seen_.at(call.path), ""});
  } else if (call.kind == "unlink") {
    ChangeName({call.path, std::nullopt, ""});
  } else {
    throw std::runtime_error("no disk is simulated for " + call.kind);
  }
}

void SimulatedDisk::ForEachContent(Names::const_iterator at, const Names& names, DiskState& state,
                                   const std::function<void(const DiskState&)>& look) const {
  if (at == names.end()) {
    look(state);
    return;
  }
  const File& file = files_[at->second];
  for (const Part part : PartsOf(file)) {
    state[at->first] = ContentOf(file, part);
    ForEachContent(std::next(at), names, state, look);
  }
}

void SimulatedDisk::ForEachState(const std::function<void(const DiskState&)>& look) const {
  Names names = names_on_disk_;
  for (std::size_t count = 0;; ++count) {
    DiskState state;
    ForEachContent(names.begin(), names, state, look);
    if (count == waiting_names_.size()) return;
    Make(names, waiting_names_[count]);
  }
}

DiskState SimulatedDisk::Seen() const {
  DiskState state;
  for (const auto& [path, file] : names_seen_) state[path] = ContentOf(files_[file], Part::kAll);
  return state;
}

}  // namespace quarvel::faults
