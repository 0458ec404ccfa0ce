// The tests keep out of the user's own data: every start of the program registers its file types there.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/scratchDirectory.h"

namespace brasquelin {
namespace {

class OwnHome : public testing::Environment {
  public:
    void SetUp() override {
        // Below a file nothing can be written, so no start leaves a process behind that updates databases.
        const std::string file = directory_.write("file", "");
        setenv("HOME", utf8(directory_.path()).c_str(), 1);
        setenv("XDG_DATA_HOME", (file + "/data").c_str(), 1);
    }

  private:
    ScratchDirectory directory_;
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new OwnHome);

}  // namespace
}  // namespace brasquelin
