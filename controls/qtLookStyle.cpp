#include "controls/qtLookStyle.h"

namespace halvorine {

LookStyle::LookStyle() : QProxyStyle(QStringLiteral("fusion")) {}

}  // namespace halvorine
