#include "shell/qt/CostWindow.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {

constexpr int kTopMargin = 14;
constexpr int kAxisHeight = 34;
constexpr int kRightMargin = 16;
// The chart shows at least the reach of a map-range weapon.
constexpr int kMinHexes = kMapRangeLastIndex + 2;

QColor FromWindowsColor(int32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }

QLabel* Bound(Label& model, QWidget* parent) { return MakeBound<QLabel>(model, parent, BindLabel); }

QTreeWidget* List(ListView& model, QWidget* parent) {
    auto* t = new QTreeWidget(parent);
    t->setObjectName(QString::fromStdString(model.Name));
    t->setRootIsDecorated(false);
    t->setAlternatingRowColors(true);
    BindListView(t, model);
    t->header()->setStretchLastSection(false);
    t->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    t->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    return t;
}

}  // namespace

DamageChart::DamageChart(frmCost& model, QWidget* parent)
    : QWidget(parent), model_(model), alive_(model.Window.Lifetime()) {
    setObjectName("picDamage");
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, Qt::white);
    setPalette(p);
    model_.ChartChanged = [this] {
        setMinimumSize(sizeHint());
        updateGeometry();
        update();
    };
    setMinimumSize(sizeHint());
}

DamageChart::~DamageChart() {
    if (!alive_.expired()) model_.ChartChanged = nullptr;
}

int DamageChart::BaseLineY() const { return kTopMargin + Px(kDamageCapHeight); }

QSize DamageChart::sizeHint() const {
    if (alive_.expired()) return {};
    int32_t right = kDamageChartLeft + kMinHexes * kDamageStepWidth;
    for (const DamageShape& s : model_.shpDamage) right = std::max(right, s.Left + s.Width);
    return {Px(right) + kRightMargin, BaseLineY() + kAxisHeight};
}

void DamageChart::paintEvent(QPaintEvent*) {
    if (alive_.expired()) return;
    QPainter g(this);
    const int base = BaseLineY();
    const int origin = Px(kDamageChartLeft);
    const int right = width() - kRightMargin;
    const QFontMetrics fm(font());

    // Damage axis: every 20 points, the cap marked "100+".
    g.setPen(QColor(0xD0, 0xD4, 0xDA));
    for (int v = 20; v <= kDamageCap; v += 20) {
        const int y = base - Px(v * kDamagePointHeight);
        g.drawLine(origin, y, right, y);
    }
    g.setPen(Qt::black);
    for (int v = 0; v <= kDamageCap; v += 20) {
        const int y = base - Px(v * kDamagePointHeight);
        g.drawLine(origin - 4, y, origin, y);
        const QString t = v == kDamageCap ? QStringLiteral("100+") : QString::number(v);
        g.drawText(QRect(0, y - fm.height() / 2, origin - 7, fm.height()), Qt::AlignRight | Qt::AlignVCenter, t);
    }

    // The bars, on the base line.
    for (const DamageShape& s : model_.shpDamage) {
        if (!s.Visible) continue;
        const QRect r(Px(s.Left), base - Px(s.Height), Px(s.Width), Px(s.Height));
        const QColor c = FromWindowsColor(s.Color);
        g.fillRect(r, c);
        g.setPen(c);
        g.drawRect(r.adjusted(0, 0, -1, -1));
    }

    // Axes over the bars, range ticks every five hexes.
    g.setPen(Qt::black);
    g.drawLine(origin, kTopMargin - 4, origin, base);
    g.drawLine(origin, base, right, base);
    const int step = Px(kDamageStepWidth);
    for (int hex = 0; origin + hex * step <= right; hex += 5) {
        const int x = origin + hex * step;
        g.drawLine(x, base, x, base + 4);
        g.drawText(QRect(x - 20, base + 5, 40, fm.height()), Qt::AlignHCenter | Qt::AlignTop, QString::number(hex));
    }
    g.drawText(QRect(origin, base + 5 + fm.height(), right - origin, fm.height()), Qt::AlignHCenter | Qt::AlignTop,
               tr("Range (hexes)"));
}

CostDialog::CostDialog(frmCost& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    auto* outer = new QVBoxLayout(this);
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("tabCost");
    outer->addWidget(tabs);

    // Cost: the three lists side by side, each with its subtotal.
    auto* cost = new QWidget(tabs);
    auto* grid = new QGridLayout(cost);
    struct Column {
        ListView* list;
        Label* caption;
        Label* value;
    } cols[] = {{&model_.lvParts, &model_.lblPartsSubtotal, &model_.lPartsSubtotal},
                {&model_.lvWeapons, &model_.lblWeapSubtotal, &model_.lWeapSubtotal},
                {&model_.lvAmmo, &model_.lblAmmoSubtotal, &model_.lAmmoSubtotal}};
    for (int i = 0; i < 3; ++i) {
        grid->addWidget(List(*cols[i].list, cost), 0, i * 2, 1, 2);
        grid->addWidget(Bound(*cols[i].caption, cost), 1, i * 2);
        auto* v = Bound(*cols[i].value, cost);
        v->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(v, 1, i * 2 + 1);
    }
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(2, 2);
    grid->setColumnStretch(4, 2);
    auto* totals = new QGridLayout;
    totals->addWidget(Bound(model_.lblMultiplier, cost), 0, 0);
    totals->addWidget(Bound(model_.lVhlMultiplier, cost), 0, 1);
    totals->addWidget(Bound(model_.lblTotalCost, cost), 1, 0);
    auto* total = Bound(model_.lTotalCost, cost);
    QFont bold = total->font();
    bold.setBold(true);
    total->setFont(bold);
    totals->addWidget(total, 1, 1);
    totals->addWidget(Bound(model_.lblCV, cost), 2, 0);
    totals->addWidget(Bound(model_.lCV, cost), 2, 1);
    totals->setColumnStretch(2, 1);
    grid->addLayout(totals, 2, 0, 1, 6);
    tabs->addTab(cost, tr("Cost"));

    // Damage: the chart in its panel, the two figures under it.
    auto* damage = new QWidget(tabs);
    auto* dl = new QVBoxLayout(damage);
    auto* panel = new QGroupBox(damage);
    panel->setObjectName("fraDamage");
    panel->setTitle(FromModel(model_.fraDamage.Caption()));
    auto* pl = new QVBoxLayout(panel);
    auto* scroll = new QScrollArea(panel);
    scroll->setWidget(new DamageChart(model_, scroll));
    // The chart fills the panel's width and scrolls when the range is longer.
    scroll->setWidgetResizable(true);
    scroll->setMinimumHeight(scroll->widget()->sizeHint().height() + 20);
    scroll->setFrameShape(QFrame::NoFrame);
    pl->addWidget(scroll);
    dl->addWidget(panel);
    auto* figures = new QGridLayout;
    figures->addWidget(Bound(model_.lblDamVhl, damage), 0, 0);
    figures->addWidget(Bound(model_.lDamVhl, damage), 0, 1);
    figures->addWidget(Bound(model_.lblDamWeap, damage), 1, 0);
    figures->addWidget(Bound(model_.lDamWeap, damage), 1, 1);
    figures->setColumnStretch(2, 1);
    dl->addLayout(figures);
    dl->addStretch(1);
    tabs->addTab(damage, tr("Damage"));

    AddDoneFooter(this, outer, model_.PButDone);
    resize(820, 460);
}

}  // namespace bw::qt
