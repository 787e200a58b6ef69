// Runs the program on injected streams, and gives tests a folder with models to run it on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/screen.h"
#include "tests/support/test_paths.h"

namespace quarvel {

struct Outcome {
  int status = 0;
  std::string out;
  std::string err;
};

// `input` is standard input.
Outcome RunQuarvel(const std::vector<std::string>& words, std::string_view input = "");
// The same with standard output on that screen.
Outcome RunQuarvelOn(const hosts::Screen& screen, const std::vector<std::string>& words,
                     std::string_view input = "");

// A folder of its own for a test. In expected texts "@" stands for that folder and a "/".
class HostFolder {
 public:
  using Place = TemporaryFolder::Place;
  explicit HostFolder(Place place = Place::kUsual) : folder_(place) {}

  // Copies an example to the folder and gives its path there.
  std::string Example(std::string_view name) const;
  // Writes a file to the folder and gives its path.
  std::string Write(std::string_view name, std::string_view bytes) const;
  std::string Path(std::string_view name) const { return folder_.File(name); }
  // The bytes of a file in the folder.
  std::string Read(std::string_view name) const { return ReadWholeFile(Path(name)); }
  bool Has(std::string_view name) const;
  // `text` with the folder's name in the place of each "@".
  std::string Expand(std::string_view text) const;

 private:
  TemporaryFolder folder_;
};

// Two rows, two columns, three elements; R2 has a single element.
inline constexpr std::string_view kSmallModel =
    "* small\nNAME SMALL\nROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 2\n Y R1 -3.5\nRHS\n RHS R2 8\n"
    "BOUNDS\n UP BOUND X 10\nENDATA\n";

// As kSmallModel, with an equality that contradicts the bounds of X.
inline constexpr std::string_view kConflictModel =
    "NAME CONFLICT\nROWS\n N R1\n E R2\nCOLUMNS\n X R1 1 R2 2\n Y R1 -3.5\nRHS\n RHS R2 8\n"
    "BOUNDS\n UP BOUND X 3\nENDATA\n";

}  // namespace quarvel
