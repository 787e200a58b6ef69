#include "hosts/session.h"

#include <optional>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

TEST(Session, WritesNothingAfterAQuestionThatHasNoAnswerHere) {
  const HostFolder folder;
  std::ostringstream out;
  std::ostringstream err;
  const Streams streams{[] { return std::optional<std::string>(); }, out, err, false};
  const Arguments arguments;
  Session session(arguments, streams);
  session.Read(folder.Write("a.mps", kSmallModel));
  session.StopIfUnanswered();
  session.model().desktop().MsgBox(Question(platform::BoxKind::kConfirmDeletion, "Delete\r\nit?"));
  try {
    session.Write(folder.Path("b.mps"), mps::FileLayout::kFixed);
    ADD_FAILURE() << "written";
  } catch (const CommandError& error) {
    EXPECT_EQ(error.status(), kProblem);
    EXPECT_EQ(error.text(), "there is no answer on the command line to the question: Delete it?");
  }
  EXPECT_FALSE(folder.Has("b.mps"));
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace quarvel::hosts
