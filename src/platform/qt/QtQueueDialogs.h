#pragma once

#include "platform/lbx/IQueueDialogs.h"

#include <QPointer>
#include <QWidget>

// The print application's dialogs as windows, modal over the program's window.
class QtQueueDialogs : public IQueueDialogs
{
public:
    explicit QtQueueDialogs(QWidget* parent = nullptr);

    std::optional<QueueRecord> askForNewQueue() override;
    void showProperties(const QueueRecord& record, const QString& reachability) override;

private:
    // The window may close while a dialog is open over it.
    QPointer<QWidget> m_parent;
};
