// An open that nobody answers. Linux only: Windows has its own patience.
#include "tests/support/busy_listener.h"
#include "tests/support/connections.h"

namespace quilon::testing {
namespace {

using std::chrono::seconds;

using UnansweredOpenTest = DriverTest;

TEST_F(UnansweredOpenTest, IsInertWhenThePeerAnswersLater) {
  const TimeLimit limit(seconds(60));
  BusyListener listener;
  const auto opening = TimeOf([&] { EXPECT_EQ(OpenTcp(listener.port()), 0); });
  EXPECT_GE(opening, seconds(9));
  EXPECT_LT(opening, seconds(13));
  // The system's next request to connect would be heard some seconds later.
  auto heard = listener.HearFor(seconds(8));
  ExpectInertConnection();
  EXPECT_EQ(heard.get(), "");
}

}  // namespace
}  // namespace quilon::testing
