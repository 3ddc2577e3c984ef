#include "shell/qt/FighterEditor.h"

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
#include <QPushButton>
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

// The plan view's picture and, in its pixels, the centre of each location's
// input: Nose, Left Wing, Right Wing, Fuselage, Cockpit, Engine.
constexpr const char* kPlanFile = "bwp/editor/diag20.svg";
constexpr int kSpots[6][2] = {{161, 96}, {72, 230}, {250, 230}, {161, 188}, {75, 80}, {161, 303}};
constexpr double kPlanScale = 1.5;

// A caption that follows a control's visibility and enabled state, and
// gives the control its keyboard accelerator.
QLabel* Buddy(const QString& text, Control& follows, QWidget* buddy, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setStyleSheet("color: #404040;");
    if (buddy) l->setBuddy(buddy);
    BindCommon(l, follows);
    return l;
}

}  // namespace

// ---- The plan view -------------------------------------------------------------

FighterPlan::FighterPlan(frmFtr& model, QWidget* parent) : QWidget(parent), model_(model), svg_(new QSvgRenderer(this)) {
    setObjectName("picFtrArm");
    svg_->load(QString::fromStdString(zAppFile(kPlanFile)));
    for (int i = 0; i < 6; ++i) {
        auto* edit = new QLineEdit(this);
        edit->setFixedWidth(36);
        edit->setToolTip(FromModel(zFighterLocationName(static_cast<int16_t>(i))));
        inputs_[static_cast<size_t>(i)] =
            NumberInput(edit, model.TArmorLoc[static_cast<size_t>(i)], model.scrlArmorLoc[static_cast<size_t>(i)], this);
        inputs_[static_cast<size_t>(i)]->adjustSize();
    }
    // Tab order runs as the locations are numbered.
    for (int i = 1; i < 6; ++i) setTabOrder(inputs_[static_cast<size_t>(i - 1)], inputs_[static_cast<size_t>(i)]);
}

QSize FighterPlan::sizeHint() const {
    const QSize s = svg_->isValid() ? svg_->defaultSize() : QSize(323, 355);
    return QSize(int(s.width() * kPlanScale), int(s.height() * kPlanScale) + 16);
}

void FighterPlan::resizeEvent(QResizeEvent*) { Place(); }

void FighterPlan::Place() {
    for (size_t i = 0; i < inputs_.size(); ++i) {
        QWidget* w = inputs_[i];
        const QSize s = w->sizeHint();
        w->resize(s);
        w->move(int(kSpots[i][0] * kPlanScale) - s.width() / 2, int(kSpots[i][1] * kPlanScale) - s.height() / 2 + 8);
        w->raise();
    }
}

void FighterPlan::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QSize base = svg_->isValid() ? svg_->defaultSize() : QSize(323, 355);
    if (svg_->isValid())
        svg_->render(&p, QRectF(0, 0, base.width() * kPlanScale, base.height() * kPlanScale));
    // Each location's name over its input.
    QFont f = font();
    f.setBold(true);
    p.setFont(f);
    for (size_t i = 0; i < inputs_.size(); ++i) {
        const QRect r = inputs_[i]->geometry();
        const QRect label(r.center().x() - 60, r.top() - 18, 120, 16);
        const QString text = FromModel(zFighterLocationName(static_cast<int16_t>(i)));
        p.setPen(QColor(255, 255, 255, 220));
        p.fillRect(QRect(label.center().x() - p.fontMetrics().horizontalAdvance(text) / 2 - 3, label.top(),
                         p.fontMetrics().horizontalAdvance(text) + 6, label.height()),
                   QColor(255, 255, 255, 200));
        p.setPen(Qt::black);
        p.drawText(label, Qt::AlignCenter, text);
    }
}

// ---- The editor window ---------------------------------------------------------

FighterEditor::FighterEditor(frmFtr& model, QWidget* parent) : QWidget(parent, Qt::Window), model_(&model) {
    setObjectName("frmFtr");
    setAttribute(Qt::WA_DeleteOnClose);
    frmFtr& m = *model_;
    BindWindowTitle(this, m.Window);

    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(10, 10, 10, 10);
    outer->setSpacing(8);

    auto* head = new QHBoxLayout;
    auto* name = new QLineEdit(this);
    name->setObjectName("TName");
    name->setMaxLength(50);
    name->setMinimumWidth(260);
    BindTextBox(name, m.TName);
    auto* nameCaption = new QLabel(tr("&Name"), this);
    nameCaption->setBuddy(name);
    head->addWidget(nameCaption);
    head->addWidget(name, 1);
    head->addSpacing(16);
    for (Label* l : {&m.LTechBase, &m.LFighterType}) {
        auto* b = Bound(*l, this);
        b->setStyleSheet("font-weight: bold;");
        head->addWidget(b);
        head->addSpacing(8);
    }
    head->addWidget(Caption(tr("Level"), this));
    auto* level = Bound(m.LTechLevel, this);
    level->setStyleSheet("font-weight: bold;");
    head->addWidget(level);
    outer->addLayout(head);

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("SSTab1");
    tabs_->addTab(GeneralTab(), tr("&General && Equipment"));
    tabs_->addTab(ArmorTab(), tr("A&rmor"));
    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int i) { zTrapVoid("SSTab1_Click", [&] { model_->SSTab1_Click(static_cast<int16_t>(i)); }); });
    outer->addWidget(tabs_, 1);

    auto* foot = new QHBoxLayout;
    foot->addWidget(Caption(tr("Total tonnage"), this));
    auto* total = Bound(m.LTonnageTotal, this, true);
    total->setStyleSheet("font-weight: bold;");
    foot->addWidget(total);
    foot->addSpacing(16);
    foot->addWidget(Caption(tr("Free tonnage"), this));
    auto* freeTons = Bound(m.LTonnageFree, this, true);
    freeTons->setStyleSheet("font-weight: bold;");
    foot->addWidget(freeTons);
    auto* flash = new QTimer(this);
    BindTimer(flash, m.Timer1);
    foot->addStretch(1);
    for (CommandButton* b : {&m.PButCost, &m.PButPrint, &m.PButSave, &m.PButClose}) foot->addWidget(Bound(*b, this));
    outer->addLayout(foot);
}

FighterEditor::~FighterEditor() {
    // The widgets watch the model: they go before it does.
    const QObjectList kids = children();
    for (QObject* kid : kids) delete kid;
}

QWidget* FighterEditor::GeneralTab() {
    frmFtr& m = *model_;
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setSpacing(10);

    // Chassis and drive.
    auto* chassis = new QGroupBox(tr("Chassis and Drive"), page);
    auto* cf = new QFormLayout(chassis);
    cf->setLabelAlignment(Qt::AlignRight);
    auto* tons = Number(m.TTonnage, m.scrlTonnage, chassis);
    cf->addRow(Buddy(tr("&Tonnage:"), m.scrlTonnage, tons->findChild<QLineEdit*>(), chassis), tons);
    auto* thrust = Number(m.TThrust, m.scrlThrust, chassis);
    cf->addRow(Buddy(tr("T&hrust:"), m.scrlThrust, thrust->findChild<QLineEdit*>(), chassis), thrust);
    cf->addRow(tr("Overthrust:"), Bound(m.LOThrust, chassis));
    cf->addRow(tr("Structural integrity:"), Bound(m.LSIRating, chassis));
    auto* engine = Bound(m.cmboEngType, chassis);
    cf->addRow(Buddy(tr("&Engine:"), m.cmboEngType, engine, chassis), engine);
    cf->addRow(Bound(m.CBoxVTOLJets, chassis));
    grid->addWidget(chassis, 0, 0);

    // Heat sinks and fuel.
    auto* heat = new QGroupBox(tr("Heat Sinks and Fuel"), page);
    auto* hf = new QFormLayout(heat);
    hf->setLabelAlignment(Qt::AlignRight);
    hf->addRow(tr("Heat sinks:"), LabelledUpDown(m.LHS, m.scrlHS, heat));
    hf->addRow(Bound(m.CBoxDHS, heat));
    hf->addRow(tr("Fuel (tons):"), LabelledUpDown(m.LFuelTonnage, m.scrlFuel, heat));
    auto* heatDesc = Bound(m.LWeaponHeatDesc, heat);
    heatDesc->setStyleSheet("color: #404040;");
    hf->addRow(heatDesc, Bound(m.LWeaponHeat, heat));
    auto* tc = Bound(m.CBoxTC, heat);
    hf->addRow(tc);
    auto* tcLoc = Bound(m.cmboTCLocation, heat);
    hf->addRow(Buddy(tr("Location:"), m.cmboTCLocation, tcLoc, heat), tcLoc);
    grid->addWidget(heat, 0, 1);

    // Weights of the fixed parts.
    auto* weights = new QGroupBox(tr("Weights"), page);
    auto* wg = new QGridLayout(weights);
    int r = 0;
    auto line = [&](QLabel* caption, Label& value) {
        caption->setStyleSheet("color: #404040;");
        wg->addWidget(caption, r, 0);
        auto* v = Bound(value, weights, true);
        wg->addWidget(v, r, 1);
        ++r;
        return v;
    };
    line(new QLabel(tr("Engine"), weights), m.LEngineTonnage);
    line(Bound(m.LCockpitDesc, weights), m.LCockpitTonnage);
    line(Bound(m.LPowerAmpDesc, weights), m.LPowerAmpTonnage);
    auto* jetsCaption = new QLabel(tr("V.T.O.L. jets"), weights);
    BindCommon(jetsCaption, m.LVTOLJetTonnage);
    line(jetsCaption, m.LVTOLJetTonnage);
    auto* tcCaption = new QLabel(tr("Targeting computer"), weights);
    BindCommon(tcCaption, m.LTCTonnage);
    line(tcCaption, m.LTCTonnage);
    line(new QLabel(tr("Heat sinks"), weights), m.LHSTonnage);
    line(new QLabel(tr("Weapons and equipment"), weights), m.LWeaponTonnage);
    wg->setColumnStretch(0, 1);
    wg->setRowStretch(r, 1);
    grid->addWidget(weights, 0, 2);

    // Omni-Fighter configurations; hidden on other kinds.
    auto* omni = new QGroupBox(tr("Omni Configurations"), page);
    auto* of = new QFormLayout(omni);
    auto* configs = Bound(m.cmboOmniConfig, omni);
    auto* configCaption = Bound(m.LOmniConfigDesc, omni);
    configCaption->setBuddy(configs);
    configCaption->setText(tr("C&onfiguration:"));
    of->addRow(configCaption, configs);
    of->addRow(Bound(m.CBoxBaseOmniLock, omni));
    Watch(omni, m.CBoxBaseOmniLock, [&m](QGroupBox* g) { g->setVisible(m.CBoxBaseOmniLock.Visible()); });
    grid->addWidget(omni, 0, 3);

    // Weapons and equipment.
    auto* equipment = EquipmentPanel({m.CBoxShowEQ, m.tvAvailEQ, m.tvSelEQ, "Selected", m.PButEquipment, m.PButAllocate,
                                      m.PButExpandAvail, m.PButCollapseAvail, m.PButExpandSel, m.PButCollapseSel},
                                     page);
    grid->addWidget(equipment, 1, 0, 1, 4);
    grid->setRowStretch(1, 1);
    return page;
}

QWidget* FighterEditor::ArmorTab() {
    frmFtr& m = *model_;
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setSpacing(12);

    auto* armor = new QGroupBox(tr("Armor"), page);
    auto* af = new QFormLayout(armor);
    af->setLabelAlignment(Qt::AlignRight);
    auto* type = Bound(m.cmboArmorType, armor);
    auto* typeCaption = Bound(m.LArmorTypeDesc, armor);
    typeCaption->setText(tr("T&ype:"));
    typeCaption->setBuddy(type);
    af->addRow(typeCaption, type);
    af->addRow(tr("Tonnage:"), LabelledUpDown(m.LArmorTonnage, m.scrlArmorTonnage, armor));
    af->addRow(tr("Total points:"), Bound(m.LArmorPoints, armor, true));
    af->addRow(tr("Allocated:"), Bound(m.LArmorAllocated, armor, true));
    af->addRow(tr("Remaining:"), Bound(m.LArmorRemaining, armor, true));
    af->addRow(tr("Active location:"), Bound(m.LActiveArmorLoc, armor));
    row->addWidget(armor, 0, Qt::AlignTop);

    auto* plan = new FighterPlan(m, page);
    row->addWidget(plan, 0, Qt::AlignTop);
    row->addStretch(1);
    return page;
}

void FighterEditor::closeEvent(QCloseEvent* e) { QtFormHost::Instance().CloseEvent(*model_, this, e); }

}  // namespace bw::qt
