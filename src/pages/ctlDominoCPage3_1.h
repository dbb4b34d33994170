#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QGroupBox;
class QPlainTextEdit;

// The logos tab of a C-series coder: the names of the logos it holds, to read and copy.
class ctlDominoCPage3_1 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage3_1(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    void ShowLogoList();

    QGroupBox* fraLogoList;
    QPlainTextEdit* txtLogoList;
};
