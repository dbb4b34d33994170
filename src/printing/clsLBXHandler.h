#pragma once

#include "printing/clsGroupIdentifier.h"

#include <QList>
#include <QString>
#include <QtGlobal>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class Application;
class PrintJob;

// How the program reaches the print application: the factory attaches to the running
// application, never starting one, and answers none when there is none. Installed once at
// start-up; with none installed the application counts as not running.
using ApplicationFactory = std::function<std::shared_ptr<Application>()>;
void InstallApplicationFactory(ApplicationFactory factory);

// Tells a label set job which printer each of a group's identifiers means. An entry whose
// identifier is the word for "no printer" passes no printer at all.
void TellGroupIdentifiers(PrintJob& job, const GroupIdentifiers& identifiers);

// The one place where the control holds the print application. It checks the connection
// before each use and attaches anew, without a word, when the old one has died; it
// completes label file names and turns a file and a queue into a print job.
class clsLBXHandler : public std::enable_shared_from_this<clsLBXHandler>
{
public:
    static constexpr qint32 NotRunning = qint32(0x80040201);
    // What the application raises for a file that doesn't suit the queue.
    static constexpr qint32 InvalidArgument = 5;
    // A job was wanted and there was none.
    static constexpr qint32 NoObject = 91;

    // Attaches at once; raises NotRunning when the application isn't there.
    clsLBXHandler();

    bool IsAdministrator();
    // Raises NotRunning when the connection is dead and can't be made again.
    void Check();
    Application& LBX_App();
    // A label file's full path from its path relative to the label folder.
    QString LabelPath(const QString& sRelativePath);
    // An empty sPrinter becomes the default queue's name, which the caller sees.
    std::shared_ptr<PrintJob> PrintFormat(QString sFmtName, const QString& sComment,
                                          qint32 nQuantity, QString& sPrinter, bool bPause);
    std::shared_ptr<PrintJob> PrintDAGLabelSet(const QString& sLabelSetName, bool bDisplayMessage);
    // Leaves no job behind. A format for another printer type gives sErrorMessage and no box.
    bool IsValidMSFormat(const QString& sFormatPath, const QString& sPrinter,
                         qint32 lLBXPrinterType, QString& sErrorMessage);
    std::shared_ptr<PrintJob> PrintMSFormat(const QString& sFormatPath, qint32 lQuantity,
                                            const QString& sPrinter, qint32 lLBXPrinterType);
    // With identifiers given and no job made, raises NoObject to the caller.
    std::shared_ptr<PrintJob>
    PrintMSDAGLabelSet(const QString& sPath,
                       const std::optional<GroupIdentifiers>& colPrinterIdentifiers);

private:
    std::shared_ptr<Application> GetLbx();
    bool ValidFormat(QString& name, bool isFormat);
    // A job for the format on the printer, and whether the format was made for that printer
    // type; none, after a box, when the file can't be opened.
    std::shared_ptr<PrintJob> checkedFormatJob(const QString& sFormatPath, qint32 lQuantity,
                                               const QString& sPrinter, qint32 lLBXPrinterType,
                                               bool& sameType);
    std::shared_ptr<PrintJob> PrintLabelSet(const QString& sLabelSetName, const QString& sComment,
                                            qint32 nQuantity, bool bPause, bool bDisplayMessage);
    void showError(const QString& text, const QString& context) const;
    void showStop(const QString& text) const;

    std::shared_ptr<Application> m_oApplication;
    bool m_bSilentErrors = false;
};

// The adapter of the process: empty before first use and after ReleaseGlobalLBX.
extern std::shared_ptr<clsLBXHandler> g_oLBX;

// The checked adapter. While the application is absent the user is offered Retry and
// Cancel; Cancel raises the error to the caller.
clsLBXHandler& GetGlobalLBX();
void ReleaseGlobalLBX();
