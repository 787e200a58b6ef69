// Whole pictures of `quarvel spy`.
#include <string>

#include <gtest/gtest.h>

#include "tests/support/kept_text.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

void ExpectPicture(const std::string& kept) {
  const HostFolder folder;
  const std::string model =
      folder.Write("model.mps", ProjectFile("tests/transcripts/models/sizes.mps"));
  ASSERT_EQ(RunQuarvel({"spy", model, "--output", folder.Path(kept)}).status, 0);
  ExpectKept(kept, folder.Read(kept));
}

TEST(KeptPictures, PngIsTheOneThatWasLookedAt) { ExpectPicture("sizes.png"); }
TEST(KeptPictures, SvgIsTheOneThatWasLookedAt) { ExpectPicture("sizes.svg"); }

}  // namespace
}  // namespace quarvel
