#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <memory>

// What any program of the toolkit costs to start: a window with nothing in it, as large as the program's.
// With an argument: with that text in it, for which fonts are needed.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  if (argc > 1) window.setCentralWidget(std::make_unique<QLabel>(argv[1]).release());  // the window owns it
  window.resize(677, 489);
  window.show();
  return QApplication::exec();
}
