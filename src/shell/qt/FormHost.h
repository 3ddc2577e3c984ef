// The Qt side of the window-model protocol: one host for every model. A
// model's window is built from its form name by the builder registered for
// it, shown modal or modeless, hidden and closed when the model says so.
// Adopted models live until their window has gone.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "core/Forms.h"

class QCloseEvent;

namespace bw::qt {

class QtFormHost final : public IFormHost {
public:
    using Builder = std::function<QWidget*(FormModel& form, QWidget* parent)>;

    static QtFormHost& Instance();

    // How to make the window of every model of that name.
    void Register(const std::string& formName, Builder make);
    // A window made elsewhere (the main window) that serves its model.
    void Attach(FormModel& form, QWidget* w);
    // The window of a model, if it has one now.
    QWidget* WidgetOf(const FormModel& form) const;

    // What a bound window's close box does: the model decides through its
    // Unload; refused, the window stays.
    void CloseEvent(FormModel& form, QWidget* w, QCloseEvent* e);

    void ShowForm(FormModel& form, bool modal) override;
    void HideForm(FormModel& form) override;
    void CloseForm(FormModel& form) override;
    void AdoptForm(std::unique_ptr<FormModel> form) override;

private:
    QWidget* Build(FormModel& form);
    std::map<std::string, Builder> builders_;
    std::map<const FormModel*, QPointer<QWidget>> widgets_;
    std::set<const FormModel*> attached_;
    std::map<const FormModel*, std::unique_ptr<FormModel>> adopted_;
    std::set<const QWidget*> closing_;
};

// A dialog bound to a model: its title is the model's caption, and it ends
// (a modal loop returns) when the model hides or unloads itself. Escape and
// the close box run Dismiss, which hides the model unless a subclass gives
// the model's own cancel command.
class BoundDialog : public QDialog {
    Q_OBJECT
public:
    BoundDialog(FormModel& form, QWidget* parent);
    void reject() override;

protected:
    virtual void Dismiss() { form_.Hide(); }
    // The dialog's result once the model has gone: accepted unless the
    // model says the user cancelled.
    virtual bool Accepted() const { return true; }
    // A dialog larger than its screen opens at the screen's size.
    void showEvent(QShowEvent* e) override;
    FormModel& form_;

private:
    bool dismissing_ = false;
};

// The footer of the report windows: the model's Done button on the right.
void AddDoneFooter(QDialog* dlg, QLayout* outer, CommandButton& done);

// A page in a scrolling area that asks for the page's whole size, so a
// window opens as large as its contents and can still shrink to a small
// screen.
QWidget* ScrollingPage(QWidget* page);
// Shrinks a window that would not fit its screen, leaving room for the
// title bar and frame the window system adds.
void FitToScreen(QWidget* w);

// Installs the host and the builders of every window of the program.
void zInstallQtForms();

}  // namespace bw::qt
