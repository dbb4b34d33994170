#pragma once

#include <QDialog>
#include <optional>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class NoticeOptionsBox;

// The options dialog: the poll interval in seconds, 4 to 65000, and the trouble notices. OK
// saves them and puts them in force at once; Cancel changes nothing.
class frmOptions : public QDialog
{
    Q_OBJECT

public:
    static constexpr qint32 MinSeconds = 4;
    static constexpr qint32 MaxSeconds = 65000;

    explicit frmOptions(QWidget* owner = nullptr);

    // Opens a new dialog over the control's window; it blocks the other windows, not the
    // event loop, and goes when it closes.
    static void CreateAndShow(QWidget* owner);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setCaptions();
    void layOut();
    void stepInterval(int direction, Qt::KeyboardModifiers modifiers);
    void followField(const QString& text);
    void cmdOK_Click();
    // The field's number rounded to a whole 32-bit number, if it reads as one.
    static std::optional<qint32> wholeSeconds(const QString& text);

    QGroupBox* fraPoll;
    QLabel* lblInterval;
    QLineEdit* txtInterval;
    QSpinBox* spnInterval;
    QLabel* lblIntervalUnits;
    NoticeOptionsBox* fraNotices;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
};
