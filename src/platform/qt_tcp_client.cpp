#include "platform/qt_tcp_client.h"

#include <QNetworkProxy>
#include <QObject>
#include <QTcpSocket>

#include "core/fault.h"

namespace vantrel {

QtTcpClient::QtTcpClient() = default;

QtTcpClient::~QtTcpClient() { Close(); }

/// The socket is deleted later and raises nothing any more: this may be called out of one of its
/// own signals.
void QtTcpClient::drop() {
  QTcpSocket* const old = socket_.release();
  if (old == nullptr) return;
  QObject::disconnect(old, nullptr, nullptr, nullptr);
  old->abort();
  old->deleteLater();
}

void QtTcpClient::listen() {
  QTcpSocket* const socket = socket_.get();
  QObject::connect(socket, &QTcpSocket::connected, socket, [this] {
    if (onConnected) onConnected();
  });
  QObject::connect(socket, &QTcpSocket::readyRead, socket, [this] {
    if (onDataArrival) onDataArrival();
  });
  const auto failed = [this](QAbstractSocket::SocketError error) {
    if (error == QAbstractSocket::RemoteHostClosedError) {
      serverClosed();
    } else if (onError) {
      onError(socket_->errorString().toStdString());
    }
  };
  // Queued, because a connection that fails at once would tell so inside `Connect`.
  QObject::connect(socket, &QTcpSocket::errorOccurred, socket, failed, Qt::QueuedConnection);
}

/// What has arrived before the end is handed over first.
void QtTcpClient::serverClosed() {
  const QTcpSocket* const socket = socket_.get();
  while (socket_.get() == socket && socket->bytesAvailable() > 0 && onDataArrival) onDataArrival();
  if (socket_.get() == socket && onClosed) onClosed();
}

void QtTcpClient::Connect(const std::string& host, std::uint16_t port) {
  if (State() > 0) throw Fault(fault_text::kInvalidCall);
  drop();
  socket_ = std::make_unique<QTcpSocket>();
  socket_->setProxy(QNetworkProxy::NoProxy);
  socket_->setReadBufferSize(kMostBytesHeld);
  listen();
  socket_->connectToHost(QString::fromStdString(host), port);
}

void QtTcpClient::SendData(std::string_view bytes) {
  if (socket_) socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string QtTcpClient::GetData() {
  return socket_ ? socket_->readAll().toStdString() : std::string();
}

void QtTcpClient::Close() { drop(); }

int QtTcpClient::State() const { return socket_ ? static_cast<int>(socket_->state()) : 0; }

}  // namespace vantrel
