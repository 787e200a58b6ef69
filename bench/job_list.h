// What is measured: the generated files, and the jobs with what each is compared with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quarvel::bench {

// A generated file and what a reader must find in it.
struct ModelFile {
  std::string path;                  // with ".gz": packed by gzip
  std::vector<std::string> options;  // of the generator
  std::int64_t columns = 0;
  std::int64_t rows = 0;      // OBJ counted
  std::int64_t elements = 0;  // those of OBJ counted
};

enum class Peer { kCoinUtils, kGlpk, kOther };
inline constexpr std::size_t kPeers = 3;

// A command that a job is compared with: another library's, or another of our own.
struct Contender {
  Peer peer = Peer::kOther;
  std::string label;  // of kOther: what it is
  std::vector<std::string> command;
};

struct Job {
  std::string name;
  std::string size;                  // empty: that of the file
  std::vector<ModelFile> files;      // generated before it runs; the first one is that of the job
  std::vector<std::string> command;  // ours
  std::vector<Contender> contenders;
  // What is aimed at, 0 where nothing is: the ratio to the fastest contender, seconds, megabytes.
  double least_ratio = 0;
  double most_seconds = 0;
  double most_megabytes = 0;
  bool compares_user_time = false;  // the ratio, where that is long enough, instead of the clock's
  double least_cold_ratio = 0;      // with cold memory; 0: not measured so
  // The sizes that we and the other libraries must report, as far as they do; 0 where the job is
  // not checked.
  std::int64_t expected_columns = 0;
  std::int64_t expected_rows = 0;
  std::int64_t expected_elements = 0;
};

struct Plan {
  std::string programs;  // the folder of the job programs
  std::string folder;    // of the generated files
  bool small = false;    // a fiftieth of the size
  bool growth = false;   // the jobs at two and four times the size as well
};

std::vector<Job> ListJobs(const Plan& plan);

}  // namespace quarvel::bench
