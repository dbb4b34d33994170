#pragma once

#include "drivers/clsDominoHandlerA.h"
#include "pages/PrinterPage.h"

class QListWidget;

// The "alarms" tab of an A-series printer: one line per alarm the printer reports.
class ctlDominoAPage3 : public HandlerPage<clsDominoHandlerA>
{
    Q_OBJECT

public:
    explicit ctlDominoAPage3(QWidget* parent = nullptr);

    // Shows that the alarms are on their way; they come with the next status change.
    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    void showLines(const QStringList& lines);

    QListWidget* m_lstAlarm;
};
