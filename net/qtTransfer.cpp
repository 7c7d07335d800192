#include "net/qtTransfer.h"

#include <QNetworkProxy>
#include <QPointer>
#include <QSslConfiguration>
#include <utility>

#include "net/mHttp.h"

namespace halvorine {

TcpTransfer::TcpTransfer(QObject* parent) : QObject(parent) {
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, [this] {
    Close();
    Q_EMIT TimedOut();
  });
}

TcpTransfer::~TcpTransfer() { Close(); }

void TcpTransfer::Open(const QString& name, quint16 port, bool secure) {
  Close();
  socket_ = new QSslSocket(this);
  socket_->setProxy(QNetworkProxy::NoProxy);
  connect(socket_, &QSslSocket::readyRead, this, &TcpTransfer::Deliver);
  connect(socket_, &QSslSocket::errorOccurred, this, &TcpTransfer::Fail);
  connect(socket_, &QSslSocket::bytesWritten, this, [this] {
    if (socket_->bytesToWrite() > 0)
      Q_EMIT SendProgress();
    else
      Q_EMIT SendComplete();
  });
  connect(socket_, &QSslSocket::disconnected, this, [this] {
    const QPointer<TcpTransfer> self(this);
    Deliver();
    // who takes the bytes may have closed, or ended the window
    if (!self || socket_ == nullptr) return;
    Close();
    Q_EMIT Closed();
  });
  idle_.start(Limits.Idle);
  if (!secure) {
    connect(socket_, &QSslSocket::connected, this, &TcpTransfer::Connected);
    socket_->connectToHost(name, port);
    return;
  }
  connect(socket_, &QSslSocket::encrypted, this, &TcpTransfer::Connected);
  if (!authorities_.isEmpty()) {
    QSslConfiguration configuration = socket_->sslConfiguration();
    configuration.setCaCertificates(authorities_);
    socket_->setSslConfiguration(configuration);
  }
  socket_->connectToHostEncrypted(name, port);
}

void TcpTransfer::Send(const QByteArray& bytes) {
  if (socket_ != nullptr) socket_->write(bytes);
}

void TcpTransfer::Close() {
  idle_.stop();
  QSslSocket* const socket = std::exchange(socket_, nullptr);
  if (socket == nullptr) return;
  // the call may come from one of the socket's own signals
  socket->disconnect(this);
  socket->abort();
  socket->deleteLater();
}

void TcpTransfer::Deliver() {
  const QByteArray bytes = socket_->readAll();
  if (bytes.isEmpty()) return;
  idle_.start(Limits.Idle);
  Q_EMIT DataArrival(bytes);
}

void TcpTransfer::Fail(QAbstractSocket::SocketError error) {
  // a close by the server comes as an error first
  if (error == QAbstractSocket::RemoteHostClosedError) return;
  const QString description = socket_->errorString();
  const bool certificate = !socket_->sslHandshakeErrors().isEmpty();
  Close();
  Q_EMIT Failed(error, description, certificate);
}

}  // namespace halvorine
