#include "shell/qt/WDataDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {
QLabel* Value(Label& model, QWidget* parent) {
    auto* l = MakeBound<QLabel>(model, parent, BindLabel);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}
}  // namespace

WDataDialog::WDataDialog(frmWData& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    auto* outer = new QVBoxLayout(this);

    auto* name = Value(model_.LName, this);
    QFont f = name->font();
    f.setPointSizeF(f.pointSizeF() * 1.3);
    f.setBold(true);
    name->setFont(f);
    outer->addWidget(name);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(18);
    int row = 0;
    auto pair = [&](const char* caption, Label& a, int col) {
        auto* c = new QLabel(tr(caption), this);
        c->setStyleSheet("color: #4a5563;");
        grid->addWidget(c, row, col * 2);
        grid->addWidget(Value(a, this), row, col * 2 + 1);
    };
    pair("Category:", model_.LType, 0), pair("Tonnage:", model_.LTonnage, 1), ++row;
    pair("Tech base:", model_.LBase, 0), pair("Heat:", model_.LHeat, 1), ++row;
    pair("Tech level:", model_.LLevel, 0), pair("Damage:", model_.LDamage, 1), ++row;
    pair("Cost (C-bills):", model_.LCost, 0), pair("Shots per ton:", model_.LShots, 1), ++row;
    pair("Combat value:", model_.lCV, 0), ++row;
    outer->addLayout(grid);

    auto* ranges = new QGroupBox(tr("Range"), this);
    auto* rl = new QGridLayout(ranges);
    const char* heads[] = {"Minimum", "Short", "Medium", "Long"};
    Label* vals[] = {&model_.LMin, &model_.LShort, &model_.LMedium, &model_.LLong};
    for (int i = 0; i < 4; ++i) {
        auto* h = new QLabel(tr(heads[i]), ranges);
        h->setAlignment(Qt::AlignCenter);
        rl->addWidget(h, 0, i);
        auto* v = Value(*vals[i], ranges);
        v->setAlignment(Qt::AlignCenter);
        rl->addWidget(v, 1, i);
    }
    outer->addWidget(ranges);

    AddDoneFooter(this, outer, model_.PButDone);
    setMinimumWidth(380);
}

}  // namespace bw::qt
