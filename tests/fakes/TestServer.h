// A server on loopback, plain or over TLS, that answers one connection after the other as a test wants it.
#pragma once

#include <sys/socket.h>

#include <QFile>
#include <QPointer>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <string>

#include "net/qtTransfer.h"

namespace halvorine {

class TestServer : public QTcpServer {
 public:
  /// Cut ends a connection over TLS without its farewell, as some servers do.
  enum class End { Close, Stay, Reset, Cut };

  /// With a file of tests/reference/tls as certificate the server speaks TLS.
  explicit TestServer(const char* certificate = nullptr) {
    if (certificate != nullptr) {
      certificate_ = QSslCertificate(Read(certificate));
      key_ = QSslKey(Read("key.pem"), QSsl::Ec);
      TcpTransfer::TrustOnly({QSslCertificate(Read("authority.pem"))});
    }
    listen(QHostAddress::LocalHost);
  }
  ~TestServer() override { TcpTransfer::TrustOnly({}); }

  std::string answer;    // sent when a request is whole, or at once where none is awaited
  End end = End::Close;  // what follows it
  bool awaitRequest = true;
  std::string request;  // bytes of the last connection
  int repeats = 0;      // how often the answer is sent again

  std::string Address(const std::string& path) const {
    return "127.0.0.1:" + std::to_string(serverPort()) + path;
  }
  void Send(const std::string& bytes) {
    if (socket_) socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (socket_) socket_->flush();
  }
  void Finish(End how) {
    if (!socket_ || how == End::Stay) return;
    if (how == End::Reset) {
      const linger hard{1, 0};
      ::setsockopt(static_cast<int>(socket_->socketDescriptor()), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
      socket_->abort();
    } else if (how == End::Cut) {
      ::shutdown(static_cast<int>(socket_->socketDescriptor()), SHUT_WR);
    } else {
      socket_->disconnectFromHost();
    }
  }

 protected:
  void incomingConnection(qintptr handle) override {
    socket_ = new QSslSocket(this);
    socket_->setSocketDescriptor(handle);
    request.clear();
    if (!certificate_.isNull()) {
      socket_->setLocalCertificate(certificate_);
      socket_->setPrivateKey(key_);
      socket_->startServerEncryption();
    }
    connect(socket_, &QSslSocket::disconnected, socket_, &QObject::deleteLater);
    // queued: a socket does not tell of bytes that are written while it tells of others
    connect(
        socket_, &QSslSocket::bytesWritten, this,
        [this] {
          if (repeats > 0 && socket_ && socket_->bytesToWrite() == 0 && --repeats >= 0) Send(answer);
        },
        Qt::QueuedConnection);
    connect(socket_, &QSslSocket::readyRead, this, [this] {
      request += socket_->readAll().toStdString();
      if (request.ends_with("\r\n\r\n")) Answer();
    });
    if (!awaitRequest) Answer();
  }

 private:
  static QByteArray Read(const char* name) {
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/tests/reference/tls/") + QString::fromLatin1(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
  }
  void Answer() {
    Send(answer);
    Finish(end);
  }

  QSslCertificate certificate_;
  QSslKey key_;
  QPointer<QSslSocket> socket_;
};

}  // namespace halvorine
