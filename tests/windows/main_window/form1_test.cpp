#include "windows/main_window/form1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <deque>
#include <iterator>
#include <map>
#include <utility>

#include "core/web_addresses.h"
#include "tests/hand/hand.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

using Texts = std::vector<std::string>;

// The main window with its neighbours played: each opened window, launch, box and end is one line of the log.
class MainWindow : public ::testing::Test {
 protected:
  void Start() { hand.Show(window.form); }

  WindowOpeners Openers() {
    const auto opener = [this](const char* name) { return [this, name] { Opened(name); }; };
    WindowOpeners openers{opener("Dialog"), nullptr,         opener("FrmPreview"),
                          opener("Form3"),  opener("Form4"), opener("Form2")};
    openers.Dialog = [this] {
      Opened("Dialog");
      state.NomeLayout = nextLayout;
    };
    openers.frmAbout = [this] {
      Opened("frmAbout");
      state.ImmagineScelta = picks.empty() ? "" : picks.front();
      if (!picks.empty()) picks.pop_front();
    };
    return openers;
  }

  // As every modal window does: the main one is activated again by a queued event.
  void Opened(const std::string& name) {
    shown.push_back(name);
    hand.windows.Post([this] { window.form.PerformActivate(); });
  }

  // By its caption.
  void Choose(const std::string& entry) {
    for (QAction* const action : Hand::See(window.form).findChildren<QAction*>()) {
      if (action->text().toStdString() != entry) continue;
      action->trigger();
      return Hand::Settle();
    }
    FAIL() << "no entry " << entry;
  }

  QToolButton& Tool(const std::string& key) {
    return *Hand::See(window.Toolbar1).findChild<QToolButton*>(QString::fromStdString(key));
  }

  // Left of the arrow, where a button has one.
  void PressTool(const std::string& key) {
    QTest::mouseClick(&Tool(key), Qt::LeftButton, {}, {5, 15});
    Hand::Settle();
  }

  // What happened since the last look.
  Texts TakeLog() {
    Texts log = std::exchange(shown, {});
    for (const auto& target : std::exchange(machine.Launches.Opened, {})) log.push_back("open " + target);
    for (const auto& program : std::exchange(machine.Launches.Started, {})) log.push_back("start " + program);
    for (const auto& box : std::exchange(machine.Windows.Boxes, {})) log.push_back("box " + box.text);
    for (const auto& dialog : std::exchange(machine.Device.Dialogs, {})) {
      EXPECT_TRUE(dialog.restricted);
      log.push_back("print");
    }
    if (hand.windows.Ended()) log.push_back("end");
    return log;
  }

  void WriteLayout(const std::string& name, int covers, const std::string& page = "0") {
    std::string text = "Pagina=" + page + "\r\n";
    for (int n = 1; n <= covers; ++n) {
      const std::string number = std::to_string(n);
      text += "Copertina" + number + "=0\r\nDistx" + number + "=" + std::to_string(10 * n) + "\r\nDisty" +
              number + "=10\r\nLarg" + number + "=50.8\r\nAlte" + number + "=25.4\r\n";
    }
    machine.WriteFile("C:\\Morvane\\" + name + ".mvne", text);
  }

  void Use(const std::string& layout) {
    nextLayout = layout;
    PressTool("Settaogg");
  }

  void ClickPage(double xInches, double yInches, Qt::MouseButton button = Qt::LeftButton) {
    const DrawingSurface& page = window.Picture1.Surface;
    Hand::Click(window.Picture1, xInches / page.ScaleWidth() * page.Width(),
                yInches / page.ScaleHeight() * page.Height(), button);
  }

  template <typename T>
  std::size_t CountDrawn() const {
    std::size_t count = 0;
    for (const Shape& shape : window.Picture1.Surface.Drawing()) count += std::holds_alternative<T>(shape);
    return count;
  }

  TestMachine machine;
  AppState state;
  CoverSlots slots;
  Texts shown;
  std::deque<std::string> picks;
  std::string nextLayout;
  Hand hand{machine};
  Form1 window{state, hand.platform, slots, Openers()};
};

class MainWindowStart : public MainWindow {
 protected:
  void Serve(const std::string& body) { machine.Http.Bodies[std::string(WebAddresses::kUpdateFile)] = body; }
};

TEST_F(MainWindowStart, FirstRunShowsTheDefaultCoversWithoutAWord) {
  Start();
  EXPECT_THAT(TakeLog(), IsEmpty());
  EXPECT_THAT(machine.Http.Fetched, ElementsAre(WebAddresses::kUpdateFile));
  EXPECT_EQ(state.AppPath, "C:\\Morvane\\");
  EXPECT_EQ(state.NumCopertine, 2);
  EXPECT_EQ(state.MaxCopertine, 100);
  EXPECT_EQ(state.FileFolder, "c:\\");
  EXPECT_EQ(state.SuSchermo, 1);
  EXPECT_EQ(CountDrawn<TextShape>(), 1U);
  EXPECT_THAT(window.Toolbar1.Button("Contorno").menu,
              ElementsAre("Linea fine", "Linea media", "Linea grossa"));
  EXPECT_FALSE(machine.Files->FileExists("C:\\Morvane\\morvane.ini"));
}

TEST_F(MainWindowStart, TakesTheSettingsFile) {
  machine.WriteFile("C:\\Morvane\\morvane.ini", "SpessoreBordo= 3 \r\nFileFolder=D:\\Foto=belle\r\n");
  Start();
  EXPECT_EQ(state.SpessoreBordo, 3);
  EXPECT_EQ(state.FileFolder, "D:\\Foto=belle");
  EXPECT_EQ(CountDrawn<BoxShape>(), 12U);  // two covers, three lines, drawn twice
}

TEST_F(MainWindowStart, StandsAtMost300TwipsBelowTheTopAndNeverAboveIt) {
  const double height = window.form.Height();
  for (const auto& [screen, top] : {std::pair(height - 100, 0), {height + 240, 120}, {50000, 300}}) {
    machine.TheScreen.Height = screen;
    Form1 another(state, hand.platform, slots, Openers());
    another.form.EnsureLoaded();
    EXPECT_EQ(another.form.Left(), 300);
    EXPECT_EQ(another.form.Top(), top);
  }
}

TEST_F(MainWindowStart, AsksOnlyAboutANewerVersion) {
  for (const char* body : {"260\n", "261", "<html>x", "", "99\n"}) {
    Serve(body);
    Form1 another(state, hand.platform, slots, Openers());
    another.form.EnsureLoaded();
    EXPECT_THAT(machine.Windows.Boxes, IsEmpty()) << body;
  }
  Serve("2601\n");
  machine.Windows.Answers = {MsgBoxAnswer::No};
  Start();
  ASSERT_THAT(machine.Windows.Boxes, SizeIs(1));
  EXPECT_EQ(machine.Windows.Boxes[0].buttons, MsgBoxButtons::YesNo);
  EXPECT_EQ(machine.Windows.Boxes[0].text,
            "Versione di Morvane installata sul PC : 2.6.0\r\n"
            "E' disponibile su Internet la nuova versione 2.6.0 del programma.\r\n"
            "Si desidera scaricala ed installarla adesso? ");
  EXPECT_THAT(machine.Launches.Opened, IsEmpty());
  EXPECT_TRUE(Hand::See(window.form).isVisible());
}

TEST_F(MainWindowStart, YesOpensTheDownloadPageAndEndsTheProgram) {
  Serve("261\n");
  machine.Windows.Answers = {MsgBoxAnswer::Yes};
  Start();
  EXPECT_THAT(machine.Windows.Boxes[0].text, HasSubstr("nuova versione 2.6.1 del"));
  ASSERT_THAT(machine.Launches.Opened, SizeIs(1));
  EXPECT_EQ(machine.Launches.Opened[0], WebAddresses::kDownloadPage);
  EXPECT_TRUE(hand.windows.Ended());
  EXPECT_ANY_THROW(Hand::See(window.form)) << "it came into sight";
}

class Workspace : public MainWindow {
 protected:
  Workspace() {
    Start();
    for (const char* name : {"C:\\uno.jpg", "C:\\due.jpg"}) machine.WritePicture(name, 100, 100);
    machine.WriteFile("C:\\rotta.jpg", "?");
  }
};

TEST_F(Workspace, PageKeepsTheProportionsOfA4AndFollowsTheHeightAlone) {
  WriteLayout("Orizzontale", 2, "1");
  EXPECT_DOUBLE_EQ(window.Picture1.Height(), 6195);
  EXPECT_DOUBLE_EQ(window.Picture1.Width(), 6195.0 / 297 * 210);
  Use("Orizzontale");
  EXPECT_DOUBLE_EQ(window.Picture1.Width(), 6195.0 / 210 * 297);
  Hand::Resize(window.form, 2010, 5190);
  const double inside = window.form.ClientHeight();
  EXPECT_LT(inside, 5190);
  EXPECT_DOUBLE_EQ(window.Picture1.Height(), inside - 1140);
  EXPECT_DOUBLE_EQ(window.Picture1.Width(), (inside - 1140) / 210 * 297);
  const QWidget& bar = Hand::See(window.StatusBar1);
  EXPECT_EQ(bar.mapTo(bar.window(), bar.rect().bottomRight()), bar.window()->rect().bottomRight());
}

TEST_F(Workspace, TooLowOrMinimisedTheWindowKeepsItsPageAndRunsTheOtherRules) {
  window.Picture1.Surface.Cls();
  Hand::Resize(window.form, 2000, 1000);
  EXPECT_DOUBLE_EQ(window.Picture1.Height(), 6195);
  EXPECT_EQ(CountDrawn<TextShape>(), 1U);
  state.NumCopertine = 0;
  window.Picture1.Surface.Cls();
  Hand::See(window.form).showMinimized();
  Hand::Settle();
  EXPECT_EQ(state.NumCopertine, 2);
  EXPECT_EQ(CountDrawn<TextShape>(), 0U);
}

TEST_F(Workspace, OneCoverDisablesTheSecondImageUntilThereAreTwo) {
  WriteLayout("Una", 1);
  WriteLayout("Due", 2);
  Use("Una");
  EXPECT_FALSE(Tool("Back").isEnabled());
  TakeLog();
  PressTool("Back");
  Choose("Carica immagine &2");
  EXPECT_THAT(TakeLog(), IsEmpty());
  Use("Due");
  PressTool("Back");
  Choose("Carica immagine &2");
  EXPECT_THAT(TakeLog(), ElementsAre("Dialog", "frmAbout", "frmAbout"));
}

TEST_F(Workspace, OnlyALeftClickInACoverLoadsItsSlot) {
  picks = {"C:\\uno.jpg"};
  ClickPage(0.5, 0.5);
  ClickPage(1, 6.2, Qt::RightButton);
  ClickPage(1, 6.2, Qt::ExtraButton1);
  EXPECT_THAT(shown, IsEmpty());
  ClickPage(1, 6.2);  // second cover of the default layout
  EXPECT_THAT(shown, ElementsAre("frmAbout"));
  EXPECT_FALSE(slots.Image1[0]);
  EXPECT_TRUE(slots.Image1[1]);
  EXPECT_EQ(CountDrawn<PictureShape>(), 1U);
}

TEST_F(Workspace, OverlapOpensThePickerOncePerCoverInOrder) {
  WriteLayout("Sovrapposte", 5);
  Use("Sovrapposte");
  shown.clear();
  picks = {"C:\\uno.jpg", "C:\\due.jpg"};
  // 23 mm lies in covers 1 and 2 alone: they begin at 10, 20, 30 ... mm.
  ClickPage(23 / kMillimetresPerInch, 15 / kMillimetresPerInch);
  EXPECT_THAT(shown, ElementsAre("frmAbout", "frmAbout"));
  EXPECT_THAT(machine.Pictures.Loaded, ElementsAre("C:\\uno.jpg", "C:\\due.jpg"));
  EXPECT_TRUE(slots.Image1[0] && slots.Image1[1]);
  EXPECT_FALSE(slots.Image1[2]);
}

TEST_F(Workspace, WithoutANewPictureTheSlotKeepsItsOwnAndOnlyBackIsSilent) {
  picks = {"C:\\uno.jpg"};
  PressTool("Back");
  const PicturePtr before = slots.Image1[1];
  ASSERT_TRUE(before);
  const std::string bad[] = {"", "C:\\rotta.jpg", "C:\\manca.jpg"};
  for (std::size_t told = 0; told < std::size(bad); ++told) {
    picks = {bad[told], bad[told]};
    window.Picture1.Surface.Cls();
    Choose("Carica immagine &2");
    window.Back();
    EXPECT_THAT(machine.Windows.Boxes, SizeIs(told));
    EXPECT_EQ(slots.Image1[1], before);
    EXPECT_EQ(CountDrawn<PictureShape>(), 1U);
  }
}

TEST_F(Workspace, PicturesStayWithTheirCoverNumbersWhenTheLayoutChanges) {
  WriteLayout("Una", 1);
  picks = {"C:\\uno.jpg", "C:\\due.jpg"};
  PressTool("Front");
  EXPECT_TRUE(slots.Image1[0] && !slots.Image1[1]);
  PressTool("Back");
  EXPECT_EQ(CountDrawn<PictureShape>(), 2U);
  Use("Una");
  EXPECT_EQ(CountDrawn<PictureShape>(), 1U);
  WriteLayout("Due", 2);
  Use("Due");
  EXPECT_EQ(CountDrawn<PictureShape>(), 2U);
}

TEST_F(Workspace, ActivationReadsTheFileAgainSoThatUnsavedChangesAreGone) {
  WriteLayout("Una", 1);
  Use("Una");
  state.CopLarg[1] = 99;
  state.NumCopertine = 7;
  Choose("&About");
  EXPECT_NEAR(state.CopLarg[1], 5.08, 1e-9);
  EXPECT_EQ(state.NumCopertine, 1);
}

TEST_F(Workspace, UnreadableLayoutIsToldOnceAndThePageIsStillDrawn) {
  WriteLayout("Rotta", 1, "99999");
  WriteLayout("Buona", 1);
  Use("Rotta");
  Choose("&About");
  EXPECT_THAT(machine.Windows.Boxes, SizeIs(1));
  EXPECT_EQ(CountDrawn<TextShape>(), 1U);
  Use("Buona");
  Use("Rotta");
  EXPECT_THAT(machine.Windows.Boxes, SizeIs(2));
}

class Commands : public MainWindow {
 protected:
  Commands() { Start(); }

  void PickOutline(const QString& thickness) {
    for (QAction* const entry : Tool("Contorno").menu()->actions()) {
      if (entry->text() == thickness) entry->trigger();
    }
    Hand::Settle();
  }
};

TEST_F(Commands, EveryMenuEntryButtonPanelAndPictureHasItsEffect) {
  // How the one line of the log begins.
  std::map<Action, std::string> effects = {
      {Action::CaricaImmagine1, "frmAbout"},
      {Action::CaricaImmagine2, "frmAbout"},
      {Action::ScegliLayout, "Dialog"},
      {Action::LeggiCD, "FrmPreview"},
      {Action::Stampa, "print"},
      {Action::AvviaLindorel, "start C:\\Morvane\\lindorel.exe"},
      {Action::RicercaOnline, "Form4"},
      {Action::ApriOmbranoKit, "open omk.htm"},
      {Action::InformazioniPdf, "Form2"},
      {Action::Aiuto, "box Morvane\r\n\r\nQuesto programma esegue"},
      {Action::Informazioni, "Form3"},
  };
  machine.Device.Answers = {{}, {}};
  for (const MenuRow& row : MenuRows()) {
    if (row.action == Action::None || row.action == Action::Esci) continue;
    Choose(std::string(row.caption));
    const std::string effect =
        row.action == Action::ApriIndirizzo ? "open " + std::string(row.address) : effects.at(row.action);
    EXPECT_THAT(TakeLog(), ElementsAre(StartsWith(effect))) << row.caption;
  }
  for (const ToolRow& row : ToolRows()) {
    if (!effects.contains(row.action)) continue;
    PressTool(std::string(row.key));
    EXPECT_THAT(TakeLog(), ElementsAre(StartsWith(effects.at(row.action)))) << row.key;
  }
  const QList<QToolButton*> panels = Hand::See(window.StatusBar1).findChildren<QToolButton*>();
  ASSERT_EQ(panels.size(), std::ssize(StatusRows()));
  for (int i = 0; i < panels.size(); ++i) {
    panels[i]->click();
    Hand::Settle();
    EXPECT_THAT(TakeLog(), ElementsAre(effects.at(StatusRows()[static_cast<std::size_t>(i)].action)));
  }
  Hand::Press(window.Picture2);
  Hand::Press(window.Picture7);
  EXPECT_THAT(TakeLog(), ElementsAre("open " + std::string(WebAddresses::kMakerSite),
                                     "open " + std::string(WebAddresses::kDonation)));
}

TEST_F(Commands, EachWayOutEndsTheProgramWithoutAQuestion) {
  Choose("&Esci");
  EXPECT_THAT(TakeLog(), ElementsAre("end"));
  for (const bool byButton : {true, false}) {
    TestMachine other;
    Hand another(other);
    Form1 main(state, another.platform, slots, Openers());
    another.Show(main.form);
    byButton ? Hand::See(main.Toolbar1).findChild<QToolButton*>("Uscita")->click()
             : static_cast<void>(Hand::See(main.form).close());
    Hand::Settle();
    EXPECT_TRUE(another.windows.Ended());
    EXPECT_TRUE(other.Windows.Boxes.empty());
  }
}

TEST_F(Commands, PrintsTheLayoutWithItsOrientationAfterAFailedDialogToo) {
  WriteLayout("Orizzontale", 2, "1");
  WriteLayout("Strana", 2, "2");
  Use("Strana");
  EXPECT_GT(window.Picture1.Width(), window.Picture1.Height());
  EXPECT_LT(window.Picture1.Surface.ScaleWidth(), window.Picture1.Surface.ScaleHeight());
  machine.Device.DialogFails = true;
  Choose("&Stampa...");
  ASSERT_THAT(machine.Device.Jobs, SizeIs(1));
  EXPECT_EQ(machine.Device.Jobs[0].orientation, PageOrientation::Landscape);
  EXPECT_THAT(machine.Windows.Boxes, IsEmpty());

  machine.Device.DialogFails = false;
  Use("Orizzontale");
  machine.Device.Answers = {{.accepted = true, .copies = 2}};
  QTest::keyClick(&Hand::See(window.form), Qt::Key_S, Qt::ControlModifier);
  Hand::Settle();
  ASSERT_THAT(machine.Device.Jobs, SizeIs(3));
  EXPECT_EQ(machine.Device.Jobs[2].orientation, PageOrientation::Landscape);
  EXPECT_EQ(machine.Device.Jobs[2].title, "Orizzontale");
}

TEST_F(Commands, OutlineButtonTogglesAndItsMenuSetsTheThicknessWhichIsNotSaved) {
  const auto drawn = [&](const std::function<void()>& act) {
    window.Picture1.Surface.Cls();
    act();
    EXPECT_EQ(CountDrawn<TextShape>(), 1U) << "each time the page is drawn";
    return CountDrawn<BoxShape>();
  };
  const auto press = [&] { PressTool("Contorno"); };
  const auto pick = [&](const char* thickness) { return [=, this] { PickOutline(thickness); }; };
  EXPECT_EQ(drawn(pick("Linea fine")), 4U);
  EXPECT_EQ(drawn(press), 0U);
  EXPECT_EQ(drawn(pick("Linea media")), 0U);
  EXPECT_EQ(state.SpessoreBordo, 3);
  EXPECT_EQ(drawn(press), 12U);
  EXPECT_EQ(drawn(pick("Linea grossa")), 20U);
  EXPECT_FALSE(machine.Files->FileExists("C:\\Morvane\\morvane.ini"));
}

TEST_F(Commands, MissingSiblingToolIsToldAndTheProgramGoesOn) {
  machine.Launches.ShellFails = true;
  Choose("&Lancia \"Lindorel\"");
  EXPECT_THAT(machine.Windows.Boxes, SizeIs(1));
  EXPECT_FALSE(machine.Windows.Ended());
}

}  // namespace
}  // namespace Morvane
