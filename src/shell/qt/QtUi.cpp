#include "shell/qt/QtUi.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace bw::qt {

MsgResult QtUi::MsgBox(const std::string& text, MsgButtons buttons, MsgIcon icon, const std::string& title) {
    QMessageBox box;
    box.setWindowTitle(QString::fromStdString(title));
    box.setText(QString::fromStdString(text));
    switch (icon) {
        case MsgIcon::Critical: box.setIcon(QMessageBox::Critical); break;
        case MsgIcon::Question: box.setIcon(QMessageBox::Question); break;
        case MsgIcon::Exclamation: box.setIcon(QMessageBox::Warning); break;
        case MsgIcon::Information: box.setIcon(QMessageBox::Information); break;
        case MsgIcon::None: break;
    }
    QMessageBox::StandardButtons b;
    switch (buttons) {
        case MsgButtons::OK: b = QMessageBox::Ok; break;
        case MsgButtons::OKCancel: b = QMessageBox::Ok | QMessageBox::Cancel; break;
        case MsgButtons::AbortRetryIgnore: b = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore; break;
        case MsgButtons::YesNoCancel: b = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
        case MsgButtons::YesNo: b = QMessageBox::Yes | QMessageBox::No; break;
        case MsgButtons::RetryCancel: b = QMessageBox::Retry | QMessageBox::Cancel; break;
    }
    box.setStandardButtons(b);
    switch (box.exec()) {
        case QMessageBox::Cancel: return MsgResult::Cancel;
        case QMessageBox::Abort: return MsgResult::Abort;
        case QMessageBox::Retry: return MsgResult::Retry;
        case QMessageBox::Ignore: return MsgResult::Ignore;
        case QMessageBox::Yes: return MsgResult::Yes;
        case QMessageBox::No: return MsgResult::No;
        default: return MsgResult::OK;
    }
}

void QtUi::Beep() { QApplication::beep(); }

namespace {
// "Caption|*.bwd|All Files (*.*)|*.*" becomes Qt's "Caption (*.bwd);;All Files (*.*)".
QStringList QtFilters(const std::string& filter) {
    QStringList parts = QString::fromStdString(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i];
        QString pattern = QString(parts[i + 1]).replace(';', ' ');
        out << (caption.contains('(') ? caption.left(caption.indexOf('(')).trimmed() : caption) + " (" + pattern + ")";
    }
    return out;
}
}  // namespace

std::string QtUi::OpenFileDialog(const FileDialogRequest& req) {
    QStringList f = QtFilters(req.filter);
    QString sel = (req.filterIndex >= 1 && req.filterIndex <= f.size()) ? f[req.filterIndex - 1] : QString();
    QString dir = QString::fromStdString(req.folder.empty() ? req.fileName : req.folder);
    return QFileDialog::getOpenFileName(nullptr, QString::fromStdString(req.title), dir, f.join(";;"), &sel).toStdString();
}

std::string QtUi::SaveFileDialog(const FileDialogRequest& req) {
    QStringList f = QtFilters(req.filter);
    QString sel = (req.filterIndex >= 1 && req.filterIndex <= f.size()) ? f[req.filterIndex - 1] : QString();
    QString dir = QString::fromStdString(req.folder.empty() ? req.fileName : req.folder + "/" + req.fileName);
    // The program asks its own overwrite question; Qt's would come first.
    return QFileDialog::getSaveFileName(nullptr, QString::fromStdString(req.title), dir, f.join(";;"), &sel,
                                        QFileDialog::DontConfirmOverwrite)
        .toStdString();
}

void QtUi::PointerWait() { QApplication::setOverrideCursor(Qt::WaitCursor); }
void QtUi::PointerNormal() {
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
}
void QtUi::DoEvents() {
    QApplication::processEvents();
    if (OnDoEvents) OnDoEvents();
}

}  // namespace bw::qt
