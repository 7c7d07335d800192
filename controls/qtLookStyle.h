// The one style of all windows, over Fusion: flat, with one-pixel edges, and without a colour of its own.
#pragma once

#include <QProxyStyle>

namespace halvorine {

class LookStyle : public QProxyStyle {
 public:
  LookStyle();
};

}  // namespace halvorine
