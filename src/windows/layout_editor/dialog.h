#pragma once

#include <cstdint>
#include <deque>
#include <random>
#include <string>

#include "core/app_state.h"
#include "core/layout_reader.h"
#include "platform/controls/list_box.h"
#include "platform/controls/picture_box.h"
#include "platform/controls/simple_controls.h"
#include "render/cover_drawing.h"
#include "windows/platform_services.h"

namespace Morvane {

struct MeasureRow;

// The layout editor. It works on the live cover tables; what it leaves to the main window is NomeLayout,
// which that reads from disk again, so that whatever was not saved is gone. `slots` and `rnd` are the
// program's. Handlers let a RuntimeError pass to the program's guard, with list, file and state in agreement.
class Dialog : private LayoutObserver {
 public:
  Dialog(AppState& state, Platform& platform, const CoverSlots& slots, std::minstd_rand& rnd);

  Form form;

  Label Label7{form, "Label7"};
  ListBox List1{form, "List1"};
  Label Label8{form, "Label8"};
  PictureBox Picture1;
  ImageBox Picture2{form, "Picture2"};

  CommandButton OKButton{form, "OKButton"};
  CommandButton CancelButton{form, "CancelButton"};
  CommandButton Command15{form, "Command15"};  // help
  CommandButton Command1{form, "Command1"};    // delete
  CommandButton Command14{form, "Command14"};  // rename
  CommandButton Command2{form, "Command2"};    // new
  CommandButton Command5{form, "Command5"};    // save
  CommandButton Command16{form, "Command16"};  // save as

  Label Label9{form, "Label9"};
  Label Label1{form, "Label1"};
  OptionButton Option1{form, "Option1"};  // portrait
  OptionButton Option2{form, "Option2"};  // landscape
  Label Label4{form, "Label4"};           // cover on show, "Ogg.07"; the layout writer reads it
  CommandButton Command3{form, "Command3"};
  CommandButton Command4{form, "Command4"};
  CommandButton Command17{form, "Command17"};
  CommandButton Command18{form, "Command18"};
  Frame Frame1{form, "Frame1"};
  OptionButton Option3{Frame1, "Option3"};  // rectangle
  OptionButton Option4{Frame1, "Option4"};  // ellipse

  Label Label2{form, "Label2"};  // width
  TextBox Text1{form, "Text1"};
  CommandButton Command6{form, "Command6"};
  CommandButton Command7{form, "Command7"};
  Label Label3{form, "Label3"};  // height
  TextBox Text2{form, "Text2"};
  CommandButton Command8{form, "Command8"};
  CommandButton Command9{form, "Command9"};
  Label Label5{form, "Label5"};  // left
  TextBox Text4{form, "Text4"};
  CommandButton Command10{form, "Command10"};
  CommandButton Command11{form, "Command11"};
  Label Label6{form, "Label6"};  // top
  TextBox Text5{form, "Text5"};
  CommandButton Command12{form, "Command12"};
  CommandButton Command13{form, "Command13"};

  // Shape1 to Shape4 and Line1 to Line14: the ruling of the edit table.
  std::deque<Ruling> Rulings;

 private:
  void ConnectList();
  void ConnectFiles();
  void ConnectEditing();
  void DressEditTable();

  // Opening, list, closing.
  void Form_Load();
  void FillList();
  void Form_Unload();
  void List1_Click();
  void OKButton_Click();
  void List1_DblClick() { OKButton_Click(); }
  void List1_KeyDown(int keyCode);
  void CancelButton_Click();
  void settacop(const std::string& a);
  int FindEntry(const std::string& name) const;
  void AskAboutChanges(const std::string& question);
  void LoadSelected();
  void ShowOrientation();

  // What the file's reader tells while it reads.
  void PaginaRead() override;
  void CopertinaRead(int n) override;

  // Editing.
  void Option1_Click() { ChooseOrientation(0); }
  void Option2_Click() { ChooseOrientation(1); }
  void Option3_Click() { ChooseShape(0); }
  void Option4_Click() { ChooseShape(1); }
  void ChooseOrientation(std::int16_t orientation);
  void ChooseShape(double shape);
  void StepDown(const MeasureRow& row);
  void StepUp(const MeasureRow& row);
  void TakeStep(const MeasureRow& row, double mm);
  void Text_LostFocus(const MeasureRow& row);
  void Text_KeyDown(const MeasureRow& row, int keyCode);
  void Command17_Click();
  void Command18_Click();
  void Command3_Click();
  void Command4_Click();
  void Command15_Click();
  double StoredValue(const MeasureRow& row) const;
  double& CellOnShow(const MeasureRow& row);
  std::string StoredText(const MeasureRow& row);
  void MarkModified();

  // Files.
  void Command5_Click();
  void Command16_Click();
  void Command2_Click();
  void Command14_Click();
  void Command1_Click();
  bool TakeFileName(const std::string& prompt, const std::string& defaultName);
  std::string PathOf(const std::string& name) const;

  // Preview.
  void ripitta();
  void RiOggetta();
  void ShowCover(int n);
  void Picture1_MouseDown(MouseButton button, double x, double y);
  void Picture1_MouseMove(double x, double y);

  AppState& state_;
  Platform& platform_;
  const CoverSlots& slots_;
  std::minstd_rand& rnd_;
  std::string CartellaApp_;  // the program's folder with a trailing backslash
};

}  // namespace Morvane
