#include "shell/qt/Binders.h"

#include <QPointer>
#include <QSignalBlocker>

#include "core/Codepage.h"
#include "core/Errors.h"

namespace bw::qt {

QString FromModel(const std::string& s) { return QString::fromStdString(zCp1252ToUtf8(s)); }
std::string ToModel(const QString& s) {
    std::string out;
    // Characters outside Windows-1252 cannot be stored; the converter
    // replaces them and the text is kept.
    zUtf8ToCp1252(s.toStdString(), out);
    return out;
}

namespace {
// Subscribe for the life of the widget: the observer is dropped when the
// widget goes, so a model that outlives its window never calls into freed
// memory.
template <class W, class F>
void Watch(W* w, Control& c, F refresh) {
    QPointer<W> guard(w);
    int id = c.Subscribe([guard, refresh] {
        if (guard) refresh(guard.data());
    });
    Control* model = &c;
    QObject::connect(w, &QObject::destroyed, [model, id] { model->Unsubscribe(id); });
    refresh(w);
}

QColor FromWinColor(int32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }
}  // namespace

void BindCommon(QWidget* w, Control& c) {
    Watch(w, c, [&c](QWidget* x) {
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
}

void BindLabel(QLabel* w, Label& c) {
    Watch(w, c, [&c](QLabel* x) {
        x->setText(FromModel(c.Caption()));
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
        QPalette p = x->palette();
        if (c.ForeColor() >= 0) p.setColor(QPalette::WindowText, FromWinColor(c.ForeColor()));
        x->setPalette(p);
    });
}

void BindTextBox(QLineEdit* w, TextBox& c) {
    Watch(w, c, [&c](QLineEdit* x) {
        QSignalBlocker b(x);
        QString t = FromModel(c.Text());
        if (x->text() != t) x->setText(t);
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
        x->setReadOnly(c.Locked);
        if (c.MaxLength > 0) x->setMaxLength(c.MaxLength);
    });
    QObject::connect(w, &QLineEdit::textEdited, [&c](const QString& t) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetText(ToModel(t)); });
    });
}

void BindScrollBar(QSpinBox* w, ScrollBar& c) {
    Watch(w, c, [&c](QSpinBox* x) {
        QSignalBlocker b(x);
        x->setRange(c.Min(), c.Max());
        x->setSingleStep(c.SmallChange);
        x->setValue(c.Value());
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, qOverload<int>(&QSpinBox::valueChanged), [&c](int v) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetValue(static_cast<int16_t>(v)); });
    });
}

void BindCheckBox(QCheckBox* w, CheckBox& c) {
    Watch(w, c, [&c](QCheckBox* x) {
        QSignalBlocker b(x);
        x->setText(FromModel(c.Caption()));
        x->setCheckState(c.Value() == 1 ? Qt::Checked : c.Value() == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, &QCheckBox::clicked, [&c, w] {
        zTrapVoid(c.Name.c_str(), [&] { c.SetValue(w->isChecked() ? 1 : 0); });
    });
}

void BindCombo(QComboBox* w, ComboBox& c) {
    Watch(w, c, [&c](QComboBox* x) {
        QSignalBlocker b(x);
        QStringList items;
        for (int32_t i = 0; i < c.ListCount(); ++i) items << FromModel(c.List(i));
        QStringList now;
        for (int i = 0; i < x->count(); ++i) now << x->itemText(i);
        if (items != now) {
            x->clear();
            x->addItems(items);
        }
        x->setCurrentIndex(c.ListIndex());
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, qOverload<int>(&QComboBox::activated), [&c](int i) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetListIndex(i); });
    });
}

void BindButton(QPushButton* w, CommandButton& c) {
    Watch(w, c, [&c](QPushButton* x) {
        x->setText(FromModel(c.Caption()));
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
        x->setDefault(c.Default);
    });
    QObject::connect(w, &QPushButton::clicked, [&c] { c.DoClick(); });
}

void BindProgress(QProgressBar* w, ProgressBar& c) {
    Watch(w, c, [&c](QProgressBar* x) {
        x->setRange(c.Min(), c.Max());
        x->setValue(c.Value());
        x->setVisible(c.Visible());
    });
}

void BindMenuItem(QAction* a, MenuItem& c) {
    QPointer<QAction> guard(a);
    auto refresh = [&c](QAction* x) {
        x->setText(FromModel(c.Caption()));
        x->setEnabled(c.Enabled());
        x->setVisible(c.Visible());
        x->setCheckable(c.Checked());
        x->setChecked(c.Checked());
    };
    int id = c.Subscribe([guard, refresh] {
        if (guard) refresh(guard.data());
    });
    MenuItem* model = &c;
    QObject::connect(a, &QObject::destroyed, [model, id] { model->Unsubscribe(id); });
    refresh(a);
    QObject::connect(a, &QAction::triggered, [&c] { c.DoClick(); });
}

void BindWindowTitle(QWidget* w, Control& c) {
    Watch(w, c, [&c](QWidget* x) { x->setWindowTitle(FromModel(c.Caption())); });
}

}  // namespace bw::qt
