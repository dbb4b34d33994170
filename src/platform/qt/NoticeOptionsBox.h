#pragma once

#include <QGroupBox>

class QCheckBox;
class QLineEdit;
class QSpinBox;

// The options of the trouble notices in the options dialog: on or off, the delay, and the
// sound played with a notice. Shows the kept ones; save() keeps what it shows.
class NoticeOptionsBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit NoticeOptionsBox(QWidget* parent = nullptr);

    void save() const;

private:
    QCheckBox* chkNotify;
    QSpinBox* spnDelay;
    QLineEdit* txtSound;
};
