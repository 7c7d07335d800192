#include "shell/frmTime.h"

#include <QVBoxLayout>

#include "shell/base/mGlobal.h"

namespace halvorine {

frmTime::frmTime() : ChildForm(QStringLiteral("frmTime")) {
  auto* const layout = new QVBoxLayout(this);
  chkUsaOraPc_ = Named(new QCheckBox(Text("frmTime", "usaorapc")), "chkUsaOraPc");
  chkUsaOraPc_->setChecked(true);
  layout->addWidget(chkUsaOraPc_);
  setWindowTitle(Text("frmTime", "datatempo"));
  // the clock stands at once when the simulation is chosen, and goes on with the computer's time
  connect(chkUsaOraPc_, &QCheckBox::toggled, this, [](bool on) { TickEnabled = on; });
  Publish(this);
}

}  // namespace halvorine
