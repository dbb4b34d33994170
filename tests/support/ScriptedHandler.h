#pragma once

#include "core/ComponentHandler.h"

#include <QStringList>

// A printer handler whose answers a test sets: it claims the numbers 9000 to 9099 and records
// what the node asks of it. Register it with ScriptedHandler::Registration.
class ScriptedHandler : public ComponentHandler
{
    Q_OBJECT

public:
    static constexpr qint32 FirstNumber = 9000;

    // Puts the class into the handler table for the life of the object.
    class Registration
    {
    public:
        Registration();
        ~Registration();
    };

    // How many handlers of the class have closed down.
    static inline int closeDowns = 0;
    // How many have been asked to delete their printer for good.
    static inline int deletes = 0;

    // The handler made last, so that a test can reach the one its node holds.
    static ScriptedHandler* last();

    ErrorState state = StateGood;
    QString alert;
    QString currentFile;
    qint32 printCount = -1;
    QStringList calls;
    bool failProcess = false;
    clsComponent* node = nullptr;

    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void Process() override;
    void ProcessTimeout(qint16 nTimeout_seconds) override;
    QString HandlerFreindlyName() override { return m_sName; }
    QString PrinterIcon(qint32) override { return {}; }
    ErrorState GetErrorState() override { return m_bDisabled ? StateDisabled : state; }
    QString HighestAlert() override { return alert; }
    qint32 LBXPrinterType() override { return 9000; }
    bool IsPrinterTypeSupported(qint32 n) const override;
    QString GetControlName() const override { return QStringLiteral("ctlScriptedUI"); }
    QString GetObjectName() const override { return QStringLiteral("ScriptedHandler"); }
    void ShowProperties() override { calls << QStringLiteral("ShowProperties"); }
    void SyncTime(const QDateTime& when) override;
    void CloseDown() override { ++closeDowns; }
    void Delete() override
    {
        calls << QStringLiteral("Delete");
        ++deletes;
    }
    QString CurrentFile() override { return currentFile; }
    qint32 PrintCount() override { return printCount; }

private:
    bool m_bDisabled = false;
};
