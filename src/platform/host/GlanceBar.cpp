#include "platform/host/GlanceBar.h"

#include "core/ErrorColours.h"
#include "core/StateCounts.h"
#include "platform/qt/QtTreeView.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace {
// In the order the counts are told.
constexpr ErrorState Shown[] = {StateGood,     StateWarning,  StateFault,
                                StateNoAnswer, StatePortBusy, StateDisabled};
constexpr int SwatchSize = 14;

// A small tree item: the state's background with a dot of its text colour.
QIcon swatch(ErrorState state, const QPalette& palette)
{
    QPixmap picture(SwatchSize, SwatchSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette.color(QPalette::Mid));
    painter.setBrush(QtTreeView::toColor(LookUpColour(state, TreePalette, false), palette));
    painter.drawRoundedRect(QRectF(0.5, 0.5, SwatchSize - 1, SwatchSize - 1), 2, 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QtTreeView::toColor(LookUpColour(state, TreePalette, true), palette));
    painter.drawEllipse(QRectF(3.5, 3.5, SwatchSize - 7, SwatchSize - 7));
    return QIcon(picture);
}
} // namespace

GlanceBar::GlanceBar(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_pollingNote.setObjectName(QStringLiteral("pollingNote"));
    m_pollingNote.setStyleSheet(QStringLiteral("QLabel { font-weight: bold; padding: 0 8px; }"));
    m_pollingNote.hide();
    layout->addWidget(&m_pollingNote);
    for (const ErrorState state : Shown)
        layout->addWidget(makeButton(state));
    showCounts(StateCounts());
}

QToolButton* GlanceBar::makeButton(ErrorState state)
{
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIcon(swatch(state, palette()));
    button->setToolTip(tr("Select the next printer in this state"));
    connect(button, &QToolButton::clicked, this, [this, state] { emit nextAsked(state); });
    m_buttons.insert(state, button);
    return button;
}

void GlanceBar::showCounts(const StateCounts& counts)
{
    for (auto it = m_buttons.cbegin(); it != m_buttons.cend(); ++it) {
        QToolButton* button = it.value();
        button->setText(counts.told(it.key()));
        button->setEnabled(counts.count(it.key()) > 0);
    }
}

void GlanceBar::showPollingNote(const QString& note)
{
    m_pollingNote.setText(note);
    m_pollingNote.setVisible(!note.isEmpty());
}
