#include "windows/image_picker/image_list.h"

#include <filesystem>
#include <fstream>

#include "picker_machine.h"

namespace Morvane {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ImageNames, AreToldByTheLastFourCharacters) {
  for (const char* name : {"a.JPG", "a.jpg", "a.jPg", "a.jpe", "a.bmp", "a.rle", "à.gif", ".JP"}) {
    EXPECT_TRUE(IsImageName(name)) << name;
  }
  for (const char* name : {"a.jpeg", "a.png", "a.tif", "jpg", "a.jp", "a.jpg ", "", "a.j\xC3\xA9"}) {
    EXPECT_FALSE(IsImageName(name)) << name;
  }
}

TEST(CleanText, BlanksLineBreaksInTheCallersOwnText) {
  std::string text = " C:\\Foto\x1B a\r\n";
  EXPECT_EQ(toglivbcrlf(text), "C:\\Foto  a");
  EXPECT_EQ(text, " C:\\Foto  a  ");
}

TEST(Preview, ReachesOneLimitAndKeepsProportions) {
  struct Case {
    double width, height, twipsX, twipsY;
    float fittedWidth, fittedHeight;
  };
  const Case cases[] = {
      {15000, 7500, 15, 15, 3705, 1852.5F},
      {1500, 1500, 15, 15, 2700, 2700},
      {30000, 15, 15, 15, 3705, 1.8525F},
      // Each limit goes by the other axis, in whole twips.
      {100, 10000, 10, 20, 18, 1800},
      {10000, 100, 10, 20, 4940, 49.4F},
      {100, 100, 15.0139, 15, 2703, 2703},
  };
  for (const Case& picture : cases) {
    const PreviewSize size = ScaleToPreview(picture.width, picture.height, picture.twipsX, picture.twipsY);
    EXPECT_FLOAT_EQ(size.width, picture.fittedWidth);
    EXPECT_FLOAT_EQ(size.height, picture.fittedHeight);
  }
}

class ImageListTest : public PickerTest {
 protected:
  void List(const std::string& node) {
    if (!window.form.Visible()) Open();
    ClickNode(node);
  }
};

TEST_F(ImageListTest, ShowsPicturesInOrderAndSelectsTheFirst) {
  machine.WritePicture("C:\\Foto\\b.JPG", 15000, 7500);
  machine.WritePicture("C:\\Foto\\A.bmp", 1500, 1500);
  machine.WriteFile("C:\\Foto\\.nascosta.jpg", "");
  machine.WriteFile("C:\\Foto\\testo.txt", "");
  machine.MakeFolder("C:\\Foto\\cartella.jpg");
  List("Foto");

  EXPECT_EQ(state.CartellaImmagini, "C:\\Foto\\");
  EXPECT_THAT(Rows(), ElementsAre("A.bmp", "b.JPG"));
  EXPECT_EQ(window.Label17.Caption(), "N. 2");
  EXPECT_EQ(state.ListaImmagini.size(), 10000U);
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\A.bmp");
  EXPECT_TRUE(window.Image1.Visible());
  EXPECT_TRUE(window.Image1.Stretch());
  EXPECT_FLOAT_EQ(static_cast<float>(window.Image1.Width()), 2700);
  EXPECT_EQ(window.Image1.Left(), 90);
  EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
}

TEST_F(ImageListTest, SelectsTheNameConfirmedBeforeInAnyFolder) {
  for (const char* name : {"C:\\Foto\\a.jpg", "C:\\Foto\\b.jpg", "C:\\Foto\\B2.jpg"}) {
    machine.WritePicture(name, 100, 100);
  }
  state.ImmaginePrecedente = "C:\\Altrove\\b.jpg";
  List("Foto");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
  EXPECT_EQ(machine.Pictures.Loaded.size(), 2U);  // the first row's picture too

  state.ImmaginePrecedente = "b2.JPG";
  List("Foto");
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\a.jpg");
}

TEST_F(ImageListTest, WithoutANewPictureThePreviewKeepsTheOneBefore) {
  machine.WritePicture("C:\\Foto\\a.jpg", 15000, 7500);
  machine.WriteFile("C:\\Foto\\b.jpg", "rovinata");
  List("Foto");
  const PicturePtr before = window.Image1.GetPicture();
  ClickRow(window, 1);
  EXPECT_EQ(window.Image1.GetPicture(), before);
  EXPECT_FLOAT_EQ(static_cast<float>(window.Image1.Height()), 1852.5F);
  EXPECT_TRUE(window.Image1.Visible());
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");

  std::filesystem::remove_all(machine.Root.Path() + "/Foto");
  Hand::Press(window.Command4);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(window.Label17.Caption(), "N. 0");
  EXPECT_EQ(window.Image1.GetPicture(), before);
  EXPECT_EQ(state.ImmagineScelta, "C:\\Foto\\b.jpg");
}

TEST_F(ImageListTest, RowsEndAt9999AndTheCountGoesOn) {
  machine.MakeFolder("C:\\Molte");
  const std::string folder = machine.Root.Path() + "/Molte/";
  for (int i = 0; i < 12000; ++i) std::ofstream(folder + std::to_string(i) + ".gif");
  List("Molte");
  EXPECT_EQ(window.List1.ListCount(), 9999);
  EXPECT_EQ(window.Label17.Caption(), "N. 12000");
  EXPECT_EQ(state.ListaImmagini[0], "");
  EXPECT_NE(state.ListaImmagini[9999], "");
}

}  // namespace

}  // namespace Morvane
