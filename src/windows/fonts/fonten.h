#pragma once

#include <string>

#include "core/app_state.h"
#include "platform/controls/list_box.h"
#include "platform/controls/simple_controls.h"
#include "windows/platform_services.h"

namespace Morvane {

// The font chooser of the contents listing. OK leaves the choice in ElencoFontName, ElencoFontSize,
// ElencoFontBold and ElencoFontItalic, and in the printer. Both buttons hide it, so that it comes back as it
// was.
class fONTEN {
 public:
  fONTEN(AppState& state, Platform& platform);

  Form form;
  Label Label2{form, "Label2"};
  TextBox Text1{form, "Text1"};  // height, points
  Label Label1{form, "Label1"};  // how many fonts
  ListBox LstFonts{form, "LstFonts"};
  CommandButton cmdCancel{form, "cmdCancel"};
  CommandButton cmdOK{form, "cmdOK"};
  CheckBox Check3d1{form, "Check3d1"};  // italic
  CheckBox Check3d2{form, "Check3d2"};  // bold
  TextBox TxtFontPreview{form, "TxtFontPreview"};

 private:
  void Form_Load();
  void Form_Paint();
  void LstFonts_Click();
  void Check3d1_Click();
  void Check3d2_Click();
  void cmdOK_Click();
  void cmdCancel_Click() { form.Hide(); }

  void UsaInStampa();
  void ScegliArial();
  void SetWindowFont(const std::string& family, bool italic, bool bold);

  AppState& state_;
  Platform& platform_;
};

}  // namespace Morvane
