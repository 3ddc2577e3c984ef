// Which Qt window shows which model: the one table of builders, by form
// name. Every model reaches its window through the form host.
#include <QDialogButtonBox>
#include <QFont>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <QtGlobal>

#include "core/frmSet.h"
#include "sheets/frmAAMaker.h"
#include "shell/frmAbout.h"
#include "shell/qt/AllocationDialog.h"
#include "shell/qt/Binders.h"
#include "shell/qt/CostWindow.h"
#include "shell/qt/FighterDialogs.h"
#include "shell/qt/FighterEditor.h"
#include "shell/qt/FormHost.h"
#include "shell/qt/NewVehicleDialog.h"
#include "shell/qt/PickerDialog.h"
#include "shell/qt/PrintDialogs.h"
#include "shell/qt/SearchWindow.h"
#include "shell/qt/SettingsDialog.h"
#include "shell/qt/StatsWindow.h"
#include "shell/qt/VehicleEditor.h"
#include "shell/qt/WDataDialog.h"

namespace bw::qt {

namespace {

// The model measures in twips; 15 to a pixel at 96 dots per inch.
constexpr int kTwipsPerPixel = 15;

class AboutDialog : public BoundDialog {
public:
    AboutDialog(frmAbout& model, QWidget* parent) : BoundDialog(model, parent) {
        auto* outer = new QVBoxLayout(this);
        auto label = [this, outer](Label& c) {
            auto* l = new QLabel(this);
            l->setObjectName(QString::fromStdString(c.Name));
            l->setAlignment(Qt::AlignHCenter);
            l->setWordWrap(true);
            BindLabel(l, c);
            outer->addWidget(l);
            return l;
        };
        QLabel* title = label(model.LTitle);
        QFont f = title->font();
        f.setPointSizeF(f.pointSizeF() * 1.4);
        f.setBold(true);
        title->setFont(f);
        label(model.LVersion);
        label(model.LCompany);
        label(model.LNotice);
        label(model.LMaker);
        label(model.LWeb);
        model.LToolkit.SetCaption(std::string("Qt ") + qVersion());
        label(model.LToolkit);
        auto* ok = new QPushButton(this);
        ok->setObjectName("PButOK");
        BindButton(ok, model.PButOK);
        ok->setDefault(true);
        auto* buttons = new QDialogButtonBox(this);
        buttons->addButton(ok, QDialogButtonBox::AcceptRole);
        outer->addWidget(buttons);
        setMinimumWidth(360);
    }
};

// The Armor Array Creator: the six fields in pairs, the walk, and the list
// of pairs to copy from.
class AAMakerDialog : public BoundDialog {
public:
    AAMakerDialog(frmAAMaker& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
        setObjectName("frmAAMaker");
        auto* outer = new QVBoxLayout(this);
        auto* grid = new QGridLayout;
        const std::pair<Label*, TextBox*> fields[] = {
            {&model.LX, &model.TX},           {&model.LY, &model.TY},
            {&model.LXOffset, &model.TXOffset}, {&model.LYOffset, &model.TYOffset},
            {&model.LXLen, &model.TXLen},     {&model.LYLen, &model.TYLen},
        };
        int n = 0;
        for (const auto& [label, box] : fields) {
            auto* l = new QLabel(this);
            BindLabel(l, *label);
            auto* e = MakeBound<QLineEdit>(*box, this, BindTextBox);
            e->setMaximumWidth(80);
            l->setBuddy(e);
            grid->addWidget(l, n / 2, (n % 2) * 2);
            grid->addWidget(e, n / 2, (n % 2) * 2 + 1);
            ++n;
        }
        outer->addLayout(grid);
        auto* walk = new QHBoxLayout;
        for (OptionButton& b : model.RButAlter) walk->addWidget(MakeBound<QRadioButton>(b, this, BindOption));
        walk->addStretch();
        outer->addLayout(walk);

        auto* data = new QPlainTextEdit(this);
        data->setObjectName("TData");
        data->setReadOnly(true);
        data->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        Watch(data, model.TData, [&model](QPlainTextEdit* x) {
            x->setPlainText(FromModel(model.TData.Text()).replace("\r\n", "\n"));
        });
        outer->addWidget(data, 1);

        auto* buttons = new QDialogButtonBox(this);
        for (CommandButton* c : {&model.PButGo, &model.PButMakeMid, &model.PButClose}) {
            auto* b = MakeBound<QPushButton>(*c, this, BindButton);
            b->setAutoDefault(false);
            buttons->addButton(b, c->Cancel ? QDialogButtonBox::RejectRole : QDialogButtonBox::ActionRole);
        }
        outer->addWidget(buttons);
        resize(360, 420);
    }

protected:
    // A tool window: closing it ends it.
    void Dismiss() override { model_.Unload(); }

private:
    frmAAMaker& model_;
};

template <class Model, class Window>
void Add(const std::string& name) {
    QtFormHost::Instance().Register(
        name, [](FormModel& f, QWidget* parent) -> QWidget* { return new Window(static_cast<Model&>(f), parent); });
}

}  // namespace

void zInstallQtForms() {
    QtFormHost& host = QtFormHost::Instance();
    SetFormHost(&host);
    Add<frmNVhl, NewVehicleDialog>("frmNVhl");
    Add<DesignPicker, PickerDialog>("frmVOpen");
    Add<DesignPicker, PickerDialog>("frmFOpen");
    Add<frmVEQ, AllocationDialog>("frmVEQ");
    Add<frmNFtr, NewFighterDialog>("frmNFtr");
    Add<frmFEQ, FighterAllocationDialog>("frmFEQ");
    Add<frmCost, CostDialog>("frmCost");
    Add<frmVStat, StatsDialog>("frmVStat");
    Add<frmWData, WDataDialog>("frmWData");
    Add<frmSet, SettingsDialog>("frmSet");
    Add<frmAbout, AboutDialog>("frmAbout");
    Add<frmAAMaker, AAMakerDialog>("frmAAMaker");
    Add<frmPVhl, PrintVehicleDialog>("frmPVhl");
    Add<frmPrintSel, PrintFormatDialog>("frmPrintSel");
    zInstallQtPrinting();
    Add<frmCriteria, CriteriaDialog>("frmCriteria");
    Add<frmSrch, SearchWindow>("frmSrch");
    // Editors are windows of their own, several at once, placed where the
    // main window's cascade put them.
    host.Register("frmVhl", [](FormModel& f, QWidget*) -> QWidget* {
        auto& m = static_cast<frmVhl&>(f);
        auto* w = new VehicleEditor(m);
        w->move(m.Left / kTwipsPerPixel, m.Top / kTwipsPerPixel);
        return w;
    });
    host.Register("frmFtr", [](FormModel& f, QWidget*) -> QWidget* {
        auto& m = static_cast<frmFtr&>(f);
        auto* w = new FighterEditor(m);
        w->move(m.Left / kTwipsPerPixel, m.Top / kTwipsPerPixel);
        return w;
    });
}

}  // namespace bw::qt
