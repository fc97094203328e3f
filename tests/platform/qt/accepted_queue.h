#pragma once

#include <functional>
#include <string>

#include "platform/drawing/printer_device.h"

namespace Morvane {

// A real queue, with a user who accepts the print dialog; something may go wrong meanwhile.
class AcceptedQueue : public PrinterDevice {
 public:
  explicit AcceptedQueue(PrinterDevice& device) : device_(device) {}

  int Copies = 1;
  std::function<void()> Meanwhile = [] {};

  SheetSize PortraitSheet() override { return device_.PortraitSheet(); }
  PrintDialogAnswer ShowDialog(const PrintDialogRequest&, PageOrientation&) override {
    Meanwhile();
    return {.accepted = true, .copies = Copies};
  }
  void SendPage(const DrawingList& page, PageOrientation orientation, const std::string& title) override {
    device_.SendPage(page, orientation, title);
  }

 private:
  PrinterDevice& device_;
};

}  // namespace Morvane
