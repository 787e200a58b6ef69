#include "text/shortest_text.h"

#include <charconv>
#include <string_view>

namespace quarvel::text {

void AppendShortestText(std::string& out, double value) {
  constexpr std::size_t kLongest = 32;
  char text[kLongest];
  const std::to_chars_result end = std::to_chars(text, text + kLongest, value);
  out.append(text, end.ptr);
}

void AppendShortestText(std::string& out, double value, std::size_t room) {
  const std::size_t begin = out.size();
  AppendShortestText(out, value);
  const std::size_t size = out.size() - begin;
  if (size != room + 1) return;
  const std::size_t zero = begin + (out[begin] == '-' ? 1 : 0);
  if (std::string_view(out).substr(zero).starts_with("0.")) out.erase(zero, 1);
}

}  // namespace quarvel::text
