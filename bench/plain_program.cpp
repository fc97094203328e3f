#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QStatusBar>
#include <QToolBar>
#include <memory>

namespace {

constexpr int kMenus = 3;
constexpr int kButtons = 11;
constexpr int kIcon = 24;

// Of a desktop's own family and of two others, as the program's texts are.
void AddTexts(QMainWindow& window) {
  auto page = std::make_unique<QLabel>("Copertine");
  page->setFont(QFont("Liberation Sans", 20));
  auto status = std::make_unique<QLabel>("Copertine");
  status->setFont(QFont("DejaVu Sans", 8));
  window.setCentralWidget(page.release());  // the window owns both
  window.statusBar()->addWidget(status.release());
}

void AskForVersion(const QUrl& address) {
  QNetworkAccessManager network;
  QEventLoop loop;
  const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(address)));
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
  if (!reply->isFinished()) loop.exec();
}

}  // namespace

// plain_program URL: what a program of the same parts costs to start whatever it does: the same libraries,
// the same question to the network before its window, menus, buttons whose icons are ready, texts in three
// fonts.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  AskForVersion(QUrl(argv[argc - 1]));
  QMainWindow window;
  for (int i = 0; i < kMenus; ++i) window.menuBar()->addMenu("Copertine")->addAction("Copertine");
  QPixmap icon(kIcon, kIcon);
  icon.fill(Qt::darkGreen);
  QToolBar* const bar = window.addToolBar("Copertine");
  for (int i = 0; i < kButtons; ++i) bar->addAction(icon, "Copertine");
  AddTexts(window);
  window.resize(677, 489);
  window.show();
  return QApplication::exec();
}
