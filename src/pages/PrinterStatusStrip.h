#pragma once

#include <QWidget>

class QFrame;
class QLabel;

// The strip above a printer's tabs, to be read at a glance: the printer's state as the
// colour behind its icon, its name, and, for the kinds that tell one, why it doesn't answer.
class PrinterStatusStrip : public QWidget
{
    Q_OBJECT

public:
    PrinterStatusStrip(bool bShowsTimeout, QWidget* parent = nullptr);

    // A colour of the palette's 32-bit form.
    void setColour(quint32 colour);
    // A picture file; empty for none.
    void setIcon(const QString& path);
    void setName(const QString& name);
    // Ignored by a strip without the line for it.
    void setTimeout(const QString& text);

private:
    QFrame* m_imgGeneralBackground;
    QLabel* m_imgGeneral;
    QLabel* m_lblGeneralInfo;
    QLabel* m_lblTimeout = nullptr;
    QString m_iconPath;
};
