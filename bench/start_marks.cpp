#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// Loaded in front of a program's libraries: tells on standard error when the start comes by, in milliseconds
// since MORVANE_BENCH_STARTED (of the steady clock, in nanoseconds). A program of the toolkit calls each of
// these functions through its libraries' table, so the program itself is the one that is shipped.
namespace {

void Mark(const char* place) {
  const char* const started = std::getenv("MORVANE_BENCH_STARTED");
  if (started == nullptr) return;
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const double nanoseconds = std::chrono::duration<double, std::nano>(now).count() - std::atof(started);
  std::fprintf(stderr, "mark %s %.3f\n", place, nanoseconds / 1e6);
}

template <typename Function>
Function* Next(const char* name) {
  void* const found = dlsym(RTLD_NEXT, name);
  Function* function = nullptr;
  std::memcpy(&function, &found, sizeof function);
  return function;
}

}  // namespace

extern "C" {

// QApplication::QApplication(int&, char**, int)
void _ZN12QApplicationC1ERiPPci(void* self, int* argc, char** argv, int flags) {
  Mark("main");
  Next<void(void*, int*, char**, int)>("_ZN12QApplicationC1ERiPPci")(self, argc, argv, flags);
  Mark("application");
}

// QFontDatabase::families(QFontDatabase::WritingSystem); the list is made where the caller wants it
void* _ZN13QFontDatabase8familiesENS_13WritingSystemE(void* list, int system) {
  Mark("before-fonts");
  void* const made = Next<void*(void*, int)>("_ZN13QFontDatabase8familiesENS_13WritingSystemE")(list, system);
  Mark("fonts");
  return made;
}

// QMenuBar::QMenuBar(QWidget*)
void _ZN8QMenuBarC1EP7QWidget(void* self, void* parent) {
  Mark("before-views");
  Next<void(void*, void*)>("_ZN8QMenuBarC1EP7QWidget")(self, parent);
}

// QWidget::winId() const
unsigned long long _ZNK7QWidget5winIdEv(const void* self) {
  Mark("views");
  return Next<unsigned long long(const void*)>("_ZNK7QWidget5winIdEv")(self);
}

// QApplication::exec()
int _ZN12QApplication4execEv() {
  Mark("shown");
  return Next<int()>("_ZN12QApplication4execEv")();
}
}
