#include "windows/image_picker/image_list.h"

#include <fstream>

#include "picker_fixture.h"

namespace Morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ImageNames, AreToldByTheLastFourCharacters) {
  for (const char* name : {"a.JPG", "a.jPg", "a.jpe", "a.bmp", "a.rle", "à.gif", ".JP"}) {
    EXPECT_TRUE(IsImageName(name)) << name;
  }
  for (const char* name : {"a.jpeg", "a.png", "jpg", "a.jp", "a.jpg ", "", "a.j\xC3\xA9"}) {
    EXPECT_FALSE(IsImageName(name)) << name;
  }
}

TEST(CleanText, BlanksLineBreaksInTheCallersOwnText) {
  std::string text = " C:\\Foto\x1B a\r\n";
  EXPECT_EQ(toglivbcrlf(text), "C:\\Foto  a");
  EXPECT_EQ(text, " C:\\Foto  a  ");
}

// Each limit goes by the pixels of the other axis, in whole twips.
TEST(Preview, ReachesOneLimitAndKeepsProportionsWhateverShapeThePixelsHave) {
  const double cases[][6] = {
      {15000, 7500, 15, 15, 3705, 1852.5}, {1500, 1500, 15, 15, 2700, 2700},
      {100, 10000, 10, 20, 18, 1800},      {10000, 100, 10, 20, 4940, 49.4},
      {100, 100, 15.0139, 15, 2703, 2703},
  };
  for (const auto& [width, height, twipsX, twipsY, fittedWidth, fittedHeight] : cases) {
    const PreviewSize size = ScaleToPreview(width, height, twipsX, twipsY);
    EXPECT_FLOAT_EQ(size.width, static_cast<float>(fittedWidth));
    EXPECT_FLOAT_EQ(size.height, static_cast<float>(fittedHeight));
  }
}

using ImageListTest = PickerTest;

TEST_F(ImageListTest, ShowsPicturesInOrderAndSelectsTheFirst) {
  WritePhotos({"b.JPG", "A.bmp", ".nascosta.jpg"});
  machine.WriteFile("C:\\Foto\\testo.txt", "");
  machine.MakeFolder("C:\\Foto\\cartella.jpg");
  Open();
  ClickNode("Foto");
  EXPECT_EQ(state.CartellaImmagini, "C:\\Foto\\");
  EXPECT_THAT(Rows(), ElementsAre("A.bmp", "b.JPG"));
  EXPECT_EQ(picker->Label17.Caption(), "N. 2");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\A.bmp");
  EXPECT_TRUE(picker->Image1.Stretch());
  EXPECT_EQ(Hand::See(picker->Image1).geometry(), QRect(90 / 15, 270 / 15, 2700 / 15, 2700 / 15));
  EXPECT_TRUE(Hand::See(picker->Image1).isVisible());
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(ImageListTest, SelectsTheNameConfirmedBeforeInAnyFolder) {
  WritePhotos({"a.jpg", "b.jpg", "B2.jpg"});
  state.ImmaginePrecedente = "C:\\Altrove\\b.jpg";
  Open();
  ClickNode("Foto");
  EXPECT_THAT(machine.Pictures.Loaded, ElementsAre("C:\\Foto\\a.jpg", "C:\\Foto\\b.jpg"));
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  state.ImmaginePrecedente = "b2.JPG";
  ClickNode("Foto");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\a.jpg");
}

TEST_F(ImageListTest, WithoutANewPictureThePreviewKeepsTheOneBeforeAndAClickShowsAChangedOne) {
  machine.WritePicture("C:\\Foto\\a.jpg", 15000, 7500);
  machine.WriteFile("C:\\Foto\\b.jpg", "rovinata");
  Open();
  ClickNode("Foto");
  const PicturePtr before = picker->Image1.GetPicture();
  ClickRow(1);
  EXPECT_EQ(picker->Image1.GetPicture(), before);
  EXPECT_FLOAT_EQ(static_cast<float>(picker->Image1.Height()), 1852.5F);
  EXPECT_TRUE(picker->Image1.Visible());
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  WritePhotos({"b.jpg"});
  ClickRow(1);
  EXPECT_EQ(Hand::See(picker->Image1).height(), 2700 / 15);

  std::filesystem::remove_all(machine.Root.Path() + "/Foto");
  Hand::Press(picker->Command4);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(picker->Label17.Caption(), "N. 0");
  EXPECT_NE(picker->Image1.GetPicture(), nullptr);
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
}

TEST_F(ImageListTest, RowsEndAt9999AndTheCountGoesOn) {
  machine.MakeFolder("C:\\Molte");
  const std::string folder = machine.Root.Path() + "/Molte/";
  for (int i = 0; i < 10000; ++i) std::ofstream(folder + std::to_string(i) + ".gif");
  Open();
  ClickNode("Molte");
  EXPECT_EQ(Rows().size(), 9999U);
  EXPECT_EQ(picker->Label17.Caption(), "N. 10000");
  EXPECT_EQ(state.ListaImmagini.size(), 10000U);
  EXPECT_EQ(state.ListaImmagini[0], "");
  EXPECT_EQ(state.ListaImmagini[9999], "9998.gif");
}

}  // namespace
}  // namespace Morvane
