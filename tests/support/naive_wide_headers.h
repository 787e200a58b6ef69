// The order of a file's headers and what stands in them of small letters, for naive_wide_reader.h.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace quarvel::testing {

class NaiveHeaders {
 public:
  // What there is to say of a header, whose word begins the line; `raw` is the line as it stands.
  std::vector<std::string> Check(const std::string& word, const std::string& raw);

 private:
  std::string CheckOrder(const std::string& what);

  std::set<std::string> met_;
};

}  // namespace quarvel::testing
