#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "core/layout_files.h"
#include "platform/controls/bars.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "render/cover_drawing.h"
#include "windows/platform_services.h"

namespace Morvane {

// The windows that the main window's commands open; each returns when its window is closed.
struct WindowOpeners {
  std::function<void()> Dialog;      // layout editor
  std::function<void()> frmAbout;    // image picker
  std::function<void()> FrmPreview;  // contents of a disc
  std::function<void()> Form3;       // information
  std::function<void()> Form4;       // online cover search
  std::function<void()> Form2;       // PDF tool
};

// The main window: the page with its picture slots, and all commands.
class Form1 {
 public:
  Form1(AppState& state, Platform& platform, CoverSlots& slots, WindowOpeners openers);

  Form form;
  Toolbar Toolbar1{form, "Toolbar1"};
  PictureBox Picture1;  // the page
  ImageBox Picture2{form, "Picture2"};
  ImageBox Picture7{form, "Picture7"};
  Toolbar StatusBar1{form, "StatusBar1"};
  CheckBox Check1{form, "Check1"};           // outline switch, not shown
  CommandButton Command1{form, "Command1"};  // "Scegli", not shown

  void Form_Load();
  void Form_Activate();
  void Form_Resize();
  void Form_Unload();

  void PrendiCOP();
  void Ridisegna();
  // Lets the user pick the picture of a slot. RuntimeError InvalidPicture and the like; the slot then keeps
  // what it held.
  void Imma(int indi);

  void Picture1_MouseDown(MouseButton button, double x, double y);
  bool Picture1_DragOver(double x, double y);
  void Picture1_DragLeave();
  void Picture1_Drop(const std::vector<DroppedPicture>& pictures, double x, double y);
  void Check1_Click();
  void Command1_Click();
  void Toolbar1_ButtonMenuClick(std::int16_t spessoreBordo);
  void Picture2_Click();
  void Picture7_Click();
  void Menuhelp_Click();

  void Stampa();
  void Esci();
  void LanciaLindorel();
  void Apri(const std::string& target);  // an address, or a file of the program's folder

 private:
  void BuildMenuBar();
  void BuildBars();
  void ControllaVersione();
  void PlaceBars();
  void CambiaContorno();
  int LastCoverAt(double x, double y) const;
  void Mark(int cover);
  PicturePtr Load(const DroppedPicture& dropped) const;

  AppState& state_;
  Platform& platform_;
  CoverSlots& slots_;
  WindowOpeners openers_;
  LayoutHandles handles_;
  int marked_ = 0;  // the cover that a dragged picture would fall into; 0 for none
  std::optional<std::string> unreadableLayout_;  // whose reading failed last, so that it is told once
};

}  // namespace Morvane
