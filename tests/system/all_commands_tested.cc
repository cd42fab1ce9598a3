// Fails, after the last test of this program, for each command that none of
// them has run. How a test is counted stands in covered_codes.h.
#include <gtest/gtest.h>

#include "tests/support/covered_codes.h"
#include "tests/support/documented_codes.h"

namespace quilon::testing {
namespace {

class AllCommandsTested : public ::testing::Environment {
 public:
  void TearDown() override {
    const auto& program = *::testing::UnitTest::GetInstance();
    if (program.test_to_run_count() < program.total_test_count()) {
      return;  // only some were asked for
    }
    for (const DocumentedCode& code : DocumentedCodes()) {
      EXPECT_TRUE(IsCovered(code.code, code.sends))
          << code.name << " has no test";
    }
  }
};

// GoogleTest deletes it.
[[maybe_unused]] ::testing::Environment* const kAllCommandsTested =
    ::testing::AddGlobalTestEnvironment(new AllCommandsTested);

}  // namespace
}  // namespace quilon::testing
