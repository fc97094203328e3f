#include <QApplication>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <iostream>
#include <memory>
#include <utility>

// Loaded into a program by the toolkit (QT_QPA_GENERIC_PLUGINS=witness): tells on standard output what the
// desktop, the toolkit and the user get of it, prints, answers its boxes and closes its window.
class Witness : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "witness.json")

 public:
  QObject* create(const QString&, const QString&) override {
    timer_ = std::make_unique<QTimer>().release();  // the toolkit owns it
    connect(timer_, &QTimer::timeout, this, &Witness::Look);
    // The loop that timers need is not there yet.
    QMetaObject::invokeMethod(
        timer_, [this] { timer_->start(20); }, Qt::QueuedConnection);
    return timer_;
  }

 private:
  // Until the page, drawn for A4 at first, has taken on the sheet of the printer.
  void Look() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (auto* const box = qobject_cast<QDialog*>(window); box && box->isVisible()) {
        auto* const message = qobject_cast<QMessageBox*>(box);
        if (message != nullptr) std::cout << qPrintable(message->text()) << '\n';
        // The last comes of the printing.
        if (message != nullptr && edges_ == 2) QTimer::singleShot(0, qApp, &QApplication::closeAllWindows);
        return box->accept();
      }
      auto* const page = window->findChild<QWidget*>("Picture1");
      if (page == nullptr || !page->isVisible()) continue;
      const int edge = RightEdge(page->grab().toImage());
      if (edge == std::exchange(edge_, edge)) continue;
      std::cout << "cover's right edge: " << edge << " of " << page->width() << '\n';
      if (++edges_ < 2) continue;
      TellRest();
      return window->findChild<QToolButton*>("Stampa")->animateClick();
    }
  }

  static int RightEdge(const QImage& page) {
    int x = page.width() - 3;
    while (x > 0 && qGray(page.pixel(x, page.height() / 4)) > 128) --x;
    return x;
  }

  static void TellRest() {
    std::cout << "name: " << qPrintable(QApplication::applicationName()) << '\n'
              << "desktop file: " << qPrintable(QGuiApplication::desktopFileName()) << '\n'
              << "icon: " << !QApplication::windowIcon().isNull() << '\n'
              << "cancel: " << qPrintable(QCoreApplication::translate("QPlatformTheme", "Cancel")) << '\n'
              << "Tahoma: " << qPrintable(QFont::substitutes("Tahoma").join(' ')) << '\n';
  }

  QTimer* timer_ = nullptr;
  int edge_ = 0;
  int edges_ = 0;
};

#include "witness.moc"
