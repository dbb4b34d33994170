#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// The files tab of a C-series coder: the message files it holds, the one it prints, and a
// way to have it print another.
class ctlDominoCPage3 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage3(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    void ShowFileList();
    void followSelection();
    void cmdSetMessage_Click();

    QGroupBox* fraFileList;
    QLabel* lblCurrentFile;
    QLineEdit* txtCurrentFile;
    QListWidget* lstFileList;
    QPushButton* cmdSetMessage;
};
