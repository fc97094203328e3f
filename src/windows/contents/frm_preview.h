#pragma once

#include <array>
#include <functional>
#include <string>

#include "core/app_state.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "windows/contents/listing.h"
#include "windows/platform_services.h"

namespace Morvane {

// What the contents window asks of other windows.
struct FrmPreviewHooks {
  std::function<void()> showFontChooser;       // returns when it is closed
  std::function<std::string()> pickerOkImage;  // artwork of the picker's OK; loads the picker if need be
};

// Contents of a disc as a jewel-case cover: reads a disc or folder, shows the sheet, prints it. Closing it
// loses list and title.
class FrmPreview {
 public:
  FrmPreview(AppState& state, Platform& platform, FrmPreviewHooks hooks);

  Form form;
  CommandButton Command2{form, "Command2"};  // read
  CommandButton Command1{form, "Command1"};  // close
  CommandButton Command3{form, "Command3"};  // print
  CommandButton Command4{form, "Command4"};  // font
  Frame Frame1{form, "Frame1"};
  // One for each number of columns, from 2 on.
  std::array<OptionButton, 6> Option1{{{Frame1, "Option1(0)"},
                                       {Frame1, "Option1(1)"},
                                       {Frame1, "Option1(2)"},
                                       {Frame1, "Option1(3)"},
                                       {Frame1, "Option1(4)"},
                                       {Frame1, "Option1(5)"}}};
  Label Label1{form, "Label1"};
  TextBox Text1{form, "Text1"};  // title
  CheckBox Check1{form, "Check1"};
  PictureBox Picture1;  // the sheet
  ImageBox Picture2{form, "Picture2"};
  Listing List1;  // no control: nobody ever sees it

  // Redraws the sheet. RuntimeError when something refuses it: the same one once until a redraw succeeds.
  void AggiornaAnteprima();

 private:
  void Connect();

  // Also the routine with which the handlers restore control states and geometry.
  void Form_Load();
  void Form_Activate();
  void Form_Resize();
  void Command1_Click() { form.UnloadForm(); }
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void Option1_Click(int index);
  void Label1_Click() { Command1_Click(); }
  void Text1_Change() { Restore(); }
  void Text1_LostFocus() { Restore(); }
  void Check1_Click() { Restore(); }
  void Picture2_Click();
  void Restore();

  AppState& state_;
  Platform& platform_;
  FrmPreviewHooks hooks_;
  std::string redrawFailure_;  // told last
};

}  // namespace Morvane
