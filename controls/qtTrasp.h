// Transparency on the screen: the opacity of a window, and pictures with a key colour.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <cstdint>

namespace halvorine {

/// Gives a window an opacity, 0 to 255. A number outside of that changes nothing; false then. Where the
/// desktop cannot show it, there is nothing to see of it.
bool ImpostaOpacita(QWidget& window, int opacity);

/// A picture whose pixels of the key colour are clear. To be made before the picture is scaled, so that no
/// mixture with the key is left at the edges.
QImage WithoutKeyColour(const QImage& picture, std::int32_t key);

/// Copies a picture into a rectangle of the destination and leaves out its pixels of the key colour.
void CopiaTrasparente(QPainter& destination, const QImage& source, const QRect& rect, std::int32_t key);

}  // namespace halvorine
