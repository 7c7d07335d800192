#include "LookSampler.h"

#include <QDir>
#include <QPainter>
#include <QWidget>
#include <cmath>

namespace halvorine {

QImage Grabbed(QWidget* window, const QString& name) {
  const QImage picture = window->grab().toImage();
  const QDir folder(QStringLiteral(TEST_PROGRAM_DIR "/../grabs"));
  if (folder.mkpath(QStringLiteral("."))) picture.save(folder.filePath(name + QStringLiteral(".png")));
  return picture;
}

int PixelsNotRed(const QImage& picture) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb c = picture.pixel(x, y);
      const bool disabled = std::abs(qGreen(c) - qBlue(c)) <= 1 && qGreen(c) <= 129 && qRed(c) <= 129;
      if ((qGreen(c) > 0 || qBlue(c) > 0) && !disabled) ++count;
    }
  return count;
}

int PixelsNotRed(QWidget* window, const QString& name) {
  QImage picture = Grabbed(window, name);
  QPainter painter(&picture);
  for (const QWidget* const area : window->findChildren<QWidget*>())
    if (area->isVisible() && area->objectName().startsWith(QLatin1String("lblAreaColore")))
      painter.fillRect(QRect(area->mapTo(window, QPoint(0, 0)), area->size()), Qt::black);
  painter.end();
  return PixelsNotRed(picture);
}

}  // namespace halvorine
