#include "shell/qt/FormHost.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QLayout>
#include <QMetaObject>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QScrollBar>

#include "shell/qt/Binders.h"

namespace bw::qt {

QtFormHost& QtFormHost::Instance() {
    static QtFormHost host;
    return host;
}

void QtFormHost::Register(const std::string& formName, Builder make) { builders_[formName] = std::move(make); }

void QtFormHost::Attach(FormModel& form, QWidget* w) {
    widgets_[&form] = w;
    attached_.insert(&form);
}

QWidget* QtFormHost::WidgetOf(const FormModel& form) const {
    const auto it = widgets_.find(&form);
    return it == widgets_.end() ? nullptr : it->second.data();
}

QWidget* QtFormHost::Build(FormModel& form) {
    if (QWidget* w = WidgetOf(form)) return w;
    const auto it = builders_.find(form.FormName());
    if (it == builders_.end()) return nullptr;
    // A window stands over the window of the model that opened it, or else
    // over the main window. Never over whatever happens to be active: that
    // may be a dialog on its way out, which would take this one with it.
    QWidget* parent = form.Owner ? WidgetOf(*form.Owner) : nullptr;
    if (!parent) {
        for (const FormModel* f : attached_)
            if (QWidget* w = WidgetOf(*f)) parent = w;
    }
    QWidget* w = it->second(form, parent);
    if (w) widgets_[&form] = w;
    return w;
}

void QtFormHost::ShowForm(FormModel& form, bool modal) {
    QWidget* w = Build(form);
    if (!w) return;
    auto* dlg = qobject_cast<QDialog*>(w);
    if (modal && dlg) {
        QPointer<QDialog> guard(dlg);
        // The model ends the loop by hiding or unloading itself.
        if (form.Window.Visible()) dlg->exec();
        // A modal window serves one show: it goes now, while its model
        // surely lives (the model of a modal show is often a local that goes
        // as soon as the show returns). One the model closed may have gone.
        if (guard && !attached_.count(&form) && !adopted_.count(&form)) {
            widgets_.erase(&form);
            delete guard.data();
        }
        return;
    }
    w->show();
    w->raise();
    w->activateWindow();
}

void QtFormHost::HideForm(FormModel& form) {
    // A bound dialog follows its model by itself.
    QWidget* w = WidgetOf(form);
    if (w && !qobject_cast<BoundDialog*>(w)) w->hide();
}

void QtFormHost::CloseForm(FormModel& form) {
    QPointer<QWidget> w = WidgetOf(form);
    widgets_.erase(&form);
    const bool attached = attached_.erase(&form) > 0;
    std::unique_ptr<FormModel> owned;
    if (auto it = adopted_.find(&form); it != adopted_.end()) {
        owned = std::move(it->second);
        adopted_.erase(it);
    }
    if (w) {
        // Inside its own close event the window is closing already.
        if (!closing_.count(w.data())) {
            closing_.insert(w.data());
            w->close();
            closing_.erase(w.data());
        }
        if (!attached) w->deleteLater();
    }
    if (owned) {
        // The model goes after its window, and never under the call that
        // unloaded it.
        FormModel* m = owned.release();
        if (w && !attached) QObject::connect(w.data(), &QObject::destroyed, [m] { delete m; });
        else QMetaObject::invokeMethod(qApp, [m] { delete m; }, Qt::QueuedConnection);
    }
}

void QtFormHost::AdoptForm(std::unique_ptr<FormModel> form) {
    const FormModel* key = form.get();
    adopted_[key] = std::move(form);
}

void QtFormHost::CloseEvent(FormModel& form, QWidget* w, QCloseEvent* e) {
    if (closing_.count(w)) {
        e->accept();
        return;
    }
    closing_.insert(w);
    QPointer<QWidget> guard(w);
    const bool gone = form.Unload();
    if (guard) closing_.erase(w);
    if (gone) e->accept();
    else e->ignore();
}

BoundDialog::BoundDialog(FormModel& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName(QString::fromStdString(form.FormName()));
    BindWindowTitle(this, form.Window);
    // The window follows the model: once the model is no longer shown the
    // dialog ends, whoever made it.
    Watch(this, form.Window, [](BoundDialog* d) {
        if (d->form_.Window.Visible() || !d->isVisible()) return;
        d->done(!d->dismissing_ && d->Accepted() ? QDialog::Accepted : QDialog::Rejected);
    });
}

void BoundDialog::reject() {
    dismissing_ = true;
    if (form_.Window.Visible()) Dismiss();
    dismissing_ = false;
    // A model that refuses to go keeps its window.
    if (form_.Window.Visible()) return;
    if (isVisible()) QDialog::reject();
}

namespace {
class ScrollPage : public QScrollArea {
public:
    explicit ScrollPage(QWidget* page) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setWidget(page);
    }
    QSize sizeHint() const override {
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};
}  // namespace

QWidget* ScrollingPage(QWidget* page) { return new ScrollPage(page); }

void FitToScreen(QWidget* w) {
    const QSize room = w->screen()->availableSize() - QSize(16, 48);
    if (w->width() > room.width() || w->height() > room.height()) w->resize(w->size().boundedTo(room));
}

void BoundDialog::showEvent(QShowEvent* e) {
    if (!e->spontaneous()) FitToScreen(this);
    QDialog::showEvent(e);
}

void AddDoneFooter(QDialog* dlg, QLayout* outer, bw::CommandButton& done) {
    auto* b = new QPushButton(dlg);
    b->setObjectName(QString::fromStdString(done.Name));
    BindButton(b, done);
    auto* buttons = new QDialogButtonBox(dlg);
    buttons->addButton(b, QDialogButtonBox::AcceptRole);
    outer->addWidget(buttons);
}

}  // namespace bw::qt
