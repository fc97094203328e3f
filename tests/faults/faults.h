#pragma once

#include <array>
#include <functional>
#include <string>

#include "tests/support/test_machine.h"

namespace Morvane {

// Counts what the program asks of a machine and lets chosen calls fail.
class Faults {
 public:
  static constexpr const char* kText = "Guasto di prova";

  int FirstToFail = 0;   // counted from 1; 0: none
  bool Lasting = false;  // every later call fails, too
  std::function<std::string()> TopWindow;

  int Calls() const { return calls_; }
  // The first call that failed, as "Name C:\\a.jpg @frmAbout"; empty when none did.
  const std::string& Failed() const { return failed_; }

  void Watch(TestMachine& machine) {
    machine.Files->BeforeCall = [this](const char* call, const std::string& path) {
      constexpr std::array kNumbers = {ErrorNumber::PermissionDenied, ErrorNumber::DiskNotReady,
                                       ErrorNumber::PathFileAccess};
      Call(call + (" " + path), kNumbers[static_cast<std::size_t>(FirstToFail) % kNumbers.size()]);
    };
    for (Hooked* device : std::initializer_list<Hooked*>{&machine.Fonts, &machine.Device, &machine.Pictures,
                                                         &machine.Launches, &machine.Http}) {
      device->BeforeCall = [this](const std::string& call, ErrorNumber number) { Call(call, number); };
    }
  }

 private:
  void Call(const std::string& what, ErrorNumber number) {
    ++calls_;
    const bool fails = Lasting ? calls_ >= FirstToFail : calls_ == FirstToFail;
    if (FirstToFail == 0 || !fails) return;
    if (failed_.empty()) failed_ = what + " @" + TopWindow();
    throw RuntimeError(number, kText);
  }

  int calls_ = 0;
  std::string failed_;
};

}  // namespace Morvane
