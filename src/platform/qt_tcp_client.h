#pragma once

#include <memory>
#include <string>

#include "core/ports.h"

class QTcpSocket;

namespace vantrel {

/// A connection over the toolkit's socket; it needs an event loop on its thread. What arrives is
/// held back beyond a few thousand bytes, so that a server that never stops takes no memory.
class QtTcpClient : public TcpClient {
 public:
  static constexpr int kMostBytesHeld = 65536;

  QtTcpClient();
  ~QtTcpClient() override;
  QtTcpClient(const QtTcpClient&) = delete;
  QtTcpClient& operator=(const QtTcpClient&) = delete;

  void Connect(const std::string& host, std::uint16_t port) override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override;
  void Close() override;
  int State() const override;

 private:
  void drop();
  void listen();
  void serverClosed();

  std::unique_ptr<QTcpSocket> socket_;
};

}  // namespace vantrel
