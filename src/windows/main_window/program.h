#pragma once

#include <random>

#include "core/app_state.h"
#include "platform/controls/window_slot.h"
#include "render/cover_drawing.h"
#include "windows/contents/frm_preview.h"
#include "windows/fonts/fonten.h"
#include "windows/image_picker/frm_about.h"
#include "windows/layout_editor/dialog.h"
#include "windows/main_window/form1.h"
#include "windows/platform_services.h"
#include "windows/side_windows/form2.h"
#include "windows/side_windows/form3.h"
#include "windows/side_windows/form4.h"

namespace Morvane {

// One run of the program: the shared state and all windows. Two can live in one process.
class Program {
 public:
  // `decimalSeparator` of the user's locale, '.' or ','.
  Program(Platform& platform, char decimalSeparator);

  AppState state;
  CoverSlots slots;
  Form1 form1;

  // Loads and shows the main window; the caller then runs the event loop.
  void Start();

 private:
  WindowOpeners Openers();

  Platform& platform_;
  std::minstd_rand rnd_;  // never seeded: every run gives the same sequence
  WindowSlot<frmAbout> frmAbout_;
  WindowSlot<Dialog> dialog_;
  WindowSlot<FrmPreview> frmPreview_;
  WindowSlot<fONTEN> fONTEN_;
  WindowSlot<Form2> form2_;
  WindowSlot<Form3> form3_;
  WindowSlot<Form4> form4_;
};

}  // namespace Morvane
