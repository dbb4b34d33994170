#pragma once

#include "core/ErrorState.h"

#include <QLabel>
#include <QMap>
#include <QWidget>

class QToolButton;
class StateCounts;

// The status bar's view of the site: a flat button per state with its count, in the state's
// colours as the tree shows them, and the note that polling is off. A press asks for the next
// printer in that state.
class GlanceBar : public QWidget
{
    Q_OBJECT

public:
    explicit GlanceBar(QWidget* parent = nullptr);

    void showCounts(const StateCounts& counts);
    // An empty note hides it.
    void showPollingNote(const QString& note);

    QToolButton* button(ErrorState state) const { return m_buttons.value(state); }
    const QLabel& pollingNote() const { return m_pollingNote; }

signals:
    void nextAsked(ErrorState state);

private:
    QToolButton* makeButton(ErrorState state);

    QLabel m_pollingNote;
    QMap<ErrorState, QToolButton*> m_buttons;
};
