#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

// What any program of the toolkit costs to start that shows no window. With an argument: that writes a text
// to a PDF file of this name.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc == 1) return 0;
  QPdfWriter file(argv[1]);
  QPainter(&file).drawText(1000, 1000, "Copertine");
  return 0;
}
