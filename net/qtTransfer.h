// One connection to a server, plain or over TLS: what it gives are the events of a socket, and the end of a
// wait that is too long. Names are resolved and connections opened without blocking.
#pragma once

#include <QList>
#include <QObject>
#include <QSslCertificate>
#include <QSslSocket>
#include <QTimer>

namespace halvorine {

class TcpTransfer : public QObject {
  Q_OBJECT
 public:
  explicit TcpTransfer(QObject* parent = nullptr);
  ~TcpTransfer() override;

  /// Closes what is open and connects. A secure connection takes only a server whose certificate is valid
  /// now, of a trusted authority and for this name.
  void Open(const QString& name, quint16 port, bool secure);
  void Send(const QByteArray& bytes);
  /// Ends the connection at once; nothing is told any more.
  void Close();

  /// Trusts these authorities alone instead of the system's; for tests, which have an authority of their own.
  static void TrustOnly(const QList<QSslCertificate>& authorities) { authorities_ = authorities; }

 Q_SIGNALS:
  void Connected();
  /// After a part, or all, of what was to be sent has gone.
  void SendProgress();
  void SendComplete();
  void DataArrival(const QByteArray& bytes);
  /// The server has closed; all bytes have been told. The connection is gone.
  void Closed();
  /// `certificate` tells that the server's certificate is the reason. The connection is gone.
  void Failed(int number, const QString& description, bool certificate);
  /// No byte for as long as Limits.Idle. The connection is gone.
  void TimedOut();

 private:
  void Deliver();
  void Fail(QAbstractSocket::SocketError error);

  inline static QList<QSslCertificate> authorities_;
  QSslSocket* socket_ = nullptr;
  QTimer idle_;
};

}  // namespace halvorine
