#include "shell/qt/Binders.h"

#include <QHeaderView>
#include <QTreeWidgetItemIterator>
#include <QPointer>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <QHBoxLayout>
#include <QEvent>
#include <QKeyEvent>

#include <map>

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

namespace {
// Runs a text box's focus events, which carry the focus colours and the
// corrections made when the user leaves a box.
class FocusEvents : public QObject {
public:
    FocusEvents(QLineEdit* w, TextBox& c) : QObject(w), c_(c) {}

protected:
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::FocusIn && c_.GotFocus)
            zTrapVoid(c_.Name.c_str(), [&] { c_.GotFocus(); });
        else if (e->type() == QEvent::FocusOut && c_.LostFocus)
            zTrapVoid(c_.Name.c_str(), [&] { c_.LostFocus(); });
        return false;
    }

private:
    TextBox& c_;
};
}  // namespace

namespace {
// Hands Enter and Delete to the model's KeyDown; a key the model took goes
// no further, so Enter in a list never reaches the dialog's default button.
class KeyEvents : public QObject {
public:
    KeyEvents(QWidget* w, Control& c) : QObject(w), c_(c) {}

protected:
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() != QEvent::KeyPress || !c_.KeyDown) return false;
        const auto* k = static_cast<QKeyEvent*>(e);
        int16_t code = 0;
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) code = kKeyReturn;
        else if (k->key() == Qt::Key_Delete) code = kKeyDelete;
        if (code == 0 || k->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) return false;
        zTrapVoid(c_.Name.c_str(), [&] { c_.KeyDown(code); });
        return code == 0;
    }

private:
    Control& c_;
};
}  // namespace

void BindTextBox(QLineEdit* w, TextBox& c) {
    auto selected = std::make_shared<int32_t>(c.SelectRequests());
    Watch(w, c, [&c, selected](QLineEdit* x) {
        QSignalBlocker b(x);
        QString t = FromModel(c.Text());
        if (x->text() != t) x->setText(t);
        if (*selected != c.SelectRequests()) {
            *selected = c.SelectRequests();
            // After the event at hand: a click that gave the focus places
            // the cursor once the focus has arrived, which would undo it.
            QTimer::singleShot(0, x, [x, start = c.SelStart(), length = c.SelLength()] {
                x->setSelection(start, length);
            });
        }
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
        x->setReadOnly(c.Locked);
        if (c.MaxLength > 0) x->setMaxLength(c.MaxLength);
        QPalette p = x->palette();
        if (c.BackColor() >= 0) p.setColor(QPalette::Base, FromWinColor(c.BackColor()));
        if (c.ForeColor() >= 0) p.setColor(QPalette::Text, FromWinColor(c.ForeColor()));
        x->setPalette(p);
    });
    QObject::connect(w, &QLineEdit::textEdited, [&c](const QString& t) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetText(ToModel(t)); });
    });
    w->installEventFilter(new FocusEvents(w, c));
}

UpDown::UpDown(ScrollBar& model, QWidget* parent) : QWidget(parent), model_(model) {
    setObjectName(QString::fromStdString(model.Name));
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    for (int i = 0; i < 2; ++i) {
        auto* b = new QToolButton(this);
        b->setArrowType(i == 0 ? Qt::UpArrow : Qt::DownArrow);
        b->setAutoRepeat(true);
        b->setFocusPolicy(Qt::NoFocus);
        b->setFixedSize(16, 11);
        b->setObjectName(i == 0 ? "up" : "down");
        box->addWidget(b);
        QObject::connect(b, &QToolButton::clicked, this, [this, i] {
            zTrapVoid(model_.Name.c_str(), [&] {
                if (i == 0) model_.StepUp();
                else model_.StepDown();
            });
        });
    }
    BindCommon(this, model);
}

QWidget* NumberInput(QLineEdit* text, TextBox& textModel, ScrollBar& scrlModel, QWidget* parent) {
    auto* w = new QWidget(parent);
    auto* row = new QHBoxLayout(w);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    text->setParent(w);
    text->setAlignment(Qt::AlignRight);
    text->setObjectName(QString::fromStdString(textModel.Name));
    BindTextBox(text, textModel);
    row->addWidget(text);
    row->addWidget(new UpDown(scrlModel, w));
    // The pair shows and hides together, following the up-down.
    Watch(w, scrlModel, [&scrlModel](QWidget* x) { x->setVisible(scrlModel.Visible()); });
    return w;
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

void BindScrollBar(QScrollBar* w, ScrollBar& c) {
    Watch(w, c, [&c](QScrollBar* x) {
        QSignalBlocker b(x);
        x->setRange(c.Min(), c.Max());
        x->setSingleStep(c.SmallChange);
        x->setPageStep(c.LargeChange);
        x->setValue(c.Value());
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, &QScrollBar::valueChanged, [&c](int v) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetValue(static_cast<int16_t>(v)); });
    });
}

void BindOption(QRadioButton* w, OptionButton& c) {
    // Qt's own exclusive groups would clear a button behind the model's back;
    // the model's group does that job.
    w->setAutoExclusive(false);
    Watch(w, c, [&c](QRadioButton* x) {
        QSignalBlocker b(x);
        x->setText(FromModel(c.Caption()));
        x->setChecked(c.Value());
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, &QRadioButton::clicked, [&c, w] {
        // A click on a chosen option leaves it chosen, as a radio button does.
        zTrapVoid(c.Name.c_str(), [&] { c.SetValue(true); });
        QSignalBlocker b(w);
        w->setChecked(c.Value());
    });
}

void BindListBox(QListWidget* w, ListBox& c) {
    Watch(w, c, [&c](QListWidget* x) {
        QSignalBlocker b(x);
        QStringList items;
        for (int32_t i = 0; i < c.ListCount(); ++i) items << FromModel(c.List(i));
        bool same = x->count() == items.size();
        for (int i = 0; same && i < x->count(); ++i) same = x->item(i)->text() == items[i];
        if (!same) {
            x->clear();
            x->addItems(items);
        }
        x->setSelectionMode(c.MultiSelect ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
        x->setCurrentRow(c.ListIndex(), QItemSelectionModel::NoUpdate);
        for (int i = 0; i < x->count(); ++i) x->item(i)->setSelected(c.Selected(i));
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    QObject::connect(w, &QListWidget::itemSelectionChanged, [&c, w] {
        zTrapVoid(c.Name.c_str(), [&] {
            // Read the widget before touching the model: the model's events
            // refresh the widget in between.
            std::vector<bool> marks;
            for (int i = 0; i < w->count() && i < c.ListCount(); ++i) marks.push_back(w->item(i)->isSelected());
            if (!c.MultiSelect) {
                auto at = std::find(marks.begin(), marks.end(), true);
                c.SetListIndex(at == marks.end() ? -1 : static_cast<int32_t>(at - marks.begin()));
                return;
            }
            for (size_t i = 0; i < marks.size(); ++i)
                if (marks[i] != c.Selected(static_cast<int32_t>(i))) c.SetSelected(static_cast<int32_t>(i), marks[i]);
        });
    });
    QObject::connect(w, &QListWidget::itemDoubleClicked, [&c](QListWidgetItem*) {
        if (c.DblClick) c.DblClick();
    });
    w->installEventFilter(new KeyEvents(w, c));
}

void BindListView(QTreeWidget* w, ListView& c) {
    w->setRootIsDecorated(false);
    w->setUniformRowHeights(true);
    w->setSelectionMode(QAbstractItemView::SingleSelection);
    w->header()->setSectionsClickable(true);
    w->header()->setSortIndicatorShown(false);
    Watch(w, c, [&c](QTreeWidget* x) {
        QSignalBlocker b(x);
        QStringList headers;
        for (const auto& h : c.ColumnHeaders) headers << FromModel(h);
        x->setColumnCount(std::max<int>(1, static_cast<int>(headers.size())));
        x->setHeaderLabels(headers);
        x->setSelectionBehavior(c.FullRowSelect ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
        // Rows are rebuilt only when their texts changed: a click that merely
        // selects must not delete the row Qt is still reporting.
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
            for (int32_t i = 0; i < c.Count(); ++i) {
                const auto& it = c.Item(i);
                auto* row = new QTreeWidgetItem(x);
                row->setText(0, FromModel(it.Text));
                for (size_t s = 1; s <= it.SubItems.size(); ++s)
                    row->setText(static_cast<int>(s), FromModel(it.SubItem(s)));
                row->setData(0, Qt::UserRole, i);
            }
        }
        x->clearSelection();
        for (int32_t i = 0; i < c.Count(); ++i)
            if (c.Item(i).Selected) {
                x->setCurrentItem(x->topLevelItem(i));
                break;
            }
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    // The row the keyboard or the mouse moved to is the model's selection.
    auto select = [&c](QTreeWidgetItem* item) {
        const int32_t i = item->data(0, Qt::UserRole).toInt();
        if (i != c.SelectedIndex()) zTrapVoid(c.Name.c_str(), [&] { c.Select(i); });
    };
    QObject::connect(w, &QTreeWidget::itemSelectionChanged, [w, select] {
        if (QTreeWidgetItem* item = w->currentItem(); item && item->isSelected()) select(item);
    });
    QObject::connect(w, &QTreeWidget::itemClicked, [select](QTreeWidgetItem* item, int) { select(item); });
    QObject::connect(w, &QTreeWidget::itemDoubleClicked, [&c](QTreeWidgetItem*, int) {
        if (c.DblClick) c.DblClick();
    });
    w->installEventFilter(new KeyEvents(w, c));
    QObject::connect(w->header(), &QHeaderView::sectionClicked, [&c](int column) {
        if (c.ColumnClick) c.ColumnClick(column);
    });
}

void BindTreeView(QTreeWidget* w, TreeView& c) {
    w->setHeaderHidden(true);
    w->setColumnCount(1);
    w->setSelectionMode(QAbstractItemView::SingleSelection);
    Watch(w, c, [&c](QTreeWidget* x) {
        QSignalBlocker b(x);
        std::map<std::string, QTreeWidgetItem*> byKey;
        // The tree is rebuilt only when its nodes changed: expanding or
        // selecting must not delete the item Qt is still reporting.
        QString shape;
        for (const auto& n : c.Nodes())
            shape += FromModel(n.ParentKey + '\x1f' + n.Key + '\x1f' + n.Text + '\x1e') + QString::number(n.ForeColor);
        if (x->property("bwShape").toString() == shape) {
            for (QTreeWidgetItemIterator it(x); *it; ++it) byKey[ToModel((*it)->data(0, Qt::UserRole).toString())] = *it;
            for (const auto& n : c.Nodes())
                if (auto f = byKey.find(n.Key); f != byKey.end()) f->second->setExpanded(n.Expanded);
            x->clearSelection();
            if (auto sel = byKey.find(c.SelectedKey()); !c.SelectedKey().empty() && sel != byKey.end())
                x->setCurrentItem(sel->second);
            x->setVisible(c.Visible());
            x->setEnabled(c.Enabled());
            return;
        }
        x->setProperty("bwShape", shape);
        x->clear();
        // Parents always come before their children in the model's order.
        for (const auto& n : c.Nodes()) {
            QTreeWidgetItem* item = nullptr;
            auto parent = byKey.find(n.ParentKey);
            if (!n.ParentKey.empty() && parent != byKey.end()) item = new QTreeWidgetItem(parent->second);
            else item = new QTreeWidgetItem(x);
            item->setText(0, FromModel(n.Text));
            item->setData(0, Qt::UserRole, FromModel(n.Key));
            if (n.ForeColor >= 0) item->setForeground(0, FromWinColor(n.ForeColor));
            byKey[n.Key] = item;
        }
        for (const auto& n : c.Nodes())
            if (n.Expanded) byKey[n.Key]->setExpanded(true);
        auto sel = byKey.find(c.SelectedKey());
        if (!c.SelectedKey().empty() && sel != byKey.end()) x->setCurrentItem(sel->second);
        x->setVisible(c.Visible());
        x->setEnabled(c.Enabled());
    });
    auto key = [](QTreeWidgetItem* item) { return ToModel(item->data(0, Qt::UserRole).toString()); };
    QObject::connect(w, &QTreeWidget::itemExpanded, [&c, key](QTreeWidgetItem* item) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetExpanded(key(item), true); });
    });
    QObject::connect(w, &QTreeWidget::itemCollapsed, [&c, key](QTreeWidgetItem* item) {
        zTrapVoid(c.Name.c_str(), [&] { c.SetExpanded(key(item), false); });
    });
    // The node the keyboard or the mouse moved to is the model's selection,
    // so a command acts on the highlighted node.
    auto select = [&c, key](QTreeWidgetItem* item) {
        const std::string k = key(item);
        if (k != c.SelectedKey()) zTrapVoid(c.Name.c_str(), [&] { c.Select(k); });
    };
    QObject::connect(w, &QTreeWidget::itemSelectionChanged, [w, select] {
        if (QTreeWidgetItem* item = w->currentItem(); item && item->isSelected()) select(item);
    });
    QObject::connect(w, &QTreeWidget::itemClicked, [select](QTreeWidgetItem* item, int) { select(item); });
    QObject::connect(w, &QTreeWidget::itemDoubleClicked, [&c](QTreeWidgetItem*, int) {
        if (c.DblClick) c.DblClick();
    });
    w->installEventFilter(new KeyEvents(w, c));
}

void BindTimer(QTimer* t, Timer& c) {
    auto refresh = [&c](QTimer* x) {
        if (c.Enabled() && c.Interval > 0) {
            if (!x->isActive() || x->interval() != c.Interval) x->start(c.Interval);
        } else {
            x->stop();
        }
    };
    Watch(t, c, [refresh](QTimer* x) { refresh(x); });
    QObject::connect(t, &QTimer::timeout, [&c] { zTrapVoid(c.Name.c_str(), [&] { c.Tick(); }); });
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
    auto refresh = [&c](QAction* x) {
        x->setText(FromModel(c.Caption()));
        x->setEnabled(c.Enabled());
        x->setVisible(c.Visible());
        x->setCheckable(c.Checked());
        x->setChecked(c.Checked());
        x->setToolTip(FromModel(c.ToolTip()));
    };
    Watch(a, c, [refresh](QAction* x) { refresh(x); });
    QObject::connect(a, &QAction::triggered, [&c] { c.DoClick(); });
}

void BindWindowTitle(QWidget* w, Control& c) {
    Watch(w, c, [&c](QWidget* x) { x->setWindowTitle(FromModel(c.Caption())); });
}

}  // namespace bw::qt
