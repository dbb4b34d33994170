#pragma once

#include "platform/lbx/QueueRecord.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// The form of a new printer: its queue's name, port, printer number and friendly name. OK
// stays refused, with the reason beside the field, until the name and the port can be used.
class AddPrinterDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AddPrinterDialog(QWidget* parent = nullptr);

    // The queue as entered; a friendly name left empty is the queue's name.
    QueueRecord record() const;
    void accept() override;

    // Why the text can't name a queue, or empty when it can.
    static QString nameProblem(const QString& name);
    // Why the text can't be a queue's port, or empty when it can.
    static QString portProblem(const QString& port);

private:
    QWidget* fieldWithProblem(QLineEdit* field, QLabel* problem);
    QWidget* typeField();
    void showProblem(QLabel* label, const QString& problem);
    void chooseFamily(int index);
    void followNumber(int number);

    QLineEdit* m_name;
    QLabel* m_nameProblem;
    QLineEdit* m_port;
    QLabel* m_portProblem;
    QComboBox* m_family;
    QSpinBox* m_number;
    QLineEdit* m_friendlyName;
};
