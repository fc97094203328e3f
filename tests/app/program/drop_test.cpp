#include <gmock/gmock.h>

#include <QApplication>
#include <QBuffer>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include "tests/hand/session.h"

namespace Morvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

QByteArray Png(QColor color) {
  QImage image(60, 40, QImage::Format_RGB32);
  image.fill(color);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

// The program with a page of three covers, the last over a corner of the second, and pictures of one colour.
// Places are millimetres of the page.
class Drop : public Session {
 protected:
  static constexpr QPointF kFirst{50, 50}, kSecond{30, 110}, kBoth{70, 150}, kThird{120, 180}, kNone{180, 50};

  void SetUp() override {
    machine.WriteFile("C:\\Morvane\\Tre.mvne",
                      "Copertina1=0\r\nDistx1=20\r\nDisty1=20\r\nLarg1=60\r\nAlte1=60\r\n"
                      "Copertina2=0\r\nDistx2=20\r\nDisty2=100\r\nLarg2=60\r\nAlte2=60\r\n"
                      "Copertina3=0\r\nDistx3=60\r\nDisty3=140\r\nLarg3=80\r\nAlte3=80\r\n");
    machine.WriteFile("C:\\Foto\\a.png", Png(Qt::red).toStdString());
    machine.WriteFile("C:\\Foto\\B.png", Png(Qt::green).toStdString());
    machine.WriteFile("C:\\Foto\\c", Png(Qt::blue).toStdString());
    machine.WriteFile("C:\\Foto\\tronca.png", Png(Qt::blue).left(50).toStdString());
    machine.WriteFile("C:\\Foto\\testo.png", "non un'immagine");
    program.state.NomeLayout = "Tre";
    hand.Show(program.form1.form);
  }

  QWidget& Page() { return Hand::See(program.form1.Picture1); }

  QPointF OnPage(QPointF mm) { return {mm.x() / 210 * Page().width(), mm.y() / 297 * Page().height()}; }

  QColor ColorAt(QPointF mm) { return Page().grab().toImage().pixelColor(OnPage(mm).toPoint()); }

  // What a file manager hands over.
  const QMimeData& Files(const std::vector<std::string>& names) {
    QList<QUrl> urls;
    for (const std::string& name : names) {
      urls << QUrl::fromLocalFile(QString::fromStdString(machine.Files->ToNative("C:\\Foto") + "/" + name));
    }
    dragged.setUrls(urls);
    return dragged;
  }

  bool DragTo(QPointF mm, const QMimeData& data) {
    QDragEnterEvent enter(OnPage(mm).toPoint(), kActions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&Page(), &enter);
    return enter.isAccepted() && DragOn(mm, data);
  }

  bool DragOn(QPointF mm, const QMimeData& data) {
    QDragMoveEvent move(OnPage(mm).toPoint(), kActions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&Page(), &move);
    return move.isAccepted();
  }

  // With Shift the other program offers to move its file; it must not be told to.
  void DropAt(QPointF mm, const QMimeData& data) {
    ASSERT_TRUE(DragTo(mm, data));
    QDropEvent drop(OnPage(mm), kActions, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(&Page(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    Hand::Settle();
  }

  static constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction;
  QMimeData dragged;
};

TEST_F(Drop, FilesFillTheCoversFromThatOneOnByNameAndOthersAreLeftOut) {
  DropAt(kFirst, Files({"c", "testo.png", "B.png", "a.png"}));
  EXPECT_EQ(ColorAt(kFirst), QColor(Qt::red));
  EXPECT_EQ(ColorAt(kSecond), QColor(Qt::green));
  EXPECT_EQ(ColorAt(kThird), QColor(Qt::blue));
  DropAt(kThird, Files({"a.png", "B.png"}));
  EXPECT_EQ(ColorAt(kThird), QColor(Qt::red));
  EXPECT_EQ(ColorAt(kFirst), QColor(Qt::red));
  EXPECT_THAT(machine.Windows.Boxes, IsEmpty());
}

TEST_F(Drop, PictureOfAWebPageFallsIntoTheLastCoverThatHoldsThePoint) {
  dragged.setUrls({QUrl("https://example.org/fronte.png")});
  dragged.setHtml("<img src='https://example.org/fronte.png'>");
  dragged.setData("image/x-unknown", "?");
  dragged.setData("image/png", Png(Qt::green));
  DropAt(kBoth, dragged);
  EXPECT_EQ(ColorAt(kThird), QColor(Qt::green));
  EXPECT_EQ(ColorAt(kSecond), QColor(Qt::white));
}

TEST_F(Drop, CoverUnderThePointerIsMarkedWhileDragging) {
  const QPointF edgeOfFirst{20.7, 50}, edgeOfThird{100, 219.3};
  Files({"a.png"});
  EXPECT_TRUE(DragTo(kFirst, dragged));
  const QColor mark = ColorAt(edgeOfFirst);
  EXPECT_NE(mark, QColor(Qt::white));
  EXPECT_TRUE(DragOn(kBoth, dragged));
  EXPECT_EQ(ColorAt(edgeOfFirst), QColor(Qt::white));
  EXPECT_EQ(ColorAt(edgeOfThird), mark);
  EXPECT_FALSE(DragOn(kNone, dragged));
  EXPECT_EQ(ColorAt(edgeOfThird), QColor(Qt::white));
  EXPECT_TRUE(DragOn(kThird, dragged));
  QDragLeaveEvent leave;
  QApplication::sendEvent(&Page(), &leave);
  EXPECT_EQ(ColorAt(edgeOfThird), QColor(Qt::white));
}

TEST_F(Drop, WhatIsNoPictureIsNotAccepted) {
  machine.MakeFolder("C:\\Foto\\cartella.png");
  for (const char* name : {"testo.png", "cartella.png", "manca.png"})
    EXPECT_FALSE(DragTo(kFirst, Files({name}))) << name;
  dragged.setUrls({QUrl("https://example.org/fronte.png")});
  EXPECT_FALSE(DragTo(kFirst, dragged));
  dragged.clear();
  dragged.setText("C:\\Foto\\a.png");
  EXPECT_FALSE(DragTo(kFirst, dragged));
}

TEST_F(Drop, NothingIsAcceptedBehindAWindowThatWaitsForItsAnswer) {
  machine.Windows.Modal["frmAbout"].push_back([&](Form& picker) {
    EXPECT_FALSE(DragTo(kFirst, Files({"a.png"})));
    picker.Hide();
  });
  program.form1.Imma(0);
  EXPECT_TRUE(DragTo(kFirst, dragged));
}

TEST_F(Drop, UnreadablePictureIsToldAndItsCoverKeepsWhatItHeld) {
  DropAt(kFirst, Files({"a.png"}));
  DropAt(kFirst, Files({"tronca.png"}));
  dragged.clear();
  dragged.setData("image/png", Png(Qt::blue).left(50));
  DropAt(kFirst, dragged);
  EXPECT_EQ(ColorAt(kFirst), QColor(Qt::red));
  ASSERT_EQ(machine.Windows.Boxes.size(), 2U);
  EXPECT_EQ(machine.Windows.Boxes[0].text,
            "L'immagine 'C:\\Foto\\tronca.png' è danneggiata e non può essere letta.");
  EXPECT_THAT(machine.Windows.Boxes[1].text, HasSubstr("è danneggiata e non può essere letta."));
  dragged.clear();
  DropAt(kFirst, Files({"tronca.png", "B.png"}));
  EXPECT_EQ(ColorAt(kFirst), QColor(Qt::green));
}

}  // namespace
}  // namespace Morvane
