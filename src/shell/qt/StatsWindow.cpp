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

StatsDialog::StatsDialog(frmVStat& model, QWidget* parent) : BoundDialog(model, parent), model_(model) {
    auto* outer = new QVBoxLayout(this);
    // The layout fits the text to the window as it resizes.
    auto* text = new QPlainTextEdit(this);
    text->setObjectName("TStats");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setTabStopDistance(text->fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 4);
    Watch(text, model_.TStats, [this](QPlainTextEdit* t) { t->setPlainText(Plain(model_.TStats.Text())); });
    outer->addWidget(text, 1);

    AddDoneFooter(this, outer, model_.PButDone);
    resize(460, 520);
}

}  // namespace bw::qt
