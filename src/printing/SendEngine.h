#pragma once

#include "printing/clsPrompt.h"

#include <QList>
#include <QObject>
#include <QString>
#include <memory>

class IPromptForm;
class ITreeView;
class PrintJob;
class TreeNode;
class clsComponent;
class clsComponents;

// The send of the label files assigned in the tree: every enabled printer at or below the
// chosen node must have a file; one print job per assignment; the values the jobs prompt for
// asked once, in one form; then the jobs go to the print application. A second send waits
// for the first.
class SendEngine : public QObject
{
public:
    enum class Outcome {
        Sent,
        // An enabled printer has no file: nothing was sent.
        NotAllAssigned,
        // The operator cancelled the form: every job was cancelled.
        Cancelled,
        // Another send was running; its form, if open, was brought to the front.
        Busy,
        // A failure was shown; the jobs made so far went without their values.
        Failed,
    };

    explicit SendEngine(ITreeView& treePrinters);
    ~SendEngine() override;

    // From the node of that key, or from the top group when there is none.
    Outcome DoSendFilesToPrinters(const QString& sSelectedKey);
    // Clears the assignments of the node of that key and of everything below it.
    void ClearAllDownloads(const QString& sKey);
    bool SendInProgress() const { return m_bSendInProgress; }

private:
    using JobList = QList<std::shared_ptr<PrintJob>>;

    Outcome send(const QString& sSelectedKey);
    // Shows the form and waits while it is visible; false when the program went down
    // meanwhile, with the engine or before it.
    bool askForValues(PromptList& prompts);
    bool AllPrintersAssigned(const QString& sKey);
    void SendNode(TreeNode& node, JobList& jobs);
    void DownloadAndGo(clsComponent& printer, JobList& jobs);
    void PrintLabelSet(clsComponents& group, JobList& jobs);
    bool HasDownload(const QString& sKey);
    void RemoveDownload(TreeNode& node);
    void RefreshNodeText(TreeNode& node);
    void ClearDownloads(TreeNode& node);
    static void CollectPrompts(PrintJob& job, PromptList& prompts);
    static void ApplyPrompts(PrintJob& job, PromptList& prompts);

    ITreeView& m_treePrinters;
    bool m_bSendInProgress = false;
    std::unique_ptr<IPromptForm> m_frmPromptVars;
};
