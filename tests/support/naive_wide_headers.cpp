#include "tests/support/naive_wide_headers.h"

#include <algorithm>
#include <map>

namespace quarvel::testing {
namespace {

// Sections by their place, others by what they say.
const std::map<std::string, std::string> kKinds = {
    {"NAME", "NAME"},         {"ROWS", "1"},
    {"COLUMNS", "2"},         {"RHS", "3"},
    {"RANGES", "4"},          {"BOUNDS", "5"},
    {"OBJSENSE", "sense"},    {"OBJSENS", "sense"},
    {"OBJSENSEMAX", "sense"}, {"OBJSENSEMIN", "sense"},
    {"OBJNAME", "objective"}};

}  // namespace

std::vector<std::string> NaiveHeaders::Check(const std::string& word, const std::string& raw) {
  std::vector<std::string> ids;
  const std::string begin = raw.substr(0, word.size());
  if (std::any_of(begin.begin(), begin.end(), [](char c) { return c >= 'a' && c <= 'z'; })) {
    ids.emplace_back("A317");
  }
  const auto found = kKinds.find(word);
  if (found == kKinds.end()) return ids;
  const std::string order = CheckOrder(found->second);
  if (!order.empty()) ids.push_back(order);
  return ids;
}

std::string NaiveHeaders::CheckOrder(const std::string& what) {
  if (!met_.insert(what).second) return "W417";
  if (what.size() > 1) return {};
  for (const std::string& other : met_) {
    if (other.size() == 1 && other > what) return "W418";
  }
  return {};
}

}  // namespace quarvel::testing
