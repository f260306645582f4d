#include "services/sw_update.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"

namespace vantrel {

namespace {

constexpr std::string_view kTagEnd = "()";
constexpr std::string_view kLineEnd = "\r\n";

/// Value of a digit, -1 for what is none; lower-case letters do not count.
int digit_value(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 55;
  return -1;
}

/// Replaces the first escaped character; false when there is none.
bool replace_escape(std::string& value) {
  for (std::size_t i = 0; i + 3 < value.size(); ++i) {
    if (value[i] != '*' || value[i + 3] != '*') continue;
    const int first = digit_value(value[i + 1]);
    const int second = digit_value(value[i + 2]);
    if (first < 0 || second < 0) continue;
    value.replace(i, 4, 1, static_cast<char>(16 * first + second));
    return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> checktag(std::string_view tag, std::string_view line) {
  const std::size_t found = line.find(tag);
  if (found == std::string_view::npos) return std::nullopt;
  line.remove_prefix(found + tag.size());
  const std::size_t end = line.find(kTagEnd);
  if (end == std::string_view::npos) return std::nullopt;
  std::string value(line.substr(0, end));
  while (replace_escape(value)) {
  }
  return value;
}

SWUpdate::SWUpdate(std::unique_ptr<TcpClient> client, std::unique_ptr<Timer> timer,
                   SWUpdateEvents events)
    : client_(std::move(client)), timer_(std::move(timer)), events_(std::move(events)) {
  client_->onConnected = [this] { connected(); };
  client_->onDataArrival = [this] { dataArrival(); };
  client_->onClosed = [this] { closeStep(); };
  client_->onError = [this](const std::string& description) { clientError(description); };
}

void SWUpdate::server_fetch(std::string host, std::uint16_t port, std::string host_header,
                            std::string url, std::string tag1, std::string tag2) {
  host_ = std::move(host);
  port_ = port;
  host_header_ = std::move(host_header);
  url_ = std::move(url);
  tag1_ = std::move(tag1);
  tag2_ = std::move(tag2);
  if (isRunning()) return;
  try {
    status("Setting Up");
    status("Connecting");
    client_->Connect(host_, port_);
    ticks_ = 0;
    timer_->start(kTickMilliseconds, [this] { connectTimeOut(); });
  } catch (const Fault&) {
    status("Error : Closing");
    client_->Close();
    // Without this the owner would wait for ever for a check that never began.
    if (events_.UpdateFinished) events_.UpdateFinished();
  }
}

void SWUpdate::client_Close() { closeStep(); }

void SWUpdate::abandon() {
  ++closings_;
  timer_->stop();
  client_->Close();
}

void SWUpdate::connectTimeOut() {
  if (++ticks_ < kTimeOutTicks) return;
  timer_->stop();
  error("Connection timed out", kErrorTimeOut);
  closeStep();
}

void SWUpdate::connected() {
  status("Connected ... Requesting Information");
  std::string request;
  for (const std::string& line :
       {"GET " + url_ + " HTTP/1.1", "Host: " + host_header_, std::string("Connection: close"),
        std::string("Accept: */*"), std::string()}) {
    request += line;
    request += kLineEnd;
  }
  client_->SendData(request);
}

/// What stands behind the last line end of an arrival is dropped with it.
void SWUpdate::dataArrival() {
  const std::string arrived = client_->GetData();
  const int closings = closings_;
  status("Reading Information");
  std::string_view rest = arrived;
  for (std::size_t end = rest.find_first_of(kLineEnd); end != std::string_view::npos;
       end = rest.find_first_of(kLineEnd)) {
    searchTags(rest.substr(0, std::min(end, kLongestLine)));
    if (closings != closings_) return;
    rest.remove_prefix(end + 1);
  }
}

void SWUpdate::searchTags(std::string_view line) {
  const int closings = closings_;
  for (const std::string& tag : {tag1_, tag2_}) {
    const std::optional<std::string> value = checktag(tag, line);
    if (value && events_.UpdateTag) events_.UpdateTag(tag, *value);
    if (closings != closings_) return;
  }
}

void SWUpdate::clientError(const std::string& description) {
  error("Upgrade Check Failed (" + description + ")", kErrorClient);
  closeStep();
}

void SWUpdate::closeStep() {
  ++closings_;
  status("Finished Upgrade Check");
  client_->Close();
  if (events_.UpdateFinished) events_.UpdateFinished();
}

void SWUpdate::status(const std::string& text) {
  if (events_.UpdateStatus) events_.UpdateStatus(text);
}

void SWUpdate::error(const std::string& text, int code) {
  if (events_.UpdateError) events_.UpdateError(text, code);
}

}  // namespace vantrel
