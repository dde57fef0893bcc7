#include "tuning-client/source/shortcut/message-box.h"

#include "tuning-common/source/limits.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>

namespace
{
constexpr int textLimit = t_common::limit::statusBarText;

int exec(QWidget* pParent, QMessageBox::Icon icon, const QString& title, const QString& text, const QString& details,
         QMessageBox::StandardButtons buttons = QMessageBox::Ok)
{
    QMessageBox box(icon, title, text.left(textLimit), buttons, pParent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details.left(textLimit));
    // The box's own format does not count for it.
    if (auto* pDetails = box.findChild<QLabel*>("qt_msgbox_informativelabel"))
        pDetails->setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec();
}
} // namespace

namespace message_box
{
void information(QWidget* pParent, const QString& title, const QString& text, const QString& details)
{
    exec(pParent, QMessageBox::Information, title, text, details);
}

void warning(QWidget* pParent, const QString& text)
{
    const auto title = pParent ? QObject::tr("Warning") : QString("Orlenta ISP Tuning Tools");
    exec(pParent, QMessageBox::Warning, title, text, {});
}

QWidget* frontGet(QWidget* pElse)
{
    for (auto* pWindow : {QApplication::activeModalWidget(), QApplication::activeWindow()})
        if (pWindow)
            return pWindow;
    return pElse;
}

bool question(QWidget* pParent, const QString& title, const QString& text, const QString& details)
{
    const auto buttons = QMessageBox::Yes | QMessageBox::No;
    return exec(pParent, QMessageBox::Question, title, text, details, buttons) == QMessageBox::Yes;
}
} // namespace message_box
