// A whole document on a transport that cannot write.
#include "src/api/whole_documents.h"

#include <gtest/gtest.h>

#include "tests/support/totals.h"
#include "tests/unit/fake_comm.h"

namespace quilon {
namespace {

TEST(WholeDocumentsTest, StepsGoOnBehindAFailedOneAndTheCallFails) {
  OnlineFDev device(0);
  Driver driver;
  driver.device = &device;
  auto transport = std::make_unique<FakeComm>();
  FakeComm* const comm = transport.get();
  device.Attach(std::move(transport));
  const auto document = std::make_unique<WholeDocument>();
  document->line_count = 1;
  const std::string totals = testing::TotalsReply(7) + testing::TotalsReply(7);

  comm->to_read = totals;
  EXPECT_EQ(PrintWholeDocument(&driver, *document), 1);
  const std::string all_steps = comm->calls;

  // The totals are right, but a step was not written.
  for (const auto failure :
       {FakeComm::Written::kNo, FakeComm::Written::kLost}) {
    comm->to_read = totals;
    comm->calls.clear();
    comm->write_result = failure;
    EXPECT_EQ(PrintWholeDocument(&driver, *document), 0);
    EXPECT_EQ(comm->calls, all_steps);
  }
}

}  // namespace
}  // namespace quilon
