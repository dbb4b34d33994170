#include "pages/ctlDominoCPage4.h"

#include "core/clsComponent.h"
#include "pages/DimensionsCalculator.h"
#include "pages/PageControls.h"
#include "platform/qt/ControlHelpers.h"
#include "services/VigilError.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
struct FixedCaption
{
    const char* objectName;
    qint32 messageId;
    const char* fallback;
};

constexpr FixedCaption FixedCaptions[] = {
    {"fraOrient", 185, "orientation"},
    {"lblDirection", 186, "direction"},
    {"lblOrientation", 189, "orientation"},
    {"fraDimensions", 192, "dimensions"},
    {"lblType", 193, "type"},
    {"lblDpi", 198, "dpi"},
    {"lblFrequency", 197, "frequency"},
    {"lblSpeed", 210, "conveyor speed"},
    {"lblPhotocellDistance", 211, "photocell distance"},
    {"lblWidth", 212, "maximum width"},
    {"cmdUnits", 213, "change units"},
    {"fraCounts", 218, "counts"},
    {"cmdReset", 219, "reset"},
};

// The captions that follow the units: metric, then imperial.
constexpr qint32 MsgCalcsMetric = 208;
constexpr qint32 MsgCalcsImperial = 209;
constexpr qint32 MsgSpeedMetric = 215;
constexpr qint32 MsgSpeedImperial = 214;
constexpr qint32 MsgLengthMetric = 217;
constexpr qint32 MsgLengthImperial = 216;

constexpr ComboEntry Directions[] = {{187, "left to right", 0}, {188, "right to left", 1}};
constexpr ComboEntry Orientations[] = {{190, "normal", 0}, {191, "inverted", 1}};
// There is no head type 3.
constexpr ComboEntry HeadTypes[] = {{194, "type 1", 1}, {195, "type 2", 2}, {196, "type 4", 4}};
constexpr ComboEntry Resolutions[] = {
    {199, "75 dpi", 75},   {200, "85 dpi", 85},   {201, "100 dpi", 100},
    {202, "120 dpi", 120}, {203, "150 dpi", 150}, {204, "170 dpi", 170},
    {205, "200 dpi", 200}, {206, "240 dpi", 240}, {207, "300 dpi", 300},
};
constexpr qint32 HertzPerHundred = 100;

const QString MetricText = QStringLiteral("True");
const QString ImperialText = QStringLiteral("False");

QComboBox* readOnlyCombo(const char* objectName, QWidget* parent)
{
    auto* combo = NamedControl<QComboBox>(objectName, parent);
    MakeReadOnly(*combo);
    return combo;
}

QLineEdit* readOnlyBox(const char* objectName, QWidget* parent)
{
    auto* box = NamedControl<QLineEdit>(objectName, parent);
    box->setReadOnly(true);
    return box;
}

// A frame whose rows are a caption, a value and, where it has one, its units.
std::pair<QGroupBox*, QGridLayout*> gridFrame(const char* objectName, QWidget* parent)
{
    auto* frame = NamedControl<QGroupBox>(objectName, parent);
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    return {frame, grid};
}

void addRow(QGridLayout& grid, QWidget* caption, QWidget* field, QWidget* units = nullptr)
{
    const int row = grid.rowCount();
    grid.addWidget(caption, row, 0);
    grid.addWidget(field, row, 1);
    if (units)
        grid.addWidget(units, row, 2);
}
} // namespace

ctlDominoCPage4::ctlDominoCPage4(QWidget* parent)
    : HandlerPage(parent)
{
    // The printer's set-up on the left, what follows from it on the right.
    auto* setUp = new QVBoxLayout;
    setUp->addWidget(buildOrientationFrame());
    setUp->addWidget(buildDimensionsFrame());
    setUp->addStretch(1);
    auto* results = new QVBoxLayout;
    results->addWidget(buildCalculationsFrame());
    results->addWidget(buildCountsFrame());
    results->addStretch(1);
    auto* page = new QHBoxLayout(this);
    page->addLayout(setUp, 1);
    page->addLayout(results, 1);
    connect(m_cmdUnits, &QPushButton::clicked, this,
            [this] { RunTrapped(context("cmdUnits_Click"), [this] { cmdUnits_Click(); }); });
    connect(m_cmdReset, &QPushButton::clicked, this,
            [this] { RunTrapped(context("cmdReset_Click"), [this] { cmdReset_Click(); }); });
}

QGroupBox* ctlDominoCPage4::buildOrientationFrame()
{
    auto [frame, grid] = gridFrame("fraOrient", this);
    addRow(*grid, NamedControl<QLabel>("lblDirection", frame),
           m_cboDirection = readOnlyCombo("cboDirection", frame));
    addRow(*grid, NamedControl<QLabel>("lblOrientation", frame),
           m_cboOrientation = readOnlyCombo("cboOrientation", frame));
    return frame;
}

QGroupBox* ctlDominoCPage4::buildDimensionsFrame()
{
    auto [frame, grid] = gridFrame("fraDimensions", this);
    addRow(*grid, NamedControl<QLabel>("lblType", frame),
           m_cboType = readOnlyCombo("cboType", frame));
    addRow(*grid, NamedControl<QLabel>("lblDpi", frame), m_cboDpi = readOnlyCombo("cboDpi", frame));
    addRow(*grid, NamedControl<QLabel>("lblFrequency", frame),
           m_txtFrequency = readOnlyBox("txtFrequency", frame));
    return frame;
}

QGroupBox* ctlDominoCPage4::buildCalculationsFrame()
{
    auto [frame, grid] = gridFrame("fraCalcs", this);
    m_fraCalcs = frame;
    addRow(*grid, NamedControl<QLabel>("lblSpeed", frame),
           m_txtSpeed = readOnlyBox("txtSpeed", frame),
           m_lblSpeedUnits = NamedControl<QLabel>("lblSpeedUnits", frame));
    addRow(*grid, NamedControl<QLabel>("lblPhotocellDistance", frame),
           m_txtPhotocellDistance = readOnlyBox("txtPhotocellDistance", frame),
           m_lblPhotocelDistUnitis = NamedControl<QLabel>("lblPhotocelDistUnitis", frame));
    addRow(*grid, NamedControl<QLabel>("lblWidth", frame),
           m_txtWidth = readOnlyBox("txtWidth", frame),
           m_lblWidthUnits = NamedControl<QLabel>("lblWidthUnits", frame));
    m_cmdUnits = NamedControl<QPushButton>("cmdUnits", frame);
    grid->addWidget(m_cmdUnits, grid->rowCount(), 1, 1, 2, Qt::AlignRight);
    return frame;
}

QGroupBox* ctlDominoCPage4::buildCountsFrame()
{
    auto* frame = NamedControl<QGroupBox>("fraCounts", this);
    auto* row = new QHBoxLayout(frame);
    row->addWidget(m_txtCount = readOnlyBox("txtCount", frame), 1);
    row->addWidget(m_cmdReset = NamedControl<QPushButton>("cmdReset", frame));
    return frame;
}

void ctlDominoCPage4::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    applyCaptions();
    fillCombos();
    m_Handler_StatusChanged();
}

void ctlDominoCPage4::applyCaptions()
{
    for (const FixedCaption& caption : FixedCaptions) {
        if (auto* control = findChild<QWidget*>(QLatin1String(caption.objectName)))
            Caption(*control, caption.messageId, QLatin1String(caption.fallback));
    }
}

void ctlDominoCPage4::fillCombos()
{
    FillCombo(*m_cboDirection, Directions);
    FillCombo(*m_cboOrientation, Orientations);
    FillCombo(*m_cboType, HeadTypes);
    FillCombo(*m_cboDpi, Resolutions);
}

void ctlDominoCPage4::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    const auto head = DimensionsCalculator::ParseHead(m_Handler->GetHead(1));
    const std::pair<QComboBox*, qint32> selections[] = {
        {m_cboDirection, m_Handler->PrintDirection()},
        {m_cboOrientation, m_Handler->PrintOrientation()},
        {m_cboType, head.type},
        {m_cboDpi, m_Handler->DPI()},
    };
    for (const auto& [combo, value] : selections) {
        if (!IsTagSet(*combo))
            SelectComboByData(*combo, value);
    }
    if (!IsTagSet(*m_txtFrequency))
        m_txtFrequency->setText(QString::number(head.frequencyHundreds * HertzPerHundred));
    m_txtCount->setText(QString::number(m_Handler->PrintCount()));
    UpdateImplicitValues();
}

void ctlDominoCPage4::UpdateImplicitValues()
{
    using namespace DimensionsCalculator;
    LoadUnits();
    Caption(*m_fraCalcs, m_bMetric ? MsgCalcsMetric : MsgCalcsImperial,
            QStringLiteral("implicit values"));
    Caption(*m_lblSpeedUnits, m_bMetric ? MsgSpeedMetric : MsgSpeedImperial,
            m_bMetric ? QStringLiteral("m/min") : QStringLiteral("ft/min"));
    for (QLabel* units : {m_lblPhotocelDistUnitis, m_lblWidthUnits})
        Caption(*units, m_bMetric ? MsgLengthMetric : MsgLengthImperial,
                m_bMetric ? QStringLiteral("mm") : QStringLiteral("inches"));
    m_txtSpeed->setText(GeneralFormat(CalculateSpeed()));
    m_txtPhotocellDistance->setText(FourDecimals(CalculatePhotocellDistance()));
    m_txtWidth->setText(GeneralFormat(CalculateWidth()));
}

// Each printer keeps its own choice; a page without a node keeps it for as long as it lives.
void ctlDominoCPage4::LoadUnits()
{
    clsComponent* node = m_Handler ? PrinterNode(*m_Handler) : nullptr;
    QString stored;
    if (!node || !node->GetStoredSetting(UnitsSetting, stored))
        return;
    if (stored.compare(MetricText, Qt::CaseInsensitive) == 0)
        m_bMetric = true;
    else if (stored.compare(ImperialText, Qt::CaseInsensitive) == 0)
        m_bMetric = false;
}

void ctlDominoCPage4::SaveUnits()
{
    clsComponent* node = m_Handler ? PrinterNode(*m_Handler) : nullptr;
    if (!node)
        return;
    node->AddStoredSetting(UnitsSetting, m_bMetric ? MetricText : ImperialText);
    node->SaveAll();
}

std::optional<qint32> ctlDominoCPage4::selectedDpi() const
{
    try {
        return GetComboData(*m_cboDpi);
    } catch (const VigilError&) {
        return std::nullopt;
    }
}

double ctlDominoCPage4::CalculateSpeed() const
{
    bool numeric = false;
    // Written by this page in the same C locale, so it reads back as it was written.
    const double frequency = QLocale::c().toDouble(m_txtFrequency->text(), &numeric);
    const auto dpi = selectedDpi();
    return numeric && dpi ? DimensionsCalculator::Speed(frequency, *dpi, m_bMetric) : 0;
}

double ctlDominoCPage4::CalculatePhotocellDistance() const
{
    const auto dpi = selectedDpi();
    return m_Handler && dpi
               ? DimensionsCalculator::PhotocellDistance(m_Handler->Delay(), *dpi, m_bMetric)
               : 0;
}

double ctlDominoCPage4::CalculateWidth() const
{
    const auto dpi = selectedDpi();
    return dpi ? DimensionsCalculator::Width(*dpi, m_bMetric) : 0;
}

void ctlDominoCPage4::cmdUnits_Click()
{
    m_bMetric = !m_bMetric;
    SaveUnits();
    UpdateImplicitValues();
}

// The count shown stays until the coder's next answer brings the new one.
void ctlDominoCPage4::cmdReset_Click()
{
    if (m_Handler)
        m_Handler->SetCounts(0);
}
