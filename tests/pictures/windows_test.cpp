#include "platform/controls/simple_controls.h"
#include "session.h"

namespace Morvane {
namespace {

class Windows : public Session {
 protected:
  std::string state;

  Scene Take(const std::string& name) {
    return [this, name](Form& form) {
      const QImage seen = AtRest(form);
      const int percent = static_cast<int>(seen.devicePixelRatio() * 100);
      ExpectPicture(name + state + "-" + std::to_string(percent), seen);
    };
  }

  // The toolkit's layouts follow by events of their own.
  static QImage AtRest(const Form& form) {
    QImage before;
    QImage seen;
    do {
      before = seen;
      Hand::Settle();
      seen = Hand::See(form).grab().toImage();
    } while (seen != before);
    return seen;
  }

  // The scrolling text and the turning disc stay where they come to by themselves.
  static void Rest(const Form& form) {
    auto& scroll = dynamic_cast<Timer&>(The(form, "Timer1"));
    auto& turn = dynamic_cast<Timer&>(The(form, "TimerAnimazione"));
    scroll.SetRunning(false);
    turn.SetRunning(false);
    constexpr double kStripTop = 130;  // twips
    constexpr int kOnceAround = 10000;
    for (int n = 0; n < kOnceAround && The(form, "Picture5").Top() != kStripTop; ++n) scroll.Tick();
    for (int n = 0; n < kOnceAround && The(form, "Picture2").ImageKey() != "form3_animazione_1"; ++n)
      turn.Tick();
  }
};

TEST_F(Windows, LookAsTheyWereTakenWhenEmpty) {
  state = "-empty";
  std::filesystem::copy(MORVANE_SOURCE_DIR "/data/program_folder/morvane.ini", Native("C:\\Morvane"));
  hand.Show(program.form1.form);
  Take("form1")(program.form1.form);
  In("frmAbout", ByTool("Front"), Take("frm_about"));
  In("Dialog", ByTool("Settaogg"), Take("dialog"));
  In("FrmPreview", ByTool("LeggiCD"), [&](Form& contents) {
    Take("frm_preview")(contents);
    In("fONTEN", ByButton(contents, "Command4"), Take("fonten"));
  });
  In("Form4", ByTool("Cerca"), Take("form4"));
  In("Form2", ByEntry("Informazioni su PDF Creator"), Take("form2"));
  In("Form3", ByTool("Info"), [&](Form& form) {
    Rest(form);
    Take("form3")(form);
  });
}

TEST_F(Windows, LookAsTheyWereTakenWhenFilled) {
  Ship();
  hand.Show(program.form1.form);
  PickPhoto("Front", 0);
  PickPhoto("Back", 1, Take("frm_about"));
  Take("form1")(program.form1.form);
  In("Dialog", ByTool("Settaogg"), [&](Form& form) {
    Control& list = The(form, "List1");
    Hand::ClickRow(list, Hand::Row(list, "CD - Etichetta disco"));
    Hand::Press(The(form, "Command4"));
    Hand::Press(The(form, "Command7"));
    Take("dialog")(form);
  });
  In("FrmPreview", ByTool("LeggiCD"), [&](Form& contents) {
    ReadDisc(contents);
    Take("frm_preview")(contents);
    In("fONTEN", ByButton(contents, "Command4"), [&](Form& form) {
      Control& list = The(form, "LstFonts");
      Hand::ClickRow(list, Hand::Row(list, "Liberation Serif"));
      Hand::Type(The(form, "Text1"), "12");
      Hand::Press(The(form, "Check3d1"));
      Take("fonten")(form);
    });
  });
  In("Form4", ByTool("Cerca"), [&](Form& form) {
    Hand::Type(The(form, "Text1"), "dodici canzoni della sera");
    Hand::ClickRow(The(form, "List1"), 1);
    Take("form4")(form);
  });
  In("Form2", ByEntry("Informazioni su PDF Creator"), [&](Form& form) {
    Hand::Key(Qt::Key_Backtab);
    Take("form2")(form);
  });
  In("Form3", ByTool("Info"), [&](Form& form) {
    Rest(form);
    Take("form3")(form);
  });
}

}  // namespace
}  // namespace Morvane
