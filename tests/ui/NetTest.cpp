// The windows of the network against servers on loopback: downloads of every kind, and the clock.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "controls/ProgressBar.h"
#include "net/mDownload.h"
#include "net/mTimeProtocol.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mStore.h"
#include "tests/fakes/RunningProgram.h"
#include "tests/fakes/TestServer.h"

#ifdef HALVORINE_DBUS
#include <QDBusMessage>
#include <QDBusServer>
#include <QDBusVirtualObject>

#include "shell/base/qtClock.h"
#endif

namespace halvorine {
namespace {

using End = TestServer::End;
namespace fs = std::filesystem;

constexpr const char* head = "HTTP/1.1 200 OK\r\n";
const std::string oldText = "old elements\n";

class NetTest : public RunningProgram {
 protected:
  NetTest() { Start(); }
  ~NetTest() override {
    Limits = {};
    TimePort = 37;
  }
  void Open(const char* command, const char* form) {
    Item(command)->trigger();
    QCoreApplication::processEvents();
    dialog_ = Control<QDialog>(window_.get(), form);
  }
  void OpenDownload() { Open("mnuStrumentiDownload", "frmDownload"); }
  template <class Widget>
  Widget* In(const char* name) {
    return Control<Widget>(dialog_, name);
  }
  std::string TextOf(const char* name) { return FromQ(In<QLabel>(name)->text()); }
  std::string Status() { return TextOf("lblStatus"); }
  void Click(const char* name) { RunningProgram::Click(dialog_, name); }
  bool Running() { return !In<QPushButton>("cmdOK")->isEnabled(); }
  void Begin(const std::string& entry, const std::string& target) {
    In<QComboBox>("cmbFileRemoto")->setEditText(ToQ(entry));
    platform_.chosenFiles = {target};
    Click("cmdOK");
  }
  /// Begins over an old file and waits for the end.
  void Fetch(const std::string& entry) {
    ProgramFolder::WriteTo(target_, oldText);
    Begin(entry, target_);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Running(); }, 20000)) << entry;
  }
  std::string Saved() { return ProgramFolder::Read(target_); }
  /// Names beside the target that begin like it.
  int Beside() {
    int count = -1;
    for (const auto& entry : fs::directory_iterator(fs::path(target_).parent_path()))
      count += entry.path().filename().string().starts_with("target.txt") ? 1 : 0;
    return count;
  }
  static std::string Told(const char* key) { return LookupText("frmDownload", key); }

  QDialog* dialog_ = nullptr;
  std::string target_ = folder_.Path("target.txt");
};

TEST_F(NetTest, TheRequestIsSentByteForByteAndItsAnswerSaved) {
  TestServer server;
  server.answer = std::string(head) + "\r\nISS\r\n1 2\r\n";
  OpenDownload();
  EXPECT_EQ(In<QComboBox>("cmbFileRemoto")->count(), 31);
  EXPECT_EQ(In<QComboBox>("cmbFileRemoto")->currentText(), "celestrak.org/NORAD/elements/visual.txt");
  Fetch("http://" + server.Address("/NORAD/elements/visual.txt"));
  EXPECT_EQ(server.request, "GET /NORAD/elements/visual.txt HTTP/1.1\r\nHost: " + server.Address("") +
                                "\r\nConnection: close\r\nAccept: */*\r\n\r\n");
  EXPECT_EQ(platform_.fileQuestions.back().initial, folder_.Path("elements/visual.txt"));
  EXPECT_EQ(Saved(), "ISS\r\n1 2\r\n");
  EXPECT_EQ(Status(), Told("downloadcompleto"));
  EXPECT_EQ(In<QPushButton>("cmdCancel")->text(), ToQ(LookupText("Buttons", "close")));
  EXPECT_EQ(Beside(), 0);
  Fetch(server.Address(""));
  EXPECT_TRUE(server.request.starts_with("GET  HTTP/1.1\r\n"));
  Fetch(server.Address("/../" + std::string(1900, 'x')));
  EXPECT_EQ(Saved().size(), 10U);
  Click("cmdDownload");
  EXPECT_TRUE(IsFormLoaded("frmSettings")) << "where the list is edited";
  EXPECT_FALSE(IsFormLoaded("frmDownload"));
}

TEST_F(NetTest, EveryAnswerEndsInItsState) {
  const std::string chunked = std::string(head) + "Transfer-Encoding: chunked\r\n\r\n";
  const std::string most(0x7FFF, 'm'), binary("\0\xFF\r\n\r\n\x1A", 7);
  const std::string complete = Told("downloadcompleto"), stopped = InterruptedText();
  const std::string part = complete + "\n" + Told("fileincompleto");
  const std::string answered = complete + "\n" + Told("rispostaserver") + " ";
  const auto sized = [](const std::string& length) { return std::string(head) + length + "\r\n\r\nbody"; };
  Limits.Idle = 150;
  Limits.Header = 4000;
  const struct {
    std::string answer;
    End end;
    std::string body, status;  // a body of oldText means that nothing was written
  } rows[] = {
      {"", End::Close, oldText, stopped},
      {std::string(head) + "X: y\r\n", End::Close, oldText, stopped},
      {std::string(head) + std::string(5000, 'h') + "\r\n\r\nbody", End::Close, oldText, stopped},
      {std::string(5000, 'h'), End::Stay, oldText, stopped},
      {std::string(head) + "\r\n", End::Close, "", complete},
      {std::string(head) + "\r\n" + binary, End::Close, binary, complete},
      {sized("Content-Length: -4"), End::Close, "body", complete},
      {sized("Content-Length: 0"), End::Close, "body", complete},
      {sized("Content-Length: 2147483648"), End::Close, "body", complete},
      {sized("Content-Length: 2"), End::Close, "body", complete},
      {sized("Content-Length: 400"), End::Close, "body", complete},
      {sized("Content-Length:4"), End::Close, "body", complete},
      {sized("content-length: 4"), End::Close, "body", complete},
      {sized("transfer-encoding: chunked"), End::Close, "body", complete},
      {"HTTP/1.1 204 No Content\r\n\r\n", End::Close, "", answered + "204 No Content"},
      {"HTTP/1.1 301 Moved\r\nlocation: https://h/b<i>\r\n\r\nmoved", End::Close, "moved",
       answered + "301 Moved\n" + Told("nuovoindirizzo") + "\nhttps://h/b<i>"},
      {"HTTP/1.1 403 Forbidden\r\n\r\nno", End::Close, "no", answered + "403 Forbidden"},
      {"HTTP/1.1 404 Not\x01\xFF\r\n\r\nno", End::Close, "no", answered + "404 Not ÿ"},
      {"no status\r\n\r\nno", End::Close, "no", answered + "no status"},
      {chunked + "0\r\n\r\n", End::Close, "", complete},
      {chunked + "7FFF\r\n" + most + "\r\n0\r\n\r\n", End::Close, most, complete},
      {chunked + "2\r\nab\r\n8000\r\n" + most, End::Close, "ab", part},
      {chunked + "2\r\nab\r\nFFFFFFFFF\r\ncd", End::Close, "ab", part},
      {chunked + "2\r\nab\r\n-1\r\ncd", End::Close, "ab", part},
      {chunked + "5hello", End::Close, "", part},
      {chunked + "2\r\nab\r\n5\r\ncde", End::Close, "abcde", part},
      {std::string(head) + "\r\nbody", End::Stay, oldText, stopped},
      {sized("Content-Length: 5"), End::Stay, oldText, stopped},
      {sized("Content-Length: 4"), End::Stay, "body", complete},
      {chunked + "2\r\nab\r\n0\r\n\r\n", End::Stay, "ab", complete},
      {std::string(head), End::Reset, oldText, stopped},
  };
  TestServer server;
  OpenDownload();
  int row = 0;
  for (const auto& expected : rows) {
    server.answer = expected.answer;
    server.end = expected.end;
    Fetch(server.Address("/a.txt"));
    const bool wanted = expected.status == complete || expected.body == oldText;
    EXPECT_EQ(Saved(), expected.body) << row;
    EXPECT_EQ(Status(),
              wanted ? expected.status : expected.status + "\n" + Told("vecchiofile") + " target.txt.bak")
        << row;
    EXPECT_EQ(Beside(), wanted ? 0 : 1) << row;
    EXPECT_EQ(ProgramFolder::Read(target_ + ".bak"), wanted ? "" : oldText) << row;
    fs::remove(target_ + ".bak");
    ++row;
  }
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(NetTest, LargeBodiesComeWholeAndTooLargeOnesEnd) {
  std::string body, chunks;
  for (int i = 0; body.size() < 10U << 20U; ++i) body += "line " + std::to_string(i) + "\r\n";
  for (std::size_t at = 0; at < body.size(); at += 0x7000) {
    const std::string piece = body.substr(at, 0x7000);
    char size[16];
    std::snprintf(size, sizeof size, "%zx\r\n", piece.size());
    chunks += size + piece + "\r\n";
  }
  const std::string answers[] = {
      std::string(head) + "\r\n" + body,
      std::string(head) + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body,
      std::string(head) + "Transfer-Encoding: chunked\r\n\r\n" + chunks + "0\r\n\r\n"};
  TestServer server;
  OpenDownload();
  for (const std::string& answer : answers) {
    server.answer = answer;
    Fetch(server.Address("/a.txt"));
    EXPECT_TRUE(Saved() == body);
    EXPECT_EQ(Status(), Told("downloadcompleto"));
  }
  server.answer = std::string(head) + "\r\n\r\n" + body;
  server.repeats = 10;
  server.end = End::Stay;
  Fetch(server.Address("/a.txt"));
  EXPECT_EQ(Status(), InterruptedText());
  EXPECT_EQ(Saved(), oldText);
}

TEST_F(NetTest, AThrottledServerShowsSpeedAndTimeLeftAndCancelBringsTheOldFileBack) {
  TestServer server;
  server.end = End::Stay;
  OpenDownload();
  const auto begin = [&](const std::string& received) {
    ProgramFolder::WriteTo(target_, oldText);
    Begin(server.Address("/a.txt"), target_);
    return QTest::qWaitFor([&] { return received.empty() || TextOf("lblReceive") == received; }, 5000);
  };
  const auto cancelled = [&] {
    EXPECT_TRUE(Running());
    EXPECT_EQ(ProgramFolder::Read(target_ + ".bak"), oldText) << "kept while the transfer runs";
    Click("cmdCancel");
    EXPECT_FALSE(Running());
    EXPECT_EQ(Status(), InterruptedText());
    EXPECT_EQ(Saved(), oldText);
    EXPECT_EQ(Beside(), 0);
  };
  begin("");  // the connection is not made yet
  EXPECT_EQ(Status(), Told("connessioneincorso"));
  cancelled();
  server.answer.clear();
  begin("");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Status() == Told("richiestainoltrata"); }, 5000));
  cancelled();
  server.answer = std::string(head) + "Content-Length: 10240\r\n\r\n";
  begin("");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Status() == Told("ricezioneincorso"); }, 5000));
  auto* const timer = In<QTimer>("tmrTimeLeft");
  timer->start(100000);
  server.Send(std::string(2048, 'a'));
  ASSERT_TRUE(QTest::qWaitFor([&] { return TextOf("lblReceive") == "2048 bytes"; }, 5000));
  EXPECT_EQ(TextOf("lblSize"), "10240 bytes");
  EXPECT_EQ(FromQ(In<ProgressBar>("ProgressBar1")->Percentage()), "20%");
  platform_.milliseconds += 2000;
  timer->start(1);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !TextOf("lblSpeed").empty(); }, 5000));
  timer->start(100000);
  EXPECT_EQ(TextOf("lblSpeed"), "1.02 KB");
  EXPECT_EQ(TextOf("lblElapsed"), "00:00:01");
  EXPECT_EQ(TextOf("lblRemaining"), "00:00:07");
  for (int i = 0; i < 10; ++i) {
    server.Send("b");
    QTest::qWait(1);
  }
  EXPECT_EQ(TextOf("lblReceive"), "2058 bytes");
  cancelled();
  fs::remove(target_);
  Begin(server.Address("/a.txt"), target_);
  QTest::keyClick(dialog_, Qt::Key_Escape);
  EXPECT_EQ(Status(), InterruptedText());
  EXPECT_FALSE(fs::exists(target_));
  QTest::keyClick(dialog_, Qt::Key_Escape);
  EXPECT_FALSE(IsFormLoaded("frmDownload"));
  EXPECT_TRUE(platform_.messages.empty()) << "nothing is offered where nothing came";
}

TEST_F(NetTest, EntriesAndTargetsThatCannotBeUsedChangeNothing) {
  TestServer server;
  server.answer = std::string(head) + "\r\nnew";
  OpenDownload();
  for (const char* const entry : {"", "   "}) Begin(entry, target_);
  EXPECT_EQ(Status(), "");
  for (const char* const entry : {"ftp://h/a", "two words/a", "/a", "h:99999/a"}) {
    Begin(entry, target_);
    EXPECT_EQ(Status(), Told("indirizzononvalido")) << entry;
  }
  EXPECT_TRUE(platform_.fileQuestions.empty());
  Begin(server.Address("/a"), "");
  EXPECT_FALSE(Running()) << "a cancelled chooser ends it silently";
  const std::string nowhere[] = {"no.such.host.invalid/a", std::string(2000, 'h'), "127.0.0.1:1/a", "..../a"};
  for (const std::string& entry : nowhere) {
    platform_.messages.clear();
    Fetch(entry);
    EXPECT_THAT(platform_.messages.at(0).text, testing::StartsWith("Error #: ")) << entry;
    EXPECT_EQ(Saved(), oldText);
  }
  platform_.messages.clear();
  Begin(server.Address("/a"), folder_.Path("elements"));
  EXPECT_EQ(platform_.messages.size(), 1U) << "a folder is no file";
  EXPECT_FALSE(Running());
  platform_.refuseWriting = true;
  Fetch(server.Address("/a"));
  EXPECT_EQ(platform_.messages.size(), 2U) << "a full disk";
  EXPECT_EQ(Status(), InterruptedText());
  EXPECT_EQ(Saved(), oldText);
  EXPECT_EQ(Beside(), 0);
  platform_.refuseWriting = false;
  fs::create_directory(folder_.Path("gone"));
  Begin(server.Address("/a"), folder_.Path("gone/a.txt"));
  fs::remove(folder_.Path("gone"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !Running(); }, 5000));
  EXPECT_EQ(ProgramFolder::Read(folder_.Path("gone/a.txt")), "new");
}

TEST_F(NetTest, OnlyACertificateThatIsValidForTheServerIsTaken) {
  bool cut = false;
  OpenDownload();
  for (const char* const name : {"good.pem", "good.pem", "expired.pem", "othername.pem", "selfsigned.pem"}) {
    TestServer server(name);
    server.end = cut ? End::Cut : End::Close;
    cut = true;
    server.answer = std::string(head) + "\r\nnew";
    platform_.messages.clear();
    Fetch("https://" + server.Address("/a.txt"));
    const bool good = std::string(name) == "good.pem";
    EXPECT_EQ(Saved(), good ? "new" : oldText) << name;
    EXPECT_EQ(server.request.empty(), !good) << name;
    EXPECT_EQ(platform_.messages.size(), good ? 0U : 1U) << name;
    if (good) continue;
    EXPECT_THAT(platform_.messages.at(0).text, testing::HasSubstr(Told("certificatorifiutato"))) << name;
  }
}

TEST_F(NetTest, TheCheckOfTheConnectionIsKeptAndAHint) {
  platform_.connected = false;
  TimePort = 1;
  const struct {
    const char *command, *form, *settings;
  } rows[] = {{"mnuStrumentiDownload", "frmDownload", "Download"},
              {"mnuStrumentiSincronizzazione", "frmSyncro", "ServerNTP"}};
  for (const auto& row : rows) {
    Open(row.command, row.form);
    EXPECT_FALSE(In<QCheckBox>("chkConnessione")->isChecked());
    QTest::mouseClick(In<QCheckBox>("chkConnessione"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(GetRegistryString(settingsApplication, row.settings, "Verifica connessione", ""), "-1");
    Click("cmdOK");
    EXPECT_EQ(Status(), LookupText(row.form, "noconnessione"));
    EXPECT_FALSE(Running());
    Click("cmdCancel");
    EXPECT_FALSE(IsFormLoaded(row.form));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Open(row.command, row.form);
    EXPECT_TRUE(In<QCheckBox>("chkConnessione")->isChecked());
    Click("cmdHelp");
    dialog_->close();
  }
  EXPECT_EQ(platform_.helpTopics, (std::vector<int>{170, 180}));
}

/// From the catalogue's button to the new rows of the catalogue.
TEST_F(NetTest, ADownloadedFileIsReadAgainOnDemandAndPredicted) {
  const std::string sample = ProgramFolder::Read(folder_.Path("elements/sample.txt"));
  std::size_t end = 0;
  for (int line = 0; line < 30; ++line) end = sample.find('\n', end) + 1;
  TestServer server;
  server.answer =
      head + std::string("Content-Length: ") + std::to_string(end) + "\r\n\r\n" + sample.substr(0, end);
  QTest::mouseClick(Control<QWidget>(window_.get(), "StatusBar1.Panel", 2), Qt::LeftButton);
  ASSERT_EQ(PrimaryDatabase.Count(), 175);
  for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
    QTest::mouseClick(Control<QPushButton>(Form("frmDatabase"), "cmdDownload", 0), Qt::LeftButton);
    dialog_ = Control<QDialog>(window_.get(), "frmDownload");
    Begin(server.Address("/NORAD/elements/sample.txt"), PrimaryDatabasePath);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Running(); }, 5000));
    platform_.messages.clear();
    platform_.answers = {answer};
    Click("cmdCancel");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(platform_.messages.at(0).text, Told("aggiornasatelliti1") + "\n" + Told("aggiornasatelliti2"));
    EXPECT_EQ(PrimaryDatabase.Count(), answer == MessageAnswer::Yes ? 10 : 175);
  }
  // and on to the passes of what has come
  Item("mnuSatellitiPrevisioniPassaggi")->trigger();
  QWidget* const passes = Form("frmVisibleSatellites");
  QTest::mouseClick(Control<QAbstractButton>(passes, "chkTransito"), Qt::LeftButton, {}, QPoint(8, 8));
  Control<QComboBox>(passes, "cmbDurata", 0)->setCurrentIndex(6);
  QTest::mouseClick(Control<QAbstractButton>(passes, "cmdOK", 0), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_GT(Control<QAbstractItemView>(passes, "lvwPass", 0)->model()->rowCount(), 5);
}

TEST_F(NetTest, TheClockIsSetOnlyWhenTheServiceSaysSo) {
  const auto text = [](const char* key) { return LookupText("frmSyncro", key); };
  const std::string invalid = text("rispostanonvalida"), failed = text("nosincronizzazione");
  // 14 June 2022, 12:00:10, ten seconds ahead of the computer
  const std::string right("\xE6\x52\xF6\xCA", 4);
  const std::string offset = text("scarto") + " +10";
  const struct {
    std::string reply;
    End end;
    std::optional<ClockAnswer> answer;
    std::string status;
  } rows[] = {
      {"", End::Close, {}, invalid},
      {"abc", End::Close, {}, invalid},
      {"abcde", End::Close, {}, invalid},
      {std::string(4, ' '), End::Close, {}, invalid},
      {right.substr(0, 3) + " ", End::Close, {}, invalid},
      {std::string(4, '\0'), End::Close, {}, invalid},
      {std::string(70000, ' '), End::Stay, {}, invalid},
      {right, End::Stay, {}, failed},
      {" " + right + " ", End::Close, ClockAnswer{false, "not now"}, offset + "\n" + failed + "\nnot now"},
      {right, End::Close, ClockAnswer{true, {}}, offset + "\n" + text("oksincronizzazione")}};
  Limits.Idle = 150;
  TestServer server;
  server.awaitRequest = false;
  TimePort = server.serverPort();
  Open("mnuStrumentiSincronizzazione", "frmSyncro");
  EXPECT_EQ(In<QComboBox>("cmbURL")->count(), 10);
  for (const auto& row : rows) {
    server.answer = row.reply;
    server.end = row.end;
    platform_.clockAnswer = row.answer;
    platform_.messages.clear();
    platform_.clockOrders.clear();
    In<QComboBox>("cmbURL")->setEditText(QStringLiteral(" 127.0.0.1 "));
    Click("cmdOK");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Status() == row.status; }, 5000)) << Status();
    EXPECT_EQ(platform_.clockOrders.size(), row.answer ? 1U : 0U) << row.status;
    EXPECT_EQ(platform_.messages.size(), row.status == failed ? 1U : 0U) << row.status;
    EXPECT_EQ(Running(), row.answer && row.answer->set) << "the button stays off only where the clock is set";
  }
  EXPECT_EQ(In<QPushButton>("cmdCancel")->text(), ToQ(LookupText("Buttons", "close")));
  Click("cmdCancel");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  // a service that takes its time: nothing is claimed before it answers
  Open("mnuStrumentiSincronizzazione", "frmSyncro");
  platform_.clockAnswer.reset();
  In<QComboBox>("cmbURL")->setEditText(QStringLiteral("127.0.0.1"));
  Click("cmdOK");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status() == offset; }, 5000));
  EXPECT_TRUE(Running());
  Click("cmdCancel");
  platform_.clockAsked({true, {}});
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  platform_.clockAsked({true, {}});
}

#ifdef HALVORINE_DBUS
/// A time service that only writes down what it is asked.
class FakeTimeService : public QDBusVirtualObject {
 public:
  QDBusMessage order;
  QString refusal;
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    order = message;
    return connection.send(refusal.isEmpty()
                               ? message.createReply()
                               : message.createErrorReply(QStringLiteral("org.freedesktop.test"), refusal));
  }
};

TEST_F(NetTest, TheTimeServiceIsAskedInItsOwnTerms) {
  FakeTimeService service;
  QDBusServer server(QStringLiteral("unix:tmpdir=/tmp"));
  QObject::connect(&server, &QDBusServer::newConnection, &service, [&service](QDBusConnection connection) {
    connection.registerVirtualObject(QStringLiteral("/org/freedesktop/timedate1"), &service);
  });
  const QDBusConnection bus = QDBusConnection::connectToPeer(server.address(), QStringLiteral("clock"));
  for (const char* const refusal : {"", "Automatic time synchronization is enabled"}) {
    service.refusal = QString::fromLatin1(refusal);
    std::optional<ClockAnswer> answer;
    SetClockByService(
        bus, DateOf(2022, 6, 14) + 0.5, [&answer](const ClockAnswer& given) { answer = given; },
        [] { ADD_FAILURE() << "the service is there"; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, 5000));
    EXPECT_EQ(answer->set, *refusal == '\0');
    EXPECT_EQ(answer->reason, refusal);
    EXPECT_EQ(service.order.member(), "SetTime");
    EXPECT_EQ(service.order.signature(), "xbb");
    EXPECT_EQ(service.order.arguments(), (QVariantList{qlonglong{1655208000000000}, false, true}));
    EXPECT_TRUE(service.order.isInteractiveAuthorizationAllowed());
  }
  QDBusConnection::disconnectFromPeer(QStringLiteral("clock"));
}
#endif

}  // namespace
}  // namespace halvorine
