#include "windows/main_window/program.h"

namespace Morvane {

namespace {

AppState NewState(char decimalSeparator) {
  AppState state;
  state.decimalSeparator = decimalSeparator;
  return state;
}

}  // namespace

Program::Program(Platform& platform, char decimalSeparator)
    : state(NewState(decimalSeparator)),
      form1(state, platform, slots, Openers()),
      platform_(platform),
      // The picker and the contents window load each other, hidden: the tree asks for the contents window's
      // handle, the contents window for the picture of the picker's OK button.
      frmAbout_(
          [this] { return std::make_unique<frmAbout>(state, platform_, [this] { frmPreview_.Get(); }); }),
      dialog_([this] { return std::make_unique<Dialog>(state, platform_, slots, rnd_); }),
      frmPreview_([this] {
        return std::make_unique<FrmPreview>(
            state, platform_,
            FrmPreviewHooks{.showFontChooser = [this] { fONTEN_.ShowModal(platform_.windows); },
                            .pickerOkImage = [this] { return frmAbout_.Get().Command1.ImageKey(); }});
      }),
      fONTEN_([this] { return std::make_unique<fONTEN>(state, platform_); }),
      form2_([this] { return std::make_unique<Form2>(platform_); }),
      form3_([this] { return std::make_unique<Form3>(state, platform_); }),
      form4_([this] { return std::make_unique<Form4>(platform_); }) {}

WindowOpeners Program::Openers() {
  return {.Dialog = [this] { dialog_.ShowModal(platform_.windows); },
          .frmAbout = [this] { frmAbout_.ShowModal(platform_.windows); },
          .FrmPreview = [this] { frmPreview_.ShowModal(platform_.windows); },
          .Form3 = [this] { form3_.ShowModal(platform_.windows); },
          .Form4 = [this] { form4_.ShowModal(platform_.windows); },
          .Form2 = [this] { form2_.ShowModal(platform_.windows); }};
}

void Program::Start() {
  platform_.windows.ShowMain(form1.form);
}

}  // namespace Morvane
