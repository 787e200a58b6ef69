// What `quarvel diff` prints of the differences of two models, as they are found.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "hosts/session.h"
#include "inspect/difference.h"

namespace quarvel::hosts {

// The two models, which were read from the operands of the command line, with what their files say.
struct DiffSides {
  Session& a;
  Session& b;
};

// Lists the first of each kind, and counts all.
class DiffReport {
 public:
  explicit DiffReport(const DiffSides& sides);
  virtual ~DiffReport() = default;
  DiffReport(const DiffReport&) = delete;
  DiffReport& operator=(const DiffReport&) = delete;

  virtual void Begin() = 0;
  void Add(const inspect::Difference& difference);
  virtual void End() = 0;

  // Notes left out.
  bool none() const { return differences_.none(); }

 protected:
  virtual void Print(const inspect::Difference& difference) = 0;
  const inspect::Differences& differences() const { return differences_; }
  // Those that were counted only.
  std::int64_t unlisted() const { return unlisted_; }
  const DiffSides& sides() const { return sides_; }
  const std::string& file_a() const { return sides_.a.arguments.operands[0]; }
  const std::string& file_b() const { return sides_.a.arguments.operands[1]; }
  std::ostream& out() { return sides_.a.streams.out; }

 private:
  DiffSides sides_;
  std::int64_t limit_;
  std::int64_t unlisted_ = 0;
  inspect::Differences differences_{0};
};

// In the form that the options choose: nothing, text or JSON.
std::unique_ptr<DiffReport> MakeDiffReport(const DiffSides& sides);

}  // namespace quarvel::hosts
