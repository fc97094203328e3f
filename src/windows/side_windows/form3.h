#pragma once

#include <string>
#include <vector>

#include "core/app_state.h"
#include "platform/controls/form.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/timer.h"
#include "windows/platform_services.h"

namespace Morvane {

// The information window: name, version, links, and a text file of the program's folder that scrolls upwards
// in a pane like the credits of a film.
class Form3 {
 public:
  Form3(AppState& state, Platform& platform);

  Form form;
  Frame Frame1{form, "Frame1"};
  Label Label2{Frame1, "Label2"};
  Label Label3{Frame1, "Label3"};
  Label lblVersion{Frame1, "lblVersion"};
  ImageBox Picture2{Frame1, "Picture2"};  // turning disc
  Label Label1_1{Frame1, "Label1(1)"};
  ImageBox Picture6{Frame1, "Picture6"};
  ImageBox Picture7{Frame1, "Picture7"};
  Timer Timer1{form, "Timer1"};  // moves the strip
  Timer TimerAnimazione{form, "TimerAnimazione"};
  Frame Frame2{form, "Frame2"};
  PictureBox Picture4;  // the pane
  PictureBox Picture5;  // the strip
  ImageBox Picture1{Frame2, "Picture1"};
  Label Label1_2{Frame2, "Label1(2)"};
  CommandButton Command3d1{Frame2, "Command3d1"};
  ImageBox Picture3{Frame2, "Picture3"};

  // Composes the strip from the text file; whatever fails is left out.
  void inizia();

 private:
  void Form_Load();
  void Form_Unload();
  void Timer1_Tick();
  void TimerAnimazione_Tick();
  // Left button faster, any other slower: 1 to 101 milliseconds a step.
  void Picture5_MouseDown(MouseButton button);
  void Picture3_MouseMove();
  void Picture3_Click();
  void Picture6_Click();
  void Picture7_Click();
  void Command3d1_Click() { form.UnloadForm(); }
  void Frame2_Click() { Command3d1_Click(); }

  void DressLabels();
  void ConnectEvents();
  void StripToStart();
  std::vector<std::string> TextLines() const;
  void FitFont(const std::string& line);
  void RuleLines();
  void PrintCentred(const std::string& line);
  void ResetPointer();

  AppState& state_;
  Platform& platform_;
  int frame_ = 0;  // of the animation, from 0
};

}  // namespace Morvane
