#include "catalogue/frmChannel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "astro/mConv.h"
#include "catalogue/mElementFile.h"
#include "controls/qtLook.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmChannel";
constexpr int channelCount = 10;
constexpr int listFrame = 1, rowInset = 6;  // logical pixels from the edge of a list to its text

std::int16_t& ChannelOfRow(int panelRow) {
  if (panelRow < 0 || panelRow >= static_cast<int>(Options.RadioChannel.size()))
    throw SubscriptFailure("the live panel has no row " + std::to_string(panelRow));
  return Options.RadioChannel[static_cast<std::size_t>(panelRow)];
}

/// Shows what stands before and behind the tabulator of a row in the two halves of the list.
class TwoColumns : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    const QStringList parts = item.text.split(QLatin1Char('\t'));
    for (int column = 0; column < parts.size(); ++column) {
      item.rect = option.rect.adjusted(column * option.rect.width() / 2, 0, 0, 0);
      item.text = parts[column].trimmed();
      item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    }
  }
};

}  // namespace

frmChannel::frmChannel() : ModalForm(QString::fromLatin1(section)) {
  setWindowTitle(Text(section, "selezionecanale"));
  List1_ = Named(new QListWidget(), "List1");
  List1_->setFont(ColumnFont());
  List1_->setItemDelegate(new TwoColumns(List1_));
  List1_->setAccessibleName(windowTitle());
  auto* const heads = new QHBoxLayout();
  heads->setContentsMargins(listFrame, 0, listFrame, 0);
  heads->setSpacing(0);
  for (const char* const key : {"downlink", "uplink"}) {
    auto* const label = Named(new QLabel(Text(section, key)), key);
    label->setForegroundRole(MutedRole);
    label->setIndent(rowInset);
    heads->addWidget(label, 1);
  }
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  rows->addLayout(heads);
  rows->addWidget(List1_);
  rows->addSpacing(4);
  rows->addLayout(MakeButtons());
  connect(List1_, &QListWidget::itemDoubleClicked, this, &frmChannel::cmdOK_Click);
  resize(280, 330);
  Publish(this);
}

void frmChannel::Choose(int slot, int panelRow) {
  Fill(slot, panelRow);
  ShowForm();
}

void frmChannel::Fill(int slot, int panelRow) {
  const ElementSet& set = ElementSets[slot];
  const int current = ChannelOfRow(panelRow);
  panelRow_ = panelRow;
  List1_->clear();
  for (int channel = 1; channel <= channelCount; ++channel) List1_->addItem(ToQ(ChannelRow(set, channel)));
  List1_->setCurrentRow(current >= 1 && current <= channelCount ? current - 1 : -1);
}

QLayout* frmChannel::MakeButtons() {
  auto* const ok = Named(new QPushButton(Text("Buttons", "ok")), "cmdOK");
  auto* const cancel = Named(new QPushButton(Text("Buttons", "cancel")), "cmdCancel");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmChannel::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* const buttons = new QHBoxLayout();
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  return buttons;
}

int frmChannel::Channel() const { return ChannelOfRow(panelRow_); }

void frmChannel::cmdOK_Click() {
  if (List1_->currentRow() >= 0) ChannelOfRow(panelRow_) = ToInt16(List1_->currentRow() + 1);
  if (auto* const panel = Loaded<TrackCalls>("frmTrack")) panel->SetChannel(panelRow_);
  accept();
}

}  // namespace halvorine
