#include <QGuiApplication>

// What any program of the toolkit costs to start that shows no window.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  return 0;
}
