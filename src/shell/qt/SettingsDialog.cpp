#include "shell/qt/SettingsDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {
// Colours are kept as the store keeps them: 0x00BBGGRR.
QColor FromStored(int32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }
int32_t ToStored(const QColor& c) { return c.red() | (c.green() << 8) | (c.blue() << 16); }
}  // namespace

SettingsDialog::SettingsDialog(frmSet& form, QWidget* parent) : BoundDialog(form, parent), form_(form) {
    setObjectName("frmSet");
    // The groups scroll on a small screen; the buttons stay in sight.
    auto* body = new QWidget;
    auto* outer = new QVBoxLayout(body);
    outer->setContentsMargins(0, 0, 0, 0);

    auto* general = new QGroupBox("General", this);
    auto* gl = new QVBoxLayout(general);
    auto check = [&](const char* text, const char* name, int16_t value) {
        auto* c = new QCheckBox(text, general);
        c->setObjectName(name);
        c->setChecked(value == 1);
        gl->addWidget(c);
        return c;
    };
    openLast_ = check("Open the last database at start-up", "CBoxOpenLast", form_.CBoxOpenLast);
    gift_ = check("Suppress the 'Gift' message", "CBoxSuppressGift", form_.CBoxSuppressGift);
    aero_ = check("Use the printer-friendly fighter header", "CBoxUseAltAeroHeader", form_.CBoxUseAltAeroHeader);
    expand_ = check("Always expand \"selected\" equipment", "CBoxExpandSel", form_.CBoxExpandSel);
    outer->addWidget(general);

    auto combo = [&](frmSet::Combo& model, const char* name, QWidget* parent) {
        auto* c = new QComboBox(parent);
        c->setObjectName(name);
        for (const auto& s : model.List) c->addItem(FromModel(s));
        c->setCurrentIndex(model.ListIndex);
        return c;
    };
    auto* defaults = new QGroupBox("Defaults for new designs", this);
    auto* grid = new QGridLayout(defaults);
    grid->addWidget(new QLabel("Type", defaults), 0, 1);
    grid->addWidget(new QLabel("Tech base", defaults), 0, 2);
    grid->addWidget(new QLabel("Level", defaults), 0, 3);
    grid->addWidget(new QLabel("Vehicle", defaults), 1, 0);
    grid->addWidget(new QLabel("Fighter", defaults), 2, 0);
    vType_ = combo(form_.cmboDefVHL, "cmboDefVHL", defaults);
    vBase_ = combo(form_.cmboDefVHLBase, "cmboDefVHLBase", defaults);
    vLevel_ = combo(form_.cmboDefVHLLevel, "cmboDefVHLLevel", defaults);
    fType_ = combo(form_.cmboDefFTR, "cmboDefFTR", defaults);
    fBase_ = combo(form_.cmboDefFTRBase, "cmboDefFTRBase", defaults);
    fLevel_ = combo(form_.cmboDefFTRLevel, "cmboDefFTRLevel", defaults);
    grid->addWidget(vType_, 1, 1);
    grid->addWidget(vBase_, 1, 2);
    grid->addWidget(vLevel_, 1, 3);
    grid->addWidget(fType_, 2, 1);
    grid->addWidget(fBase_, 2, 2);
    grid->addWidget(fLevel_, 2, 3);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 1);
    outer->addWidget(defaults);

    auto* colors = new QGroupBox("Edit box colours", this);
    auto* cl = new QFormLayout(colors);
    const char* captions[4] = {"Activated edit box", "Deactivated edit box", "Text in an activated box",
                               "Text in a deactivated box"};
    for (int i = 0; i < 4; ++i) {
        color_[i] = form_.pnlColor[i];
        colors_[i] = new QPushButton(colors);
        colors_[i]->setObjectName(QString("pnlColor%1").arg(i));
        colors_[i]->setFixedSize(64, 22);
        connect(colors_[i], &QPushButton::clicked, this, [this, i] { PickColor(i); });
        ShowColor(i);
        cl->addRow(captions[i], colors_[i]);
    }
    outer->addWidget(colors);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        StoreIntoModel();
        form_.PButOK_Click();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* window = new QVBoxLayout(this);
    window->addWidget(ScrollingPage(body), 1);
    window->addWidget(buttons);
}

void SettingsDialog::ShowColor(int which) {
    colors_[which]->setStyleSheet(
        QString("background: %1; border: 1px solid #777; border-radius: 3px;").arg(FromStored(color_[which]).name()));
}

void SettingsDialog::PickColor(int which) {
    QColor c = QColorDialog::getColor(FromStored(color_[which]), this, "Colour");
    if (!c.isValid()) return;
    color_[which] = ToStored(c);
    ShowColor(which);
}

void SettingsDialog::StoreIntoModel() {
    form_.CBoxOpenLast = openLast_->isChecked() ? 1 : 0;
    form_.CBoxSuppressGift = gift_->isChecked() ? 1 : 0;
    form_.CBoxUseAltAeroHeader = aero_->isChecked() ? 1 : 0;
    form_.CBoxExpandSel = expand_->isChecked() ? 1 : 0;
    form_.cmboDefVHL.ListIndex = static_cast<int16_t>(vType_->currentIndex());
    form_.cmboDefVHLBase.ListIndex = static_cast<int16_t>(vBase_->currentIndex());
    form_.cmboDefVHLLevel.ListIndex = static_cast<int16_t>(vLevel_->currentIndex());
    form_.cmboDefFTR.ListIndex = static_cast<int16_t>(fType_->currentIndex());
    form_.cmboDefFTRBase.ListIndex = static_cast<int16_t>(fBase_->currentIndex());
    form_.cmboDefFTRLevel.ListIndex = static_cast<int16_t>(fLevel_->currentIndex());
    for (int i = 0; i < 4; ++i) form_.pnlColor[i] = color_[i];
}


}  // namespace bw::qt
