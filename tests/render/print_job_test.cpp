#include "render/print_job.h"

#include <gtest/gtest.h>

#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

class PrintJob : public ::testing::Test {
 protected:
  PrintJob() {
    state.NumCopertine = 1;
    state.PaginaAlte = 297;
    state.SuSchermo = 1;
  }
  void Print(bool accepted, int copies) {
    machine.Device.Answers.push_back({accepted, copies});
    Stampa(state, slots, machine.ThePrinter);
  }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
};

TEST_F(PrintJob, CancelChangesNothing) {
  state.PaginaAlte = 210;
  Print(false, 3);
  EXPECT_TRUE(machine.Device.Jobs.empty());
  EXPECT_EQ(machine.ThePrinter.Orientation(), PageOrientation::Portrait);
  EXPECT_EQ(state.SuSchermo, 1);
}

TEST_F(PrintJob, EachCopyIsAJobOfItsOwnWithTheWholePage) {
  Print(true, 3);
  ASSERT_EQ(machine.Device.Jobs.size(), 3U);
  for (const auto& job : machine.Device.Jobs)
    EXPECT_EQ(job.page.size(), 1U);  // the footer, no outline by default
  EXPECT_TRUE(machine.Device.Dialogs.at(0).restricted);
}

TEST_F(PrintJob, ZeroCopiesPrintNothingButTurnThePrinter) {
  state.PaginaAlte = 210;
  Print(true, 0);
  EXPECT_TRUE(machine.Device.Jobs.empty());
  EXPECT_EQ(machine.ThePrinter.Orientation(), PageOrientation::Landscape);
  EXPECT_EQ(state.SuSchermo, 0);
}

TEST_F(PrintJob, PageHeightDecidesTheOrientation) {
  machine.ThePrinter.SetOrientation(PageOrientation::Landscape);
  Print(true, 1);
  EXPECT_EQ(machine.Device.Jobs.at(0).orientation, PageOrientation::Portrait);
}

TEST_F(PrintJob, FailingPrinterIsSilentAndThePageDoesNotPileUp) {
  machine.Device.Broken = true;
  Print(true, 2);
  machine.Device.Broken = false;
  Print(true, 1);
  ASSERT_EQ(machine.Device.Jobs.size(), 1U);
  EXPECT_EQ(machine.Device.Jobs[0].page.size(), 1U);
}

}  // namespace
}  // namespace Morvane
