#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

// The "general" tab of a C-series coder: name, port, type and the coder's FPGA. The frame
// sets it up again at each status change, so a Setup is cheap and may be repeated.
class ctlGeneralCSeriesPage : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlGeneralCSeriesPage(QWidget* parent = nullptr);

    // Takes port and type from the handler.
    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    // Busy and disabled are taken for the frame's sake and not shown.
    void Setup(const QString& sName, ComponentHandler* oHandler, const QString& sPort,
               const QString& sType, bool bBusy, bool bDisabled);
    void m_Handler_StatusChanged() override;

    // Adds each type that isn't empty and isn't listed yet.
    void AddTypes(const QStringList& types);
    void GetValues(QString& sName, QString& sPort, QString& sType) const;
    // True when a type is selected. Otherwise the type list takes the focus, after a warning
    // if `bShow`.
    bool Validate(bool bShow);

private:
    QLabel* addCaptionedRow(const char* labelName, QWidget* field);

    QGridLayout* m_grid;
    QLabel* m_lblName;
    QLabel* m_lblPort;
    QLabel* m_lblType;
    QLabel* m_lblFpgaStatus;
    QLabel* m_lblFpgaVersion;
    QLineEdit* m_txtName;
    QLineEdit* m_txtPort;
    QComboBox* m_cboType;
    QLineEdit* m_txtFpgaStatus;
    QLineEdit* m_txtFpgaVersion;
};
