// Where a command writes its model to, as its operand says: a file, packed or not, or standard output.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "hosts/packing/packing.h"
#include "hosts/streams.h"
#include "platform/byte_sink.h"

namespace quarvel::hosts {

inline constexpr std::string_view kStandardOutput = "-";

struct OutputTarget {
  std::string path;  // in place: that which was read from
  bool is_standard_output = false;
  bool in_place = false;  // it is the file that the model was read from, by whatever name
  const Packing* packing = nullptr;  // null: none
};

// `own` is the file that the model was read from, empty for none. What is packed is known by its suffix; a
// file that is written in place under a name without one stays packed as it is.
OutputTarget TargetOf(const std::string& path, const std::string& own);

// Standard output as it is, but on a terminal, which nothing in a model may steer.
class StandardOutputSink : public platform::ByteSink {
 public:
  // Writing raises a failure as soon as `is_stopped` says so: whoever reads may take any time.
  StandardOutputSink(const Streams& streams, std::function<bool()> is_stopped)
      : streams_(streams), is_stopped_(std::move(is_stopped)) {}
  void Write(std::string_view bytes) override;

 private:
  const Streams& streams_;
  std::function<bool()> is_stopped_;
};

}  // namespace quarvel::hosts
