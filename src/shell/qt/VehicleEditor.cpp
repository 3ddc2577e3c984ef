#include "shell/qt/VehicleEditor.h"

#include <algorithm>

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QSvgRenderer>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Vocabulary.h"
#include "shell/qt/Binders.h"
#include "shell/qt/EditorWidgets.h"
#include "shell/qt/FormHost.h"

namespace bw::qt {

namespace {

constexpr int kTwipsPerPixel = 15;

// A row of the options grid that shows and hides with its check box.
void OptionRow(QGridLayout* grid, int row, CheckBox& box, QWidget* extra, Label& tons, QWidget* parent) {
    auto* cb = Bound(box, parent);
    auto* t = Bound(tons, parent, true);
    grid->addWidget(cb, row, 0);
    if (extra) grid->addWidget(extra, row, 1);
    grid->addWidget(t, row, 2);
    // The figure follows its box's visibility; its own stays the model's.
    Watch(t, box, [&box](QLabel* x) { x->setVisible(box.Visible()); });
}

QString DiagramFile(const std::string& picture) {
    const int n = std::atoi(picture.c_str());
    return QString::fromStdString(zAppFile("bwp/editor/diag" + std::string(n < 10 ? "0" : "") + std::to_string(n) +
                                           ".svg"));
}

}  // namespace

// ---- The armor diagram -------------------------------------------------------

ArmorDiagram::ArmorDiagram(frmVhl& model, QWidget* parent)
    : QWidget(parent), model_(model), svg_(new QSvgRenderer(this)) {
    setObjectName(QString::fromStdString(model.picVHLArm.Name));
    for (int i = 0; i < 12; ++i) {
        if (i == kLocLeftSponson || i == kLocRightSponson) continue;
        auto* edit = new QLineEdit(this);
        edit->setFixedWidth(36);
        inputs_[static_cast<size_t>(i)] = NumberInput(edit, model.TArmorLoc[static_cast<size_t>(i)],
                                                       model.scrlArmorLoc[static_cast<size_t>(i)], this);
        inputs_[static_cast<size_t>(i)]->adjustSize();
    }
    Watch(this, model.picVHLArm, [](ArmorDiagram* d) { d->Reload(); });
}

void ArmorDiagram::Reload() {
    setVisible(model_.picVHLArm.Visible());
    const QString file = DiagramFile(model_.picVHLArm.Picture());
    if (file != shown_) {
        shown_ = file;
        svg_->load(file);
        updateGeometry();
        update();
    }
    Place();
}

QSize ArmorDiagram::sizeHint() const {
    const QSize s = svg_->isValid() ? svg_->defaultSize() : QSize(240, 370);
    return QSize(int(s.width() * Scale(s)), int(s.height() * Scale(s)));
}

double ArmorDiagram::ShownScale() const { return Scale(svg_->isValid() ? svg_->defaultSize() : QSize(240, 370)); }

double ArmorDiagram::Scale(QSize picture) {
    // Wide pictures (the naval plan view) are drawn smaller to fit a screen.
    return std::min(kScale, 900.0 / std::max(1, picture.width()));
}

void ArmorDiagram::Place() {
    const double scale = ShownScale();
    for (size_t i = 0; i < inputs_.size(); ++i) {
        QWidget* w = inputs_[i];
        if (!w) continue;
        if (model_.ArmorLocLeft[i] < 0) {
            w->hide();
            continue;
        }
        const QSize s = w->sizeHint();
        w->move(int(model_.ArmorLocLeft[i] * scale) - s.width() / 2, int(model_.ArmorLocTop[i] * scale) - s.height() / 2);
        w->resize(s);
        w->raise();
    }
}

void ArmorDiagram::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (svg_->isValid()) svg_->render(&p, QRectF(QPointF(0, 0), QSizeF(sizeHint())));
}

// ---- The editor window --------------------------------------------------------

VehicleEditor::VehicleEditor(frmVhl& model, QWidget* parent) : QWidget(parent, Qt::Window), model_(&model) {
    setObjectName("frmVhl");
    setAttribute(Qt::WA_DeleteOnClose);
    frmVhl& m = *model_;
    BindWindowTitle(this, m.Window);

    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(10, 10, 10, 10);
    outer->setSpacing(8);

    // The design's identity: its name and what it is.
    auto* head = new QHBoxLayout;
    head->addWidget(Caption("Name", this));
    auto* name = new QLineEdit(this);
    name->setObjectName("TName");
    name->setMaxLength(50);
    name->setMinimumWidth(260);
    BindTextBox(name, m.TName);
    head->addWidget(name, 1);
    head->addSpacing(16);
    for (Label* l : {&m.LTechBase, &m.LVehicleType}) {
        auto* b = Bound(*l, this);
        b->setStyleSheet("font-weight: bold;");
        head->addWidget(b);
        head->addSpacing(8);
    }
    head->addWidget(Caption("Level", this));
    auto* level = Bound(m.LTechLevel, this);
    level->setStyleSheet("font-weight: bold;");
    head->addWidget(level);
    outer->addLayout(head);

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("SSTab1");
    tabs_->addTab(ScrollingPage(GeneralTab()), "General && Equipment");
    tabs_->addTab(ScrollingPage(ArmorTab()), "Armor");
    tabs_->addTab(DiagramTab(), "Armor Diagram");
    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int i) { zTrapVoid("SSTab1_Click", [&] { model_->SSTab1_Click(static_cast<int16_t>(i)); }); });
    outer->addWidget(tabs_, 1);

    // The figures that decide a save, and the commands.
    auto* foot = new QHBoxLayout;
    foot->addWidget(Caption("Total tonnage", this));
    auto* total = Bound(m.LTonnageTotal, this, true);
    total->setStyleSheet("font-weight: bold;");
    foot->addWidget(total);
    foot->addSpacing(16);
    foot->addWidget(Caption("Free tonnage", this));
    auto* freeTons = Bound(m.LTonnageFree, this, true);
    freeTons->setStyleSheet("font-weight: bold;");
    foot->addWidget(freeTons);
    auto* flash = new QTimer(this);
    BindTimer(flash, m.Timer1);
    foot->addStretch(1);
    for (CommandButton* b : {&m.PButCost, &m.PButShowStats, &m.PButPrint, &m.PButSave, &m.PButClose})
        foot->addWidget(Bound(*b, this));
    outer->addLayout(foot);
    // As large as the tabs want, within the screen; the tabs scroll when
    // the screen is smaller, and the commands stay in sight.
    resize(sizeHint());
    FitToScreen(this);
}

VehicleEditor::~VehicleEditor() {
    // The widgets watch the model: they must go before it does, and QWidget
    // would delete them only after this class's members.
    const QObjectList kids = children();
    for (QObject* kid : kids) delete kid;
}

QWidget* VehicleEditor::GeneralTab() {
    frmVhl& m = *model_;
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setSpacing(10);

    // Chassis: the inputs that size the design.
    auto* chassis = new QGroupBox("Chassis", page);
    auto* cf = new QFormLayout(chassis);
    cf->setLabelAlignment(Qt::AlignRight);
    cf->addRow("Tonnage", Number(m.TTonnage, m.scrlTonnage, chassis));
    cf->addRow("Cruise MP", Number(m.TCruise, m.scrlSpeed, chassis));
    cf->addRow("Flank MP", Bound(m.LFlank, chassis));
    cf->addRow("Engine", Bound(m.cmboEngType, chassis));
    auto* crewInput = Number(m.TAdditionalCrew, m.scrlAdditionalCrew, chassis);
    auto* crewLabel = new QLabel("Crew", chassis);
    cf->addRow(crewLabel, crewInput);
    BindCommon(crewLabel, m.scrlAdditionalCrew);
    grid->addWidget(chassis, 0, 0);

    // Weights of the fixed parts.
    auto* weights = new QGroupBox("Weights", page);
    auto* wg = new QGridLayout(weights);
    int r = 0;
    auto line = [&](QWidget* caption, Label& tons, Label* extra = nullptr) {
        wg->addWidget(caption, r, 0);
        if (extra) wg->addWidget(Bound(*extra, weights, true), r, 1);
        wg->addWidget(Bound(tons, weights, true), r, 2);
        ++r;
    };
    line(Caption("Engine (rating)", weights), m.LEngineTonnage, &m.LEngineRating);
    line(Caption("Internal structure", weights), m.LISTonnage);
    for (size_t i = 0; i < 3; ++i) {
        auto* desc = Bound(m.LControlDesc[i], weights);
        desc->setStyleSheet("color: #404040;");
        auto* tons = Bound(m.LControlTonnage[i], weights, true);
        wg->addWidget(desc, r, 0);
        wg->addWidget(tons, r, 2);
        ++r;
    }
    line(Caption("Heat sinks (number)", weights), m.LHeatSinkTonnage, &m.LHeatSinks);
    line(Caption("Crew", weights), m.LCrewTonnage);
    wg->setColumnStretch(0, 1);
    wg->setRowStretch(r, 1);
    grid->addWidget(weights, 1, 0);

    // Turrets and systems: what every type may carry, V.T.O.L.s included.
    auto* systems = new QGroupBox("Turrets and Systems", page);
    auto* sg = new QGridLayout(systems);
    OptionRow(sg, 0, m.CBoxHasTurret, nullptr, m.LTurretTonnage, systems);
    OptionRow(sg, 1, m.CBoxHasSecondTurret, nullptr, m.LSecTurretTonnage, systems);
    OptionRow(sg, 2, m.CBoxHasSponsonTurret, nullptr, m.LSponsonTonnage, systems);
    OptionRow(sg, 3, m.CBoxMastMount, nullptr, m.LMastMountTonnage, systems);
    OptionRow(sg, 4, m.CBoxTC, Bound(m.cmboTCLoc, systems), m.LTCTonnage, systems);
    auto* tcDesc = Bound(m.LTCLocationDesc, systems);
    sg->addWidget(tcDesc, 5, 1);
    auto* rotorCaption = new QLabel("Rotor", systems);
    BindCommon(rotorCaption, m.cmboRotorArrangement);
    sg->addWidget(rotorCaption, 6, 0);
    sg->addWidget(Bound(m.cmboRotorArrangement, systems), 6, 1);
    sg->setColumnStretch(1, 1);
    sg->setRowStretch(7, 1);
    grid->addWidget(systems, 0, 1, 2, 1);

    // Special equipment, which V.T.O.L.s do not carry.
    auto* specials = new QGroupBox("Special Equipment", page);
    specials->setObjectName("tabSpecials");
    BindCommon(specials, m.tabSpecials);
    auto* pg = new QGridLayout(specials);
    int row = 0;
    struct Opt {
        CheckBox& box;
        QWidget* extra;
        Label& tons;
    };
    auto* hq = new QSpinBox(specials);
    hq->setObjectName("scrlMobileHQ");
    BindScrollBar(hq, m.scrlMobileHQ);
    const Opt opts[] = {
        {m.CBoxBridgelayer, Bound(m.cmboBridgelayer, specials), m.LBridgeLayerTonnage},
        {m.CBoxBulldozer, nullptr, m.LBulldozerTonnage},
        {m.CBoxMinesweeper, nullptr, m.LMinesweeperTonnage},
        {m.CBoxAmphibEquip, nullptr, m.LAmphibTonnage},
        {m.CBoxDuneBuggy, nullptr, m.LDuneBuggyTonnage},
        {m.CBoxSnowmobileEquip, nullptr, m.LSnowmobileTonnage},
        {m.CBoxCoolantSystem, nullptr, m.LCoolantSystemTonnage},
        {m.CBoxMASHUnit, LabelledUpDown(m.LMASHCount, m.scrlMASHUnits, specials), m.LMASHTonnage},
        {m.CBoxMobileHQ, hq, m.LMobileHQTonnage},
        {m.CBoxJJs, LabelledUpDown(m.LJJs, m.scrlJJs, specials), m.LJumpJetTonnage},
        {m.CBoxSupercharger, nullptr, m.LSuperchargerTonnage},
    };
    for (const Opt& o : opts) {
        OptionRow(pg, row++, o.box, o.extra, o.tons, specials);
    }
    pg->setColumnStretch(1, 1);
    pg->setRowStretch(row, 1);
    grid->addWidget(specials, 0, 2, 2, 1);

    // Weapons and equipment: what may be mounted, and what is.
    auto* equipment = EquipmentPanel({m.CBoxShowType, m.tvAvailEq, m.tvSelectedEq, "Mounted", m.PButEquipment,
                                      m.PButAllocate, m.PButExpandAvail, m.PButCollapseAvail, m.PButExpandSel,
                                      m.PButCollapseSel},
                                     page);
    grid->addWidget(equipment, 2, 0, 1, 3);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    return page;
}

QWidget* VehicleEditor::ArmorTab() {
    frmVhl& m = *model_;
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setSpacing(12);

    auto* armor = new QGroupBox("Armor", page);
    auto* af = new QFormLayout(armor);
    af->setLabelAlignment(Qt::AlignRight);
    auto* type = Bound(m.cmboArmorType, armor);
    auto* typeCaption = new QLabel("Type", armor);
    BindCommon(typeCaption, m.cmboArmorType);
    af->addRow(typeCaption, type);
    af->addRow("Tonnage", Number(m.TArmorTonnage, m.scrlArmorTonnage, armor));
    af->addRow("Total points", Bound(m.LTotalPoints, armor, true));
    af->addRow("Allocated", Bound(m.LAllocatedPoints, armor, true));
    af->addRow("Remaining", Bound(m.LRemainingPoints, armor, true));
    af->addRow("Active location", Bound(m.LActiveArmorLoc, armor));
    row->addWidget(armor, 0, Qt::AlignTop);

    auto* locations = new QGroupBox("Armor by Location", page);
    auto* lf = new QFormLayout(locations);
    lf->setLabelAlignment(Qt::AlignRight);
    for (int16_t i = 0; i < 12; ++i) {
        if (i == kLocLeftSponson || i == kLocRightSponson) continue;
        auto* caption = new QLabel(FromModel(zArmorLocationName(i, m.vhl->VhlType)), locations);
        BindCommon(caption, m.scrlArmorLoc[static_cast<size_t>(i)]);
        lf->addRow(caption, Number(m.TArmorLoc[static_cast<size_t>(i)], m.scrlArmorLoc[static_cast<size_t>(i)],
                                   locations));
    }
    row->addWidget(locations, 0, Qt::AlignTop);
    row->addStretch(1);
    return page;
}

QWidget* VehicleEditor::DiagramTab() {
    frmVhl& m = *model_;
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    auto* scroll = new QScrollArea(page);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setAlignment(Qt::AlignCenter);
    auto* holder = new QWidget;
    auto* hl = new QHBoxLayout(holder);
    hl->addWidget(new ArmorDiagram(m, holder), 0, Qt::AlignCenter);
    scroll->setWidget(holder);
    scroll->setWidgetResizable(true);
    row->addWidget(scroll, 1);

    auto* points = new QGroupBox("Armor Points", page);
    auto* pf = new QFormLayout(points);
    pf->addRow("Total", Bound(m.LTotalPoints, points, true));
    pf->addRow("Allocated", Bound(m.LAllocatedPoints, points, true));
    pf->addRow("Remaining", Bound(m.LRemainingPoints, points, true));
    row->addWidget(points, 0, Qt::AlignTop);
    return page;
}

void VehicleEditor::closeEvent(QCloseEvent* e) {
    // The model asks its question; refused, the window stays.
    QtFormHost::Instance().CloseEvent(*model_, this, e);
}

}  // namespace bw::qt
