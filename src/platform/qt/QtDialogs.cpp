#include "platform/qt/QtDialogs.h"

#include "platform/qt/AddInWindow.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"

#include <QMessageBox>

namespace {
QMessageBox::Icon iconOf(IDialogs::Icon icon)
{
    switch (icon) {
    case IDialogs::Icon::Information:
        return QMessageBox::Information;
    case IDialogs::Icon::Warning:
        return QMessageBox::Warning;
    case IDialogs::Icon::Question:
        return QMessageBox::Question;
    case IDialogs::Icon::Stop:
        return QMessageBox::Critical;
    case IDialogs::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// The buttons of a box, first to second; the second is also what Escape answers.
QList<QMessageBox::StandardButton> buttonsOf(IDialogs::Buttons buttons)
{
    switch (buttons) {
    case IDialogs::Buttons::YesNo:
        return {QMessageBox::Yes, QMessageBox::No};
    case IDialogs::Buttons::RetryCancel:
        return {QMessageBox::Retry, QMessageBox::Cancel};
    case IDialogs::Buttons::Ok:
        break;
    }
    return {QMessageBox::Ok};
}

IDialogs::Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return IDialogs::Answer::Yes;
    case QMessageBox::No:
        return IDialogs::Answer::No;
    case QMessageBox::Retry:
        return IDialogs::Answer::Retry;
    case QMessageBox::Cancel:
        return IDialogs::Answer::Cancel;
    default:
        return IDialogs::Answer::Ok;
    }
}
} // namespace

IDialogs::Answer QtDialogs::show(const Box& box)
{
    QMessageBox message(AddInWindow());
    message.setIcon(iconOf(box.icon));
    // A box without a title of its own carries the program's.
    message.setWindowTitle(box.title.isEmpty() ? ApplyBranding(ProgramTitle) : box.title);
    message.setText(box.text);

    const QList<QMessageBox::StandardButton> buttons = buttonsOf(box.buttons);
    for (const QMessageBox::StandardButton button : buttons)
        message.addButton(button);
    message.setDefaultButton(box.secondIsDefault && buttons.size() > 1 ? buttons.last()
                                                                       : buttons.first());
    message.setEscapeButton(buttons.last());

    if (box.foreground) {
        message.show();
        message.raise();
        message.activateWindow();
    }
    return answerOf(message.exec());
}
