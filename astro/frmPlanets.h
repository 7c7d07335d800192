// frmPlanets: the table of planets, Sun and Moon, which every tick refreshes.
#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include "astro/mSkyTexts.h"
#include "shell/base/qtForms.h"

namespace halvorine {

/// The table as the list shows it.
class PlanetModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;
  void Refresh();
  void SortBy(int column);
  bool Descending() const { return table_.Descending(); }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void Changed();
  PlanetTable table_;
};

class frmPlanets : public ChildForm, public RefreshCalls {
  Q_OBJECT
 public:
  frmPlanets();
  void Unload() override { UnloadForm(); }
  void Show() override { ShowForm(); }
  void Aggiorna_dati() override { model_->Refresh(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int SizeColumns();

  QTreeView* lvwPlanets_;
  PlanetModel* model_;
};

}  // namespace halvorine
