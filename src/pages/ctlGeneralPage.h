#pragma once

#include <QWidget>

class QLabel;

// The read-only page of what every printer has: its name, its port and its type.
class ctlGeneralPage : public QWidget
{
    Q_OBJECT

public:
    explicit ctlGeneralPage(QWidget* parent = nullptr);

    // The frame calls this on every status change, so it only writes texts. Busy and
    // disabled are taken for the frames' sake and not shown.
    void Setup(const QString& sName, const QString& sPort, const QString& sType, bool bBusy,
               bool bDisabled);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* addLabel(const char* objectName);
    void placeLabels();

    QLabel* m_lblName;
    QLabel* m_lblPort;
    QLabel* m_lblType;
    QLabel* m_lblNameData;
    QLabel* m_lblPortData;
    QLabel* m_lblTypeData;
};
