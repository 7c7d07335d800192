#include "controls/qtIcons.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>

#include "controls/mNight.h"
#include "controls/qtLookStyle.h"

// the pictures stand in a static library, whose resources do not announce themselves
static void AnnounceResources() { Q_INIT_RESOURCE(halvorine); }

namespace halvorine {

namespace {

constexpr int iconSize = 24;  // pixels of a picture at ratio 1

void HaveResources() {
  static const bool once = [] {
    AnnounceResources();
    return true;
  }();
  static_cast<void>(once);
}

QString FileOf(const QString& name, const char* size) {
  return QStringLiteral(":/icons/") + name + QLatin1String(size) + QStringLiteral(".png");
}

/// The picture scaled to pixels of the device, from the smallest that has them; few are there four times as
/// large.
QImage LoadImage(const QString& name, int pixels) {
  HaveResources();
  QImage image;
  if (pixels > 2 * iconSize) image = QImage(FileOf(name, "@4x"));
  if (image.isNull()) image = QImage(FileOf(name, pixels == iconSize ? "" : "@2x"));
  if (image.isNull()) image = QImage(FileOf(name, ""));
  if (image.isNull() || image.width() == pixels) return image;
  return image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

template <class Change>
QImage Changed(const QImage& day, Change change) {
  QImage image = day.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    QRgb* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) row[x] = qRgba(change(row[x]), 0, 0, qAlpha(row[x]));
  }
  return image;
}

QPixmap Faint(const QPixmap& pixmap) {
  QPixmap faint(pixmap.size());
  faint.setDevicePixelRatio(pixmap.devicePixelRatio());
  faint.fill(Qt::transparent);
  QPainter painter(&faint);
  painter.setOpacity(0.35);
  painter.drawPixmap(0, 0, pixmap);
  return faint;
}

class LookIconEngine : public QIconEngine {
 public:
  explicit LookIconEngine(const QString& name) : name_(name) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const double ratio = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
    const int pixels = std::max(1, std::min(size.width(), size.height()));
    const bool night = IsNight(QApplication::palette()), disabled = mode == QIcon::Disabled;
    const QString key =
        QStringLiteral("halvorine/%1/%2/%3%4").arg(name_).arg(pixels).arg(night).arg(disabled);
    QPixmap found;
    if (QPixmapCache::find(key, &found)) return found;
    const QImage day = LoadImage(name_, pixels);
    found = QPixmap::fromImage(night ? NightIconImage(day) : day);
    if (disabled) found = Faint(found);
    QPixmapCache::insert(key, found);
    return found;
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal /*scale*/) override {
    return pixmap(size, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    const int side = std::min(size.width(), size.height());
    return {side, side};
  }
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    return {QSize(16, 16), QSize(iconSize, iconSize), QSize(2 * iconSize, 2 * iconSize)};
  }
  QIconEngine* clone() const override { return new LookIconEngine(name_); }
  bool isNull() override { return false; }

 private:
  QString name_;
};

/// An icon of the window system, red while it is night; windows keep such icons, so that they follow.
class FollowingEngine : public QIconEngine {
 public:
  explicit FollowingEngine(const QIcon& day) : day_(day) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const double ratio = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QPixmap pixmap = day_.pixmap(size, 1.0, mode, state);
    return IsNight(QApplication::palette()) ? QPixmap::fromImage(NightMapImage(pixmap.toImage())) : pixmap;
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return day_.availableSizes(mode, state);
  }
  QIconEngine* clone() const override { return new FollowingEngine(day_); }
  bool isNull() override { return day_.isNull(); }

 private:
  QIcon day_;
};

class ArrowEngine : public QIconEngine {
 public:
  explicit ArrowEngine(Qt::ArrowType direction) : direction_(direction) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    DrawArrow(painter, rect, direction_,
              QApplication::palette().color(QPalette::Active, QPalette::HighlightedText), rect.width() / 3);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }
  QIconEngine* clone() const override { return new ArrowEngine(direction_); }
  bool isNull() override { return false; }

 private:
  Qt::ArrowType direction_;
};

/// Names by the first word of each row of the numbering: "11" or, in the second list, "s6".
const QHash<QString, QString>& Numbering() {
  static const QHash<QString, QString> names = [] {
    HaveResources();
    QHash<QString, QString> table;
    QFile file(QStringLiteral(":/icons/numbers.txt"));
    if (file.open(QIODevice::ReadOnly)) {
      const QStringList rows = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
      for (const QString& row : rows)
        table.insert(row.section(QLatin1Char(' '), 0, 0), row.section(QLatin1Char(' '), 1).trimmed());
    }
    return table;
  }();
  return names;
}

QPixmap ListedIcon(const QString& number, bool night, double pixelRatio) {
  const QString name = Numbering().value(number);
  if (name.isEmpty()) return {};
  const QImage day = LoadImage(name, qRound(iconSize * pixelRatio));
  QPixmap pixmap = QPixmap::fromImage(night ? NightMapImage(day) : day);
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

QString SecondKey(int number) { return QStringLiteral("s%1").arg(number); }

}  // namespace

QIcon Icon(const char* name) {
  HaveResources();
  const QString text = QString::fromLatin1(name);
  return QFile::exists(FileOf(text, "")) ? QIcon(new LookIconEngine(text)) : QIcon();
}

QIcon ArrowIcon(Qt::ArrowType direction) { return QIcon(new ArrowEngine(direction)); }

QIcon NightIcon(const QIcon& icon) { return icon.isNull() ? icon : QIcon(new FollowingEngine(icon)); }

QString IconName(int number) { return Numbering().value(QString::number(number)); }

QPixmap MapIconIn(int number, bool night, double pixelRatio) {
  return ListedIcon(QString::number(number), night, pixelRatio);
}

QPixmap MapIcon(int number, double pixelRatio) {
  return MapIconIn(number, IsNight(QApplication::palette()), pixelRatio);
}

QPixmap SecondIconIn(int number, bool night, double pixelRatio) {
  return ListedIcon(SecondKey(number), night, pixelRatio);
}

QPixmap SecondIcon(int number, double pixelRatio) {
  return SecondIconIn(number, IsNight(QApplication::palette()), pixelRatio);
}

QImage NightIconImage(const QImage& day) {
  // the step lies between the accents (gold is the brightest, at 0.68) and the pale fills (from 0.8)
  return Changed(day, [](QRgb c) {
    const double luminance = (0.299 * qRed(c) + 0.587 * qGreen(c) + 0.114 * qBlue(c)) / 255;
    return qRound(255 * std::clamp((luminance - 0.68) / 0.12, 0.0, 1.0));
  });
}

QImage NightMapImage(const QImage& day) {
  return Changed(day, [](QRgb c) { return NightLevel(qRed(c), qGreen(c), qBlue(c)); });
}

}  // namespace halvorine
