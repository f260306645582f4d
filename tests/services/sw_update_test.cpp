#include "services/sw_update.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/fault.h"
#include "core/plain_ports.h"
#include "services/sw_update_about.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

/// A client whose server is the test.
class ScriptedClient : public TcpClient {
 public:
  void Connect(const std::string& host, std::uint16_t port) override {
    if (faulty) throw Fault("no socket");
    connects.push_back(host + ":" + std::to_string(port));
    state = 1;
  }
  void SendData(std::string_view bytes) override { sent += bytes; }
  std::string GetData() override { return arrived; }
  void Close() override { state = 0; }
  int State() const override { return state; }

  void arrive(std::string bytes) {
    arrived = std::move(bytes);
    onDataArrival();
  }

  bool faulty = false;
  int state = 0;
  Texts connects;
  std::string sent;
  std::string arrived;
};

TEST(CheckTag, FindsTheValueBetweenTagAndEnd) {
  struct Case {
    const char* line;
    std::optional<std::string> value;
  };
  const Case cases[] = {
      {"(t)1.2.3()", "1.2.3"},
      {"<p>(t)1.2.3() (t)9()</p>", "1.2.3"},
      {"()(t)after an end()", "after an end"},
      {"(t)()", ""},
      {"(t)no end", std::nullopt},
      {"() no tag", std::nullopt},
      {"(T)1()", std::nullopt},
      {"(t)*41*()", "A"},
      {"(t)x*2F**2F*y()", "x//y"},
      {"(t)*4a*()", "*4a*"},
      {"(t)*G1*()", "*G1*"},
      {"(t)*41()", "*41"},
      {"(t)***()", "***"},
      // The produced star closes an escape with what stands in front of it.
      {"(t)*41*2A*()", "A2A*"},
      {"(t)*2A*41*()", "A"},
      {"(t)*28**29*()", "()"},
  };
  for (const Case& c : cases) EXPECT_EQ(checktag("(t)", c.line), c.value) << c.line;
}

/// A check with everything that it raises written down in order.
struct UpdateBench {
  ScriptedClient* client = new ScriptedClient;  // owned by `update`
  ManualTimer* timer = new ManualTimer;         // owned by `update`
  Texts raised;
  SWUpdate update{
      std::unique_ptr<TcpClient>(client),
      std::unique_ptr<Timer>(timer),
      {.UpdateError =
           [this](const std::string& text, int code) {
             raised.push_back("error " + std::to_string(code) + " " + text);
           },
       .UpdateTag = [this](const std::string& tag,
                           const std::string& value) { raised.push_back(tag + "=" + value); },
       .UpdateStatus = [this](const std::string& text) { raised.push_back(text); },
       .UpdateFinished = [this] { raised.push_back("finished"); }}};

  void fetch() { update.server_fetch("host", 80, "name", "http://host/p", "(a)", "(b)"); }
  Texts take() { return std::exchange(raised, {}); }
};

TEST(SwUpdate, WalksThroughItsStates) {
  UpdateBench bench;
  bench.fetch();
  EXPECT_EQ(bench.take(), (Texts{"Setting Up", "Connecting"}));
  // While a transfer is under way no other begins, but its tags are looked for.
  bench.update.server_fetch("other", 81, "name", "http://host/p", "(a)", "(b)");
  EXPECT_EQ(bench.take(), Texts{});
  EXPECT_EQ(bench.client->connects, Texts{"host:80"});

  bench.client->onConnected();
  EXPECT_EQ(bench.client->sent,
            "GET http://host/p HTTP/1.1\r\nHost: name\r\nConnection: close\r\nAccept: */*\r\n\r\n");
  EXPECT_EQ(bench.take(), Texts{"Connected ... Requesting Information"});

  bench.client->arrive("(b)2()\r\n(a)cut");  // what has no line end is dropped
  bench.client->arrive(" off()\n(a)1() and (b)3()\n");
  EXPECT_EQ(bench.take(),
            (Texts{"Reading Information", "(b)=2", "Reading Information", "(a)=1", "(b)=3"}));
  bench.client->onClosed();
  EXPECT_EQ(bench.take(), (Texts{"Finished Upgrade Check", "finished"}));

  // Nothing but its own ten ticks stops the timer.
  EXPECT_EQ(bench.timer->interval(), 1000);
  EXPECT_EQ(bench.timer->fire(20), 10);
  EXPECT_EQ(bench.take(),
            (Texts{"error 2 Connection timed out", "Finished Upgrade Check", "finished"}));
}

TEST(SwUpdate, ClosingEndsTheWalkThroughAnArrival) {
  SWUpdateEvents events;
  ScriptedClient* client = new ScriptedClient;
  int tags = 0;
  SWUpdate* self = nullptr;
  events.UpdateTag = [&](const std::string&, const std::string&) {
    ++tags;
    self->client_Close();
  };
  SWUpdate update(std::unique_ptr<TcpClient>(client), std::make_unique<ManualTimer>(), events);
  self = &update;
  update.server_fetch("host", 80, "host", "u", "(a)", "(b)");
  client->arrive("(a)1()(b)2()\n(a)3()\n");
  EXPECT_EQ(tags, 1);
}

TEST(SwUpdate, ReportsFaultsAndErrorsOfTheClient) {
  UpdateBench bench;
  bench.client->faulty = true;
  bench.fetch();
  EXPECT_EQ(bench.take(), (Texts{"Setting Up", "Connecting", "Error : Closing", "finished"}));
  EXPECT_FALSE(bench.timer->running());
  bench.client->faulty = false;
  bench.fetch();
  bench.take();
  bench.client->onError("host not found");
  EXPECT_EQ(bench.take(), (Texts{"error 1 Upgrade Check Failed (host not found)",
                                 "Finished Upgrade Check", "finished"}));
}

TEST(About, TouchesNoNetworkWithoutAHost) {
  SysMsg messages;
  MemorySettings settings;
  auto* const client = new ScriptedClient;
  About about({messages, settings}, std::unique_ptr<TcpClient>(client),
              std::make_unique<ManualTimer>(), "1.0.0");
  about.load();
  EXPECT_EQ(about.lblVersion(), "Version 1.0.0");
  about.StartAboutUpdateCheck();
  EXPECT_EQ(test::texts(messages), Texts{"No update host is configured"});
  EXPECT_EQ(about.status(), "No update host is configured");
  EXPECT_TRUE(about.isCmdCheckUpdateEnabled());
  EXPECT_EQ(client->connects, Texts{});

  settings.save("Configure", "UpdateHost", "updates.example.com");
  about.StartAboutUpdateCheck();
  EXPECT_EQ(client->connects, Texts{"updates.example.com:80"});
  EXPECT_FALSE(about.isCmdCheckUpdateEnabled());
  EXPECT_EQ(about.CmdCheckUpdateCaption(), "Checking ...");
  client->onConnected();
  EXPECT_TRUE(
      client->sent.starts_with("GET http://updates.example.com/index.html HTTP/1.1\r\n"
                               "Host: updates.example.com\r\n"));
  about.unload();
  EXPECT_EQ(client->state, 0);
}

TEST(About, TakesOnlyWebAddresses) {
  for (const char* address : {"http://h/x", "HTTPS://h", "https://h/a?b=c#d"}) {
    EXPECT_TRUE(is_web_address(address)) << address;
  }
  for (const char* address : {"", "http", "http://", "http:///x", "http://?x", "file:///etc/passwd",
                              "javascript:alert(1)", "C:\\run.exe", "/bin/sh", "http://h/\nx",
                              "http://h/ x", " http://h", "ftp://h", "xhttp://h"}) {
    EXPECT_FALSE(is_web_address(address)) << address;
  }
}

}  // namespace
}  // namespace vantrel
