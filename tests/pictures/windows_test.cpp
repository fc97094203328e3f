#include "tests/hand/golden.h"
#include "tests/hand/session.h"

namespace Morvane {
namespace {

class Windows : public Session, public testing::WithParamInterface<bool> {
 protected:
  const bool filled = GetParam();

  void Take(const std::string& name, const Form& form) const {
    QWidget& window = Hand::See(form);
    window.grab();
    Hand::Settle();  // scroll bars come and go after the first painting
    const QImage seen = window.grab().toImage();
    const int percent = static_cast<int>(seen.devicePixelRatio() * 100);
    ExpectPicture(name + (filled ? "-" : "-empty-") + std::to_string(percent), seen);
  }

  void Visit(const std::string& window, const std::string& name, const Scene& fill) {
    Open(window, [&](Form& form) {
      if (filled) fill(form);
      Take(name, form);
    });
  }
};

TEST_P(Windows, LookAsTheyWereTaken) {
  filled ? Ship() : Copy("program_folder/morvane.ini", "C:\\Morvane");
  hand.Show(program.form1.form);
  if (filled) PickPhotos();
  Take("form1", program.form1.form);
  Visit("Dialog", "dialog", [](Form& form) {
    Choose(form, "List1", "CD - Etichetta disco");
    Press(form, "Command4");
    Press(form, "Command7");
  });
  Visit("FrmPreview", "frm_preview", [&](Form& contents) { ReadDisc(contents); });
  Visit("fONTEN", "fonten", [](Form& form) {
    Choose(form, "LstFonts", "Liberation Serif");
    Hand::Type(The(form, "Text1"), "12");
    Press(form, "Check3d1");
  });
  Visit("Form4", "form4", [](Form& form) {
    Hand::Type(The(form, "Text1"), "dodici canzoni della sera");
    Choose(form, "List1", "VIDEO");
  });
  Visit("Form2", "form2", [](Form&) { Hand::Key(Qt::Key_Backtab); });
  Open("Form3", [&](Form& form) {
    StandStill(form, 130);
    Take("form3", form);
  });
  // It comes back as it was left.
  In("frmAbout", ByTool("Back"), [&](Form& form) { Take("frm_about", form); });
}

INSTANTIATE_TEST_SUITE_P(EmptyAndFilled, Windows, testing::Bool());

}  // namespace
}  // namespace Morvane
