#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

#include <optional>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The "dimensions" tab of a C-series coder: how it is set up for its line, what that means
// on the conveyor in the units the user chose for this printer, and its print count.
class ctlDominoCPage4 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    // The node's stored setting that keeps the units: "True" for metric, "False" imperial.
    inline static const QString UnitsSetting = QStringLiteral("DominoCSeriesUnits");

    explicit ctlDominoCPage4(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    QGroupBox* buildOrientationFrame();
    QGroupBox* buildDimensionsFrame();
    QGroupBox* buildCalculationsFrame();
    QGroupBox* buildCountsFrame();
    void applyCaptions();
    void fillCombos();

    void LoadUnits();
    void SaveUnits();
    void UpdateImplicitValues();
    double CalculateSpeed() const;
    double CalculatePhotocellDistance() const;
    double CalculateWidth() const;
    std::optional<qint32> selectedDpi() const;

    void cmdUnits_Click();
    void cmdReset_Click();

    // True: metric; false: imperial.
    bool m_bMetric = true;

    QGroupBox* m_fraCalcs = nullptr;
    QComboBox* m_cboDirection = nullptr;
    QComboBox* m_cboOrientation = nullptr;
    QComboBox* m_cboType = nullptr;
    QComboBox* m_cboDpi = nullptr;
    QLineEdit* m_txtFrequency = nullptr;
    QLineEdit* m_txtSpeed = nullptr;
    QLabel* m_lblSpeedUnits = nullptr;
    QLineEdit* m_txtPhotocellDistance = nullptr;
    QLabel* m_lblPhotocelDistUnitis = nullptr;
    QLineEdit* m_txtWidth = nullptr;
    QLabel* m_lblWidthUnits = nullptr;
    QPushButton* m_cmdUnits = nullptr;
    QLineEdit* m_txtCount = nullptr;
    QPushButton* m_cmdReset = nullptr;
};
