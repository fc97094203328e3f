#include <QApplication>
#include <QMainWindow>

// What any program of the toolkit costs to start: a window with nothing in it, as large as the program's.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(677, 489);
  window.show();
  return QApplication::exec();
}
