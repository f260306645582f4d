#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/plain_ports.h"
#include "platform/qt_tcp_client.h"
#include "services/sw_update_about.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

/// The socket, led to the test's own server whatever it is asked for.
class LoopbackClient : public TcpClient {
 public:
  LoopbackClient() {
    inner_.onConnected = [this] { onConnected(); };
    inner_.onDataArrival = [this] { onDataArrival(); };
    inner_.onClosed = [this] { onClosed(); };
    inner_.onError = [this](const std::string& text) { onError(text); };
  }
  void Connect(const std::string& host, std::uint16_t port) override {
    asked.push_back(host + ":" + std::to_string(port));
    inner_.Connect("127.0.0.1", server_port);
  }
  void SendData(std::string_view bytes) override { inner_.SendData(bytes); }
  std::string GetData() override {
    std::string data = inner_.GetData();
    ++arrivals;
    largest = std::max(largest, data.size());
    return data;
  }
  void Close() override { inner_.Close(); }
  int State() const override { return inner_.State(); }

  std::uint16_t server_port = 0;
  Texts asked;
  int arrivals = 0;
  std::size_t largest = 0;

 private:
  QtTcpClient inner_;
};

class UpdatePage : public ::testing::Test {
 protected:
  UpdatePage() {
    settings.save("Configure", "UpdateHost", "updates.invalid");
    server.listen(QHostAddress::LocalHost);
    client->server_port = server.serverPort();
    messages.dialog(&dialog);
    dialog.whileOpen = [this](const Message&) {
      button_at_message = about.isCmdCheckUpdateEnabled();
    };
    about.load();
  }

  /// Lets events in until `done`; false after ten seconds.
  bool wait(const std::function<bool()>& done) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 10000) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return done();
  }
  bool waitForEnd() {
    return wait([this] { return !about.loaded() || about.isCmdCheckUpdateEnabled(); });
  }
  /// The server's end of the check that begins now, once its request has come in.
  QTcpSocket* begin() {
    about.StartAboutUpdateCheck();
    wait([this] { return server.hasPendingConnections(); });
    QTcpSocket* const socket = server.nextPendingConnection();
    wait([&] { return socket->peek(4096).endsWith("\r\n\r\n"); });
    return socket;
  }
  /// Sends the parts, each one as an arrival of its own, and ends the connection.
  void serve(const Texts& parts) {
    QTcpSocket* const socket = begin();
    for (const std::string& part : parts) {
      const int before = client->arrivals;
      socket->write(part.data(), static_cast<qint64>(part.size()));
      wait([&] { return client->arrivals > before || !about.loaded(); });
    }
    socket->disconnectFromHost();
    EXPECT_TRUE(waitForEnd());
  }
  Texts takeTexts() {
    Texts result = test::texts(messages);
    messages.clear();
    return result;
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  std::unique_ptr<QCoreApplication> application{
      QCoreApplication::instance() == nullptr ? new QCoreApplication(argc, argv) : nullptr};
  /// Deletes what the sockets have put off, as an event loop would.
  struct Sweeper {
    ~Sweeper() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  } sweeper;
  QTcpServer server;
  SysMsg messages;
  test::ScriptedDialog dialog;
  bool button_at_message = false;
  MemorySettings settings;
  RecordingShell shell;
  LoopbackClient* client = new LoopbackClient;  // owned by `about`
  ManualTimer* timer = new ManualTimer;         // owned by `about`
  About about{{messages, settings, &shell},
              std::unique_ptr<TcpClient>(client),
              std::unique_ptr<Timer>(timer),
              "1.0.0"};
};

const std::string kHead = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";

std::string page(const std::string& version, const std::string& url) {
  return kHead + "<p>(vtl-version)" + version + "()</p>\n<a>(vtl-url)" + url + "()</a>\r\n";
}

std::string offer(const std::string& version) {
  return "A newer version (v" + version +
         ") of the Vantrel is available. Do you wish to download it ?";
}

Texts single_bytes(const std::string& text) {
  Texts parts;
  for (const char byte : text) parts.emplace_back(1, byte);
  return parts;
}

TEST_F(UpdatePage, IsReadAsItArrives) {
  const std::string url = "http://updates.invalid/get";
  const std::string whole = page("2.0.0", url);
  const std::size_t inside_tag = whole.find("version)");
  struct Case {
    const char* name;
    Texts parts;
    int answer;
    Texts texts;
    Texts opened;
    bool form_stays;
  };
  const Case cases[] = {
      {"one piece, yes", {whole}, kYes, {offer("2.0.0")}, {url}, false},
      {"one piece, no", {whole}, kNo, {offer("2.0.0")}, {}, false},
      {"older", {page("0.9.9", url)}, kNo, {offer("0.9.9")}, {}, false},
      {"the same",
       {page("1.0.0", url)},
       kOk,
       {"You have the most current version installed"},
       {},
       false},
      {"escapes",
       {page("1*2E*1", "https:*2F**2F*h/*41*")},
       kYes,
       {offer("1.1")},
       {"https://h/A"},
       false},
      {"twice", {whole + whole}, kYes, {offer("2.0.0")}, {url}, false},
      {"single bytes", single_bytes(page("2", "http://h/")), kYes, {}, {}, true},
      {"split tag", {whole.substr(0, inside_tag), whole.substr(inside_tag)}, kYes, {}, {}, true},
      {"no tags", {kHead + "<html></html>\r\n"}, kYes, {}, {}, true},
      {"closing early", {}, kYes, {}, {}, true},
      {"a version alone", {kHead + "(vtl-version)2()\n"}, kYes, {}, {}, true},
      {"an address alone", {kHead + "(vtl-url)http://h/()\n"}, kYes, {}, {}, true},
      {"a file",
       {page("2", "file:///etc/passwd")},
       kYes,
       {offer("2"), "Could not open 'file:///etc/passwd'"},
       {},
       false},
      {"a program",
       {page("2", "/bin/sh")},
       kYes,
       {offer("2"), "Could not open '/bin/sh'"},
       {},
       false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    shell.opened.clear();
    dialog.answers = {c.answer};
    about.load();
    serve(c.parts);
    EXPECT_EQ(takeTexts(), c.texts);
    EXPECT_EQ(shell.opened, c.opened);
    EXPECT_EQ(about.loaded(), c.form_stays);
    EXPECT_EQ(about.CmdCheckUpdateCaption(), "Check for updates");
    // The check has ended before the question comes.
    EXPECT_EQ(std::exchange(button_at_message, false), !c.texts.empty());
    EXPECT_EQ(about.status(), "Finished Upgrade Check");
    EXPECT_EQ(timer->running(), c.form_stays);
  }
  EXPECT_EQ(client->asked.front(), "updates.invalid:80");
}

TEST_F(UpdatePage, ThatStaysAwayIsCutOffAfterTenTicks) {
  const Texts timed_out = {"Update check error : Connection timed out"};
  QTcpSocket* const silent = begin();
  EXPECT_EQ(timer->fire(9), 9);
  EXPECT_FALSE(about.isCmdCheckUpdateEnabled());
  EXPECT_EQ(timer->fire(2), 1);
  EXPECT_EQ(takeTexts(), timed_out);
  EXPECT_TRUE(about.isCmdCheckUpdateEnabled());
  EXPECT_TRUE(wait([&] { return silent->state() == QAbstractSocket::UnconnectedState; }));

  QTcpSocket* const endless = begin();
  const QByteArray junk(50000, 'x');
  const auto feed = [&] {
    if (endless->bytesToWrite() < 100000) endless->write(junk + "\r\n");
  };
  QObject::connect(endless, &QTcpSocket::bytesWritten, endless, feed);
  feed();
  EXPECT_TRUE(wait([&] { return client->arrivals > 100; }));
  EXPECT_EQ(timer->fire(11), 10);
  EXPECT_EQ(takeTexts(), timed_out);
  EXPECT_TRUE(wait([&] { return endless->state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(UpdatePage, WithALineOfAHundredMegabytesTakesNoMemory) {
  QTcpSocket* const socket = begin();
  qint64 left = 100'000'000;
  const QByteArray block(1'000'000, 'x');
  const auto feed = [&] {
    if (left > 0 && socket->bytesToWrite() < block.size()) left -= socket->write(block);
    if (left <= 0) socket->disconnectFromHost();
  };
  QObject::connect(socket, &QTcpSocket::bytesWritten, socket, feed);
  feed();
  EXPECT_TRUE(waitForEnd());
  EXPECT_EQ(left, 0);
  EXPECT_LE(client->largest, static_cast<std::size_t>(QtTcpClient::kMostBytesHeld));
  EXPECT_EQ(takeTexts(), Texts{});
}

TEST_F(UpdatePage, TheTimeOutOpensNoMessageOverAnother) {
  int open = 0;
  int most_open = 0;
  dialog.whileOpen = [&](const Message&) {
    most_open = std::max(most_open, ++open);
    timer->fire(10);
    --open;
  };
  // The form goes after the question, and the error with it.
  serve({page("2.0.0", "http://h/")});
  EXPECT_EQ(takeTexts(), Texts{offer("2.0.0")});

  about.load();
  server.close();
  about.StartAboutUpdateCheck();
  EXPECT_TRUE(waitForEnd());
  const Texts refused_and_late = {"Update check error : Upgrade Check Failed (Connection refused)",
                                  "Update check error : Connection timed out"};
  EXPECT_EQ(takeTexts(), refused_and_late);
  EXPECT_EQ(most_open, 1);

  about.CheckForUpdate(true);
  EXPECT_TRUE(wait([this] { return about.status() == "Finished Upgrade Check"; }));
  timer->fire(10);
  EXPECT_EQ(takeTexts(), Texts{});
}

}  // namespace
}  // namespace vantrel
