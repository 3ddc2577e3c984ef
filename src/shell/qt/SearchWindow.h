// The Search window and the New Criteria dialog in Qt, bound to frmSrch and
// frmCriteria: three tabs (databases, criteria, results), lists with several
// rows selectable, sortable result columns, and the progress of a run.
#pragma once

#include <QWidget>

#include "search/frmCriteria.h"
#include "search/frmSrch.h"
#include "shell/qt/FormHost.h"

class QTabWidget;

namespace bw::qt {

class SearchWindow : public QWidget {
    Q_OBJECT
public:
    explicit SearchWindow(frmSrch& model, QWidget* parent = nullptr);
    QTabWidget* Tabs() const { return tabs_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    frmSrch& model_;
    QTabWidget* tabs_ = nullptr;
};

class CriteriaDialog : public BoundDialog {
    Q_OBJECT
public:
    explicit CriteriaDialog(frmCriteria& model, QWidget* parent = nullptr);

protected:
    void Dismiss() override { model_.PButCancel_Click(); }
    bool Accepted() const override { return model_.wCancel == 0; }

private:
    frmCriteria& model_;
};

}  // namespace bw::qt
