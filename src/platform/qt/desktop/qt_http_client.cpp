#include "platform/qt/desktop/qt_http_client.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>
#include <memory>

namespace Morvane {
namespace {

constexpr qsizetype kMostBytes = 1 << 20;

}  // namespace

std::string QtHttpClient::OpenUrl(const std::string& url) {
  const QUrl address(QString::fromStdString(url), QUrl::StrictMode);
  if (!address.isValid() || (address.scheme() != "http" && address.scheme() != "https")) return {};
  QNetworkAccessManager network;
  QEventLoop loop;
  QByteArray body;
  const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(address)));
  QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
    body += reply->readAll();
    if (body.size() > kMostBytes) reply->abort();
  });
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
  QTimer::singleShot(limit_, &loop, [&] { reply->abort(); });
  if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);

  if (reply->error() != QNetworkReply::NoError) return {};
  body += reply->readAll();
  return body.size() > kMostBytes ? std::string() : body.toStdString();
}

}  // namespace Morvane
