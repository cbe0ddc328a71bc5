#pragma once

#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "support/child.h"
#include "support/errors.h"
#include "support/marked_file.h"

namespace bwp::test {

using Names = std::vector<std::string>;

/// A file of which a chunk is marked, for a cut to replace it.
struct Place : MarkedFile {
  explicit Place(const std::string& temporaryUnder = kOnDisk) : MarkedFile(RealDisk(), temporaryUnder) {}
  std::string LastMessage() {
    std::string message;
    for (const std::string& line : Story()) {
      if (line.starts_with("tell ")) message = line.substr(5);
    }
    return message;
  }
};

/// What only root can try; ./test runs these apart where it is not root.
class AsRoot : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    ASSERT_EQ(geteuid(), 0U)
        << "only root can make what this test needs: a file of another user, or one that "
           "cannot be changed";
  }
};

/// The name stays with the old file, whole; the new content and the program go on under the new name.
inline void ExpectRecovery(Place& place, const std::string& name) {
  EXPECT_EQ(
      place.LastMessage(),
      "There is a SYSTEM ERROR cause by windows preview!  Your file has been renamed as '" + name + ".new'");
  EXPECT_EQ(place.state.OpenFile, name + ".new");
  EXPECT_EQ(place.state.FLen, 5);
  EXPECT_EQ(ReadFile(name), MarkedFile::kBytes);
  EXPECT_EQ(ReadFile(name + ".new"), MarkedFile::kRest);
  EXPECT_EQ(place.state.BufferData, MarkedFile::kMarked);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

}  // namespace bwp::test
