// What a file has beside its contents, as far as another file can be given the same.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quarvel::platform {

struct FileTraits {
  struct Attribute {
    std::string name;
    std::string value;
  };

  // A device, a pipe or a folder is no plain file, and has nothing of what follows.
  bool is_plain = false;
  // The number of names that lead to it.
  std::uint64_t links = 1;
  // Its mode; on Windows its attributes.
  std::uint32_t mode = 0;
  std::int64_t time = 0;  // when its contents were written last, as FileStamp has it
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  // Its access control list and the user's own attributes; on Windows one security descriptor
  // without a name.
  std::vector<Attribute> attributes;
};

}  // namespace quarvel::platform
