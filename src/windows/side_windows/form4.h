#pragma once

#include "platform/controls/form.h"
#include "platform/controls/list_box.h"
#include "platform/controls/simple_controls.h"
#include "windows/platform_services.h"

namespace Morvane {

// Search for covers on the web: hands a term and a kind of cover to the system's browser.
class Form4 {
 public:
  explicit Form4(Platform& platform);

  Form form;
  ImageBox Picture1{form, "Picture1"};
  Label Label2{form, "Label2"};
  Label Label1{form, "Label1"};
  TextBox Text1{form, "Text1"};              // term
  ListBox List1{form, "List1"};              // kinds of cover
  CommandButton Command1{form, "Command1"};  // "OK"
  CommandButton Command2{form, "Command2"};  // "Annulla"

 private:
  void Form_Load();
  void Command1_Click();
  void Command2_Click() { form.UnloadForm(); }

  Platform& platform_;
};

}  // namespace Morvane
