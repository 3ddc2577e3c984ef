#include "shell/qt/SearchWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/Errors.h"
#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {

QPushButton* Button(CommandButton& c, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setObjectName(QString::fromStdString(c.Name));
    BindButton(b, c);
    b->setDefault(c.Default);
    b->setAutoDefault(c.Default);
    return b;
}

// A report list whose rows the user may select several at a time: the
// model's Selected flags follow the widget, and the model's ItemClick hears
// of every change. A header click runs the model's ColumnClick.
QTreeWidget* MultiList(ListView& c, QWidget* parent) {
    auto* w = new QTreeWidget(parent);
    w->setObjectName(QString::fromStdString(c.Name));
    w->setRootIsDecorated(false);
    w->setUniformRowHeights(true);
    w->setAllColumnsShowFocus(true);
    w->setSelectionMode(QAbstractItemView::ExtendedSelection);
    w->setSelectionBehavior(QAbstractItemView::SelectRows);
    w->header()->setSectionsClickable(true);
    w->header()->setStretchLastSection(true);
    Watch(w, c, [&c](QTreeWidget* x) {
        QSignalBlocker b(x);
        QStringList headers;
        for (const auto& h : c.ColumnHeaders) headers << FromModel(h);
        x->setColumnCount(std::max<int>(1, static_cast<int>(headers.size())));
        x->setHeaderLabels(headers);
        bool same = x->topLevelItemCount() == c.Count();
        for (int32_t i = 0; same && i < c.Count(); ++i) {
            const auto& it = c.Item(i);
            const QTreeWidgetItem* row = x->topLevelItem(i);
            same = row->text(0) == FromModel(it.Text);
            for (size_t s = 1; same && s <= it.SubItems.size(); ++s)
                same = row->text(static_cast<int>(s)) == FromModel(it.SubItem(s));
        }
        if (!same) {
            x->clear();
            QList<QTreeWidgetItem*> rows;
            for (int32_t i = 0; i < c.Count(); ++i) {
                const auto& it = c.Item(i);
                auto* row = new QTreeWidgetItem;
                row->setText(0, FromModel(it.Text));
                for (size_t s = 1; s <= it.SubItems.size(); ++s)
                    row->setText(static_cast<int>(s), FromModel(it.SubItem(s)));
                rows << row;
            }
            x->addTopLevelItems(rows);
            for (int col = 0; col + 1 < x->columnCount(); ++col) x->resizeColumnToContents(col);
        }
        for (int32_t i = 0; i < c.Count(); ++i) x->topLevelItem(i)->setSelected(c.Item(i).Selected);
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, &QTreeWidget::itemSelectionChanged, [&c, w] {
        zTrapVoid(c.Name.c_str(), [&] {
            for (int32_t i = 0; i < c.Count() && i < w->topLevelItemCount(); ++i)
                c.Item(i).Selected = w->topLevelItem(i)->isSelected();
            if (c.ItemClick) c.ItemClick(w->currentIndex().row());
        });
    });
    QObject::connect(w, &QTreeWidget::itemDoubleClicked, [&c](QTreeWidgetItem*, int) {
        if (c.DblClick) c.DblClick();
    });
    QObject::connect(w->header(), &QHeaderView::sectionClicked, [&c](int column) {
        if (c.ColumnClick) c.ColumnClick(column);
    });
    return w;
}

// A frame whose title is a model label's caption and that shows with it.
QGroupBox* Frame(Label& c, QWidget* parent) {
    auto* g = new QGroupBox(parent);
    g->setObjectName(QString::fromStdString(c.Name));
    Watch(g, c, [&c](QGroupBox* x) {
        x->setTitle(FromModel(c.Caption()));
        x->setVisible(c.Visible());
    });
    return g;
}

QLabel* BoundLabel(Label& c, QWidget* parent) {
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromStdString(c.Name));
    BindLabel(l, c);
    return l;
}

}  // namespace

SearchWindow::SearchWindow(frmSrch& m, QWidget* parent) : QWidget(parent, Qt::Window), model_(m) {
    setObjectName("frmSrch");
    setAttribute(Qt::WA_DeleteOnClose);
    BindWindowTitle(this, m.Window);
    auto* outer = new QVBoxLayout(this);

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("SSTab1");
    auto page = [this](ListView& list, std::vector<CommandButton*> buttons, QWidget* foot = nullptr) {
        auto* p = new QWidget(tabs_);
        auto* v = new QVBoxLayout(p);
        v->addWidget(MultiList(list, p), 1);
        auto* row = new QHBoxLayout;
        if (foot) row->addWidget(foot);
        row->addStretch(1);
        for (CommandButton* b : buttons) row->addWidget(Button(*b, p));
        v->addLayout(row);
        return p;
    };
    tabs_->addTab(page(m.lvDB, {&m.PButAddDB, &m.PButRemoveDB}), FromModel(m.TabCaptions[0]));
    tabs_->addTab(page(m.lvCriteria, {&m.PButAddCrit, &m.PButRemoveCrit, &m.PButLoadCrit, &m.PButSaveCrit}),
                  FromModel(m.TabCaptions[1]));
    auto* counts = new QWidget(tabs_);
    auto* cl = new QHBoxLayout(counts);
    cl->setContentsMargins(0, 0, 0, 0);
    cl->addWidget(BoundLabel(m.LMatchCount, counts));
    cl->addSpacing(16);
    cl->addWidget(BoundLabel(m.LSelectedCount, counts));
    tabs_->addTab(page(m.lvResult, {&m.PButOpenSelected}, counts), FromModel(m.TabCaptions[2]));
    Watch(tabs_, m.SSTab1, [&m](QTabWidget* t) {
        QSignalBlocker b(t);
        t->setCurrentIndex(m.SSTab1Tab);
    });
    connect(tabs_, &QTabWidget::currentChanged, this, [&m](int i) { m.SetTab(static_cast<int16_t>(i)); });
    outer->addWidget(tabs_, 1);

    // The run: its progress while it lasts, and the commands.
    auto* foot = new QHBoxLayout;
    foot->addWidget(BoundLabel(m.LProgress, this), 1);
    auto* bar = new QProgressBar(this);
    bar->setObjectName("PBarSearch");
    BindProgress(bar, m.PBarSearch);
    foot->addWidget(bar, 1);
    foot->addStretch(0);
    for (CommandButton* b : {&m.PButSearch, &m.PButStop, &m.PButDone}) foot->addWidget(Button(*b, this));
    outer->addLayout(foot);
    resize(760, 420);
}

void SearchWindow::closeEvent(QCloseEvent* e) { QtFormHost::Instance().CloseEvent(model_, this, e); }

CriteriaDialog::CriteriaDialog(frmCriteria& m, QWidget* parent) : BoundDialog(m, parent), model_(m) {
    auto* outer = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    auto radio = [this](OptionButton& c, QWidget* parent) {
        auto* r = new QRadioButton(parent);
        r->setObjectName(QString::fromStdString(c.Name));
        BindOption(r, c);
        return r;
    };
    auto check = [](CheckBox& c, QWidget* parent) {
        auto* b = new QCheckBox(parent);
        b->setObjectName(QString::fromStdString(c.Name));
        BindCheckBox(b, c);
        return b;
    };
    auto combo = [](ComboBox& c, QWidget* parent) {
        auto* b = new QComboBox(parent);
        b->setObjectName(QString::fromStdString(c.Name));
        b->setMinimumContentsLength(12);
        BindCombo(b, c);
        return b;
    };

    auto* left = new QVBoxLayout;
    QGroupBox* move = Frame(m.fraMoveType, this);
    auto* ml = new QGridLayout(move);
    ml->addWidget(radio(m.RButMoveType[0], move), 0, 0);
    ml->addWidget(radio(m.RButMoveType[1], move), 0, 1);
    ml->addWidget(combo(m.cmboMovementType, move), 1, 0, 1, 2);
    left->addWidget(move);
    QGroupBox* tech = Frame(m.fraTechnology, this);
    auto* tl = new QGridLayout(tech);
    for (int i = 0; i < 2; ++i) tl->addWidget(check(m.CBoxBase[static_cast<size_t>(i)], tech), 0, i);
    for (int i = 0; i < 3; ++i) tl->addWidget(check(m.CBoxLevel[static_cast<size_t>(i)], tech), 1, i);
    left->addWidget(tech);
    top->addLayout(left);

    QGroupBox* structure = Frame(m.fraStructure, this);
    auto* sl = new QHBoxLayout(structure);
    auto panel = [&](Label& caption, ComboBox& list, std::array<OptionButton, 3>& compare) {
        QGroupBox* g = Frame(caption, structure);
        auto* v = new QVBoxLayout(g);
        v->addWidget(combo(list, g));
        for (auto& r : compare) v->addWidget(radio(r, g));
        sl->addWidget(g);
    };
    panel(m.fraTonnage, m.cmboTonnage, m.RButTonnage);
    panel(m.fraSpeed, m.cmboSpeed, m.RButSpeed);
    top->addWidget(structure);

    auto* buttons = new QVBoxLayout;
    for (CommandButton* b : {&m.PButDone, &m.PButCancel, &m.PButHelp, &m.PButAdvanced})
        buttons->addWidget(Button(*b, this));
    buttons->addStretch(1);
    top->addLayout(buttons);
    outer->addLayout(top);

    QGroupBox* extra = Frame(m.fraAdditional, this);
    auto* el = new QGridLayout(extra);
    el->addWidget(BoundLabel(m.LAvail, extra), 0, 0);
    el->addWidget(BoundLabel(m.LSel, extra), 0, 1);
    for (int i = 0; i < 2; ++i) {
        ListBox& c = i == 0 ? m.LBoxAvail : m.LBoxSel;
        auto* l = new QListWidget(extra);
        l->setObjectName(QString::fromStdString(c.Name));
        l->setMinimumHeight(160);
        BindListBox(l, c);
        el->addWidget(l, 1, i);
    }
    outer->addWidget(extra);
    // The short and the full form: the dialog shrinks to fit when the
    // additional selection hides.
    Watch(extra, m.fraAdditional, [this](QGroupBox*) {
        QTimer::singleShot(0, this, [this] { adjustSize(); });
    });
    outer->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace bw::qt
