#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "platform/qt/desktop/qt_http_client.h"
#include "platform/qt/desktop/qt_launcher.h"
#include "platform/runtime_error.h"
#include "tests/support/test_machine.h"

namespace Morvane {
namespace {

// A machine whose "xdg-open" writes down its arguments, one a line, and what it reads and writes.
class QtLauncherTest : public testing::Test {
 protected:
  QtLauncherTest() : path_(qgetenv("PATH")), record_(tools_.Path("argv")) {
    MakeProgram(tools_.Path("xdg-open"));
    qputenv("PATH", (tools_.Path() + ":").c_str() + path_);
  }
  ~QtLauncherTest() override { qputenv("PATH", path_); }

  void MakeProgram(const std::string& nativePath) {
    std::ofstream(nativePath)
        << "#!/bin/sh\nprintf '%s\\n' \"$@\" \"$(readlink /proc/$$/fd/[012] | sort -u)\" > '" << record_
        << ".new'\nmv '" << record_ << ".new' '" << record_ << "'\n";
    std::filesystem::permissions(nativePath, std::filesystem::perms::owner_all);
  }

  // What was started, after at most so many milliseconds; empty when nothing was.
  std::string Started(int patience = 10000) {
    const auto ended = [this] { return std::filesystem::exists(record_); };
    if (!QTest::qWaitFor(ended, patience)) return {};
    const std::string text = tools_.Read("argv");
    std::filesystem::remove(record_);
    return text;
  }

  const TemporaryFolder tools_;
  const QByteArray path_;
  const std::string record_;
  TestMachine machine_;
  QtLauncher launcher_{*machine_.Files, "C:\\Morvane"};
};

TEST_F(QtLauncherTest, WhatIsOpenedIsOneArgumentAndADocumentLiesInTheProgramsFolder) {
  machine_.WriteFile("C:\\Morvane\\omk.htm", "kit");
  machine_.WriteFile("C:\\Morvane\\--help", "not an option");
  const std::string folder = machine_.Root.Path() + "/Morvane/";
  for (const char* address : {"http://a.example/search?q=copertine cd&x=1", "AZaz:/`id`$(id);'\"|&"}) {
    launcher_.ShellExecute(address);
    EXPECT_EQ(Started(), std::string(address) + "\n/dev/null\n");
  }
  for (const char* name : {"omk.htm", "C:\\Morvane\\omk.htm", "--help"}) {
    launcher_.ShellExecute(name);
    EXPECT_EQ(Started(), folder + (name[0] == '-' ? name : "omk.htm") + "\n/dev/null\n");
  }
  for (const char* missing :
       {"", "manca.htm", "-version", "http://a.example/\nrm", "http://a.example/\r", "\x1B"})
    launcher_.ShellExecute(missing);
  EXPECT_EQ(Started(300), "");
}

TEST_F(QtLauncherTest, AProgramIsStartedByItsPathElseNotFound) {
  const std::string program = "C:\\Morvane\\\\lindorel.exe";
  EXPECT_THROW(launcher_.Shell(program), RuntimeError);
  machine_.WriteFile(program, "no program");
  EXPECT_THROW(launcher_.Shell(program), RuntimeError);
  MakeProgram(machine_.Root.Path() + "/Morvane/lindorel.exe");
  launcher_.Shell(program);
  EXPECT_EQ(Started(), "/dev/null\n");
}

// Answers each request with the same bytes; with none it accepts and says nothing.
struct LoopbackServer : QTcpServer {
  explicit LoopbackServer(const std::string& answer) {
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, [this, answer] {
      QTcpSocket* socket = nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, [socket, answer] {
        socket->write(answer.data(), static_cast<qint64>(answer.size()));
        if (!answer.empty()) socket->disconnectFromHost();
      });
    });
  }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(serverPort()) + "/file.txt"; }
};

TEST(QtHttpClientTest, GivesTheBodyByteForByteAndNothingOfAFailureWhichIsAServerThatSaysNothing) {
  const std::string ok = "HTTP/1.1 200 OK\r\n";
  const LoopbackServer whole(ok + "Content-Length: 4\r\n\r\n261\n");
  const LoopbackServer missing("HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\n999\n");
  const LoopbackServer moved("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + whole.Url() +
                             "\r\n\r\n");
  const LoopbackServer largest(ok + "\r\n" + std::string(1 << 20, '9'));
  const LoopbackServer huge(ok + "\r\n" + std::string((1 << 20) + 1, '9'));
  const LoopbackServer silent("");
  QTcpSocket unheard;
  ASSERT_TRUE(unheard.bind(QHostAddress::LocalHost));
  QtHttpClient http(std::chrono::seconds(5));
  EXPECT_EQ(http.OpenUrl(whole.Url()) + http.OpenUrl(moved.Url()), "261\n261\n");
  EXPECT_EQ(http.OpenUrl(largest.Url()).size(), 1U << 20);
  for (const std::string& url : {missing.Url(), huge.Url(), std::string("http://host.invalid/file.txt"),
                                 "http://127.0.0.1:" + std::to_string(unheard.localPort()) + "/file.txt",
                                 std::string("file:///etc/hostname"), std::string("nonsense")})
    EXPECT_EQ(http.OpenUrl(url), "");
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(QtHttpClient(std::chrono::milliseconds(300)).OpenUrl(silent.Url()), "");
  EXPECT_GE(timer.elapsed(), 290);
  EXPECT_LT(timer.elapsed(), 5000);
}

}  // namespace
}  // namespace Morvane
