#include "hosts/standard_output.h"

#include <new>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

// What the writers below were given; a Writer is a plain function.
struct Sink {
  std::string bytes;
  int calls = 0;
  WriteResult result = WriteResult::kWritten;
};
Sink sink;

WriteResult ToSink(std::string_view bytes) {
  ++sink.calls;
  if (sink.result == WriteResult::kWritten) sink.bytes += bytes;
  return sink.result;
}

TEST(OutputBuffer, GathersSmallPieces) {
  sink = {};
  OutputBuffer buffer(ToSink);
  std::ostream out(&buffer);
  for (int i = 0; i < 100; ++i) out << "line\n";
  EXPECT_EQ(sink.calls, 0);
  EXPECT_EQ(buffer.Finish(), WriteResult::kWritten);
  EXPECT_EQ(sink.calls, 1);
  EXPECT_EQ(sink.bytes.size(), 500u);
}

TEST(OutputBuffer, WritesMoreThanItHolds) {
  sink = {};
  OutputBuffer buffer(ToSink);
  std::ostream out(&buffer);
  std::string expected;
  for (int i = 0; i < 30000; ++i) {
    const std::string piece = std::to_string(i) + '\n';
    out << piece;
    expected += piece;
  }
  EXPECT_EQ(buffer.Finish(), WriteResult::kWritten);
  EXPECT_EQ(sink.bytes, expected);
}

TEST(OutputBuffer, StopsAtTheFirstFailureAndKeepsIt) {
  for (const WriteResult result : {WriteResult::kClosed, WriteResult::kFailed}) {
    sink = {};
    sink.result = result;
    OutputBuffer buffer(ToSink);
    std::ostream out(&buffer);
    out << "first" << std::flush;
    EXPECT_FALSE(out.good());
    out.clear();
    out << "second" << std::flush;
    EXPECT_EQ(buffer.Finish(), result);
    EXPECT_EQ(sink.calls, 1);
  }
}

TEST(OutputBuffer, TakesLackingMemoryForAFailure) {
  OutputBuffer buffer([](std::string_view) -> WriteResult { throw std::bad_alloc(); });
  std::ostream out(&buffer);
  out << "text" << std::flush;
  EXPECT_FALSE(out.good());
  EXPECT_EQ(buffer.Finish(), WriteResult::kFailed);
}

}  // namespace
}  // namespace quarvel::hosts
