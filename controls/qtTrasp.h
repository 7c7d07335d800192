// Transparency on the screen: the opacity of a window, and pictures with a key colour.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>

namespace halvorine {

/// Gives a window an opacity, 0 to 255. A number outside of that changes nothing; false then. Where the
/// desktop cannot show it, there is nothing to see of it.
bool ImpostaOpacita(QWidget& window, int opacity);

/// A copy of a picture whose pixels of a key colour (blue*65536 + green*256 + red) are clear, so that it
/// leaves them out where it is painted. To be made before the picture is scaled, or a mixture with the key is
/// left at the edges.
QImage CopiaTrasparente(const QImage& source, std::int32_t key);

}  // namespace halvorine
