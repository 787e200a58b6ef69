#include "tests/faults/recorded_calls.h"

#include <fstream>
#include <sstream>

namespace quarvel::faults {

std::vector<RecordedCall> ReadRecord(const std::string& path) {
  std::vector<RecordedCall> calls;
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    RecordedCall call;
    std::size_t size = 0;
    std::getline(words, call.kind, '\t');
    words >> call.result >> call.descriptor >> call.number >> call.changes >> call.needs_room >>
        size;
    words.ignore(1);
    std::getline(words, call.path, '\t');
    std::getline(words, call.new_path);
    call.bytes.resize(size);
    file.read(call.bytes.data(), static_cast<std::streamsize>(size));
    calls.push_back(std::move(call));
  }
  return calls;
}

}  // namespace quarvel::faults
