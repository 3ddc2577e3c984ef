#include "shell/qt/StatsWindow.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/qt/Binders.h"

namespace bw::qt {

namespace {
// The report's line breaks are carriage return and line feed; the editor
// wants line feeds alone.
QString Plain(const std::string& s) {
    QString t = FromModel(s);
    t.remove(QLatin1Char('\r'));
    return t;
}
}  // namespace

StatsDialog::StatsDialog(frmVStat& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName("frmVStat");
    BindWindowTitle(this, model_.Caption);
    auto* outer = new QVBoxLayout(this);
    // The layout fits the text to the window as it resizes.
    auto* text = new QPlainTextEdit(this);
    text->setObjectName("TStats");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setTabStopDistance(text->fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 4);
    text->setPlainText(Plain(model_.TStats.Text()));
    textObserver_ = model_.TStats.Subscribe([this, text] { text->setPlainText(Plain(model_.TStats.Text())); });
    outer->addWidget(text, 1);

    auto* done = new QPushButton(this);
    done->setObjectName("PButDone");
    BindButton(done, model_.PButDone);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(done, QDialogButtonBox::AcceptRole);
    outer->addWidget(buttons);
    model_.Unloaded = [this] { accept(); };
    resize(460, 520);
}

StatsDialog::~StatsDialog() {
    model_.TStats.Unsubscribe(textObserver_);
    model_.Unloaded = nullptr;
}

void ShowVehicleStats(Vehicle& vhl, QWidget* parent) {
    frmVStat model;
    model.vhl = &vhl;
    model.Form_Load();
    StatsDialog dlg(model, parent);
    model.Show();
    dlg.exec();
    model.Unload();
}

}  // namespace bw::qt
