#pragma once

#include "platform/controls/form.h"
#include "platform/controls/simple_controls.h"
#include "windows/platform_services.h"

namespace Morvane {

// What PDF Creator is, and the way to its project page.
class Form2 {
 public:
  explicit Form2(Platform& platform);

  Form form;
  Label Label1{form, "Label1"};  // link
  CommandButton Command1{form, "Command1"};
  TextBox Text1{form, "Text1"};

 private:
  void Form_Load();
  void Label1_Click();
  void Command1_Click() { form.UnloadForm(); }

  Platform& platform_;
};

}  // namespace Morvane
