#pragma once

#include "core/IPage.h"

#include <QPointer>
#include <QWidget>

class GroupHandler;
class QLabel;

// A group's page: for now the group's name, which follows a rename at the next poll.
class GroupUI : public QWidget, public IPage
{
    Q_OBJECT

public:
    explicit GroupUI(QWidget* parent = nullptr);

    // Anything but a group's handler is refused with a type mismatch.
    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged();

private:
    QPointer<GroupHandler> m_Handler;
    QLabel* m_lblName;
};
