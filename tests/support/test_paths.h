// Where the tests find their files and where they may write. All paths are UTF-8 texts with "/"
// between the folders, on Windows too, where a path of the machine that built the tests is reached
// through the drive Z: that Wine gives to it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quarvel {

// The project's root folder: QUARVEL_SOURCE of the environment, else the folder it was built from.
std::string SourceFolder();

// The folder of files that are made while configuring and building, under the paths of what they
// are made from.
std::string MadeFolder();

// The folder of real models: QUARVEL_DATA of the environment, else "shared/data" beside the
// project. Nothing when there is none; a folder that the environment names must exist.
std::optional<std::string> DataFolder();

// The whole file, byte for byte. Throws std::runtime_error, naming the file, when it cannot be
// read.
std::string ReadWholeFile(const std::string& path);

// The same of a file of the project, by its path from the root.
std::string ProjectFile(const std::string& path);

// Names are UTF-8 everywhere, which the standard library takes for another encoding on Windows.
std::filesystem::path ToPath(std::string_view utf8);

// Writes the bytes to a file, replacing it. Throws std::runtime_error when that fails.
void WriteWholeFile(const std::string& path, std::string_view bytes);

// A new, empty folder, deleted with all it holds when the object goes away. Its name holds a blank
// and a letter beyond ASCII, as a user's folder may.
class TemporaryFolder {
 public:
  // In memory where the system has such a folder: for tests that flush thousands of files.
  enum class Place { kUsual, kInMemory };
  explicit TemporaryFolder(Place place = Place::kUsual);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  // The path of `name` in the folder.
  std::string File(std::string_view name) const;

 private:
  std::string path_;
};

}  // namespace quarvel
