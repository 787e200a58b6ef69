// quarvel convert, quarvel simplify: a model read, perhaps simplified, and written.

#include "hosts/commands.h"

namespace quarvel::hosts {

int RunConvert(Session& session) {
  const auto& operands = session.arguments.operands;
  session.ReadToWrite(operands[0]);
  session.Write(operands[1], mps::FileLayout::kFree);
  return kGood;
}

int RunSimplify(Session& session) {
  const auto& operands = session.arguments.operands;
  session.ReadToWrite(operands[0]);
  session.Simplify();
  session.Write(operands[1], mps::FileLayout::kFixed);
  return kGood;
}

}  // namespace quarvel::hosts
