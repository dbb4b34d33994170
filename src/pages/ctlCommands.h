#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;
class frmCommandTest;

// The heart of the command test console: a printer's commands to pick from, the data and
// type to send with one, and the printer's raw reply, shown byte by byte.
class ctlCommands : public QWidget
{
    Q_OBJECT

public:
    struct Command
    {
        quint8 code = 0;
        QByteArray data;
        qint32 type = 0;
    };

    explicit ctlCommands(QWidget* parent = nullptr);

    // The form whose SendCommand the send button calls.
    void Setup(frmCommandTest* owner);
    void AddCommand(quint8 code, const QString& description);
    void EnableType(bool enabled);
    void EnableShowAsText(bool enabled);
    bool UsesData() const;
    // None while no command is chosen, or while the type selector is on and no type is.
    std::optional<Command> GetCommand() const;
    void SetResponseString(const QString& response);
    void SetResponseBytes(const QByteArray& response);

    // The data field's text as bytes: one token is the text itself, a byte a character; two
    // or more, split at commas, are a byte each, 0 for one that isn't a number from 0 to 255.
    static QByteArray ParseCommandData(const QString& text);
    // The name of a frame's command type.
    static QString TypeName(qint32 type);

    // Byte replies are shown as decoded A-series frames.
    bool m_bASeries = false;

private:
    struct Record
    {
        quint8 code = 0;
        QString description;
    };

    void layOut();
    void clearResponse();
    void refreshDisplay();
    void cmdSend_Click();

    QGroupBox* fraSend;
    QTreeWidget* lstCmd;
    QLabel* lblData;
    QPlainTextEdit* txtData;
    QLabel* lblType;
    QListWidget* lstType;
    QPushButton* cmdSend;
    QGroupBox* fraReceive;
    QPlainTextEdit* txtReceive;
    QCheckBox* chkShowAsText;

    QList<Record> m_records;
    QPointer<frmCommandTest> m_owner;
    // Either a text reply or a byte reply; the other is empty.
    QString m_sResponse;
    QByteArray m_abResponse;
};
