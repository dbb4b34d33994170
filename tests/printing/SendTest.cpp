// Assigning label files to the tree and sending them, against the print application in
// memory: the rules of assignment, one job per assignment, the values asked once, cancel,
// and the second send while the form is open.

#include "core/RunningControl.h"
#include "printing/GroupIdentifierSettings.h"
#include "printing/IPromptForm.h"
#include "printing/SendEngine.h"
#include "support/EventLoop.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {
// A prompt form that a test drives: it keeps what it was shown, stays visible until the
// test closes it, and answers each prompt from its table.
class ScriptedPromptForm : public IPromptForm
{
public:
    struct Script
    {
        QHash<QString, QString> values;
        bool cancel = false;
        // While the form is open: run this, then close the form.
        std::function<void()> whileOpen;
        QStringList shown;
        int raised = 0;
    };

    explicit ScriptedPromptForm(Script& script)
        : m_script(script)
    {}

    void DisplayPromptedVars(PromptList& colPrompts) override
    {
        for (const auto& prompt : colPrompts.snapshot())
            m_script.shown.append(prompt->m_sVarName);
    }
    void setSmoothScroll(bool) override {}
    void ShowOverOwner() override
    {
        if (m_visible) {
            ++m_script.raised;
            return;
        }
        m_visible = true;
        QTimer::singleShot(0, [this] {
            if (m_script.whileOpen)
                m_script.whileOpen();
            m_visible = false;
        });
    }
    bool IsVisible() const override { return m_visible; }
    bool Cancelled() const override { return m_script.cancel; }
    bool SaveValues(PromptList& colPrompts) override
    {
        for (const auto& prompt : colPrompts.snapshot())
            prompt->m_sData = m_script.values.value(prompt->m_sVarName.trimmed());
        return true;
    }

private:
    Script& m_script;
    bool m_visible = false;
};

PromptedValue prompt(const QString& name, const QString& value)
{
    PromptedValue entry;
    entry.VarName = name;
    entry.Value = value;
    return entry;
}
} // namespace

class SendTest : public RunningControl
{
protected:
    void SetUp() override
    {
        // The send waits on its form in the event loop.
        EnsureApplication();
        RunningControl::SetUp();
        m_application->labelRootFolder = QStringLiteral("/labels");
        m_application->defaultQueueName = QStringLiteral("filler");
        m_application->addFormat(QStringLiteral("/labels/Filler.FMT"),
                                 ScriptedHandler::FirstNumber);
        m_application->addFormat(QStringLiteral("/labels/Capper.FMT"),
                                 ScriptedHandler::FirstNumber);
        m_application->addFormat(QStringLiteral("/labels/Other.FMT"), 1);
        m_application->addLabelSet(QStringLiteral("/labels/Line.LBS"));
        m_application->elementsOf.insert(
            QStringLiteral("/labels/Line.LBS"),
            {{QStringLiteral("FILLER"), QStringLiteral("Filler.FMT")},
             {QStringLiteral("capper"), QStringLiteral("Capper.FMT")}});
        IPromptForm::install([this] { return std::make_unique<ScriptedPromptForm>(m_form); });
        start({QStringLiteral("filler"), QStringLiteral("capper"), QStringLiteral("office")});
        m_line = shownGroup(QStringLiteral("GP1"), QStringLiteral("Line"));
        moveInto(QStringLiteral("filler"));
        moveInto(QStringLiteral("capper"));
        m_dialogs->clear();
    }

    void TearDown() override
    {
        IPromptForm::install(nullptr);
        RunningControl::TearDown();
    }

    void moveInto(const QString& printer)
    {
        auto node = g_oComponents->Find(idOf(printer))->shared_from_this();
        g_oComponents->Remove(node->m_sID);
        m_line->AddComponent(node->m_sID, node);
        m_view.removeItem(node->m_sID);
        m_view.addItem(m_line->m_sID, node->m_sID, node->TreeText(), 0);
    }

    clsComponent& printerNamed(const QString& name) { return *g_oComponents->FindPrinter(name); }

    QList<std::shared_ptr<FakePrintJob>> jobsOf(const QString& queue)
    {
        return m_application->queues.find(queue)->jobs;
    }

    // The jobs made so far only looked into files.
    void forgetJobs()
    {
        for (Queue* queue : m_application->queues.List())
            static_cast<FakeQueue*>(queue)->jobs.clear();
    }

    ScriptedPromptForm::Script m_form;
    std::shared_ptr<clsComponents> m_line;
};

TEST_F(SendTest, AFormatGoesToAPrinterOfItsTypeAndALabelSetToTheGroupItNames)
{
    clsComponent& office = printerNamed(QStringLiteral("office"));
    office.SetAssignedFile(QStringLiteral("Capper.FMT"));
    EXPECT_TRUE(office.TreeText().endsWith(QStringLiteral("     [Capper.FMT]")));
    // Another printer type, or a file that isn't a format: refused, and the file stays.
    office.SetAssignedFile(QStringLiteral("Other.FMT"));
    office.SetAssignedFile(QStringLiteral("Line.LBS"));
    EXPECT_EQ(office.AssignedFilename(), QStringLiteral("Capper.FMT"));
    EXPECT_EQ(m_dialogs->texts(),
              (QStringList{"/labels/Other.FMT is made for another printer type.",
                           "Not a file for this:\r\nLine.LBS"}));

    // The set names "capper" by name and "FILLER" through the group's identifiers.
    m_line->m_colGroupIdentifiers = GroupIdentifiers{{"FILLER", "filler"}};
    m_line->SetAssignedFile(QStringLiteral("Line.LBS"));
    EXPECT_EQ(m_line->AssignedFilename(), QStringLiteral("Line.LBS"));
    EXPECT_EQ(m_line->m_asAssignedIDs, (QStringList{"filler", "capper"}));
    clsComponent& filler = printerNamed(QStringLiteral("filler"));
    EXPECT_TRUE(filler.IsAssignedFileInLabelSet());
    EXPECT_TRUE(filler.TreeText().endsWith(QStringLiteral("     <Filler.FMT>")));
    // A file from the set isn't replaced by a format, nor cleared with the printer alone.
    m_dialogs->clear();
    filler.SetAssignedFile(QStringLiteral("Capper.FMT"));
    filler.ClearAssignedFile();
    EXPECT_EQ(filler.AssignedFilename(), QStringLiteral("/labels/Filler.FMT"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    m_line->ClearAssignedFile();
    EXPECT_FALSE(filler.FileAssigned());
    EXPECT_EQ(m_line->m_asAssignedIDs, (QStringList{"", ""}));
}

TEST_F(SendTest, ALabelSetNamingABusyOrForeignPrinterIsRefusedOrAskedAbout)
{
    printerNamed(QStringLiteral("capper")).SetAssignedFile(QStringLiteral("Capper.FMT"));
    m_line->m_colGroupIdentifiers = GroupIdentifiers{{"FILLER", "office"}};
    m_line->SetAssignedFile(QStringLiteral("Line.LBS"));
    EXPECT_FALSE(m_line->FileAssigned());
    EXPECT_EQ(m_dialogs->texts().last(), QStringLiteral("These printers have a file: \r\ncapper"));

    printerNamed(QStringLiteral("capper")).ClearAssignedFile();
    m_dialogs->answerNext(IDialogs::Answer::No);
    m_line->SetAssignedFile(QStringLiteral("Line.LBS"));
    EXPECT_FALSE(m_line->FileAssigned());
    ASSERT_EQ(m_dialogs->boxes().last().buttons, IDialogs::Buttons::YesNo);
    EXPECT_TRUE(m_dialogs->boxes().last().secondIsDefault);
    EXPECT_EQ(m_dialogs->texts().last(),
              QStringLiteral("These printers are in another group: \r\noffice"));
    EXPECT_FALSE(printerNamed(QStringLiteral("office")).FileAssigned());

    m_dialogs->answerNext(IDialogs::Answer::Yes);
    m_line->SetAssignedFile(QStringLiteral("Line.LBS"));
    EXPECT_TRUE(printerNamed(QStringLiteral("office")).IsAssignedFileInLabelSet());
}

TEST_F(SendTest, OneJobAnAssignmentAndEachValueAskedOnce)
{
    m_application->promptedValuesOf.insert(QStringLiteral("/labels/Filler.FMT"),
                                           {prompt(" Lot ", "L1"), prompt("Shift", "A")});
    m_application->promptedValuesOf.insert(QStringLiteral("/labels/Capper.FMT"),
                                           {prompt("lot", "L9")});
    printerNamed(QStringLiteral("filler")).SetAssignedFile(QStringLiteral("Filler.FMT"));
    printerNamed(QStringLiteral("capper")).SetAssignedFile(QStringLiteral("Capper.FMT"));
    // A disabled printer without a file doesn't hold the send back.
    handlerNamed(QStringLiteral("office")).setDisabled(true);
    m_form.values = {{"Lot", "L42"}, {"Shift", "B"}};
    forgetJobs();

    EXPECT_EQ(m_control->sendEngine().DoSendFilesToPrinters(QString()), SendEngine::Outcome::Sent);
    EXPECT_EQ(m_form.shown, (QStringList{" Lot ", "Shift"}));
    const auto filler = jobsOf(QStringLiteral("filler"));
    const auto capper = jobsOf(QStringLiteral("capper"));
    ASSERT_EQ(filler.size(), 1);
    ASSERT_EQ(capper.size(), 1);
    EXPECT_EQ(filler[0]->quantity, 1);
    EXPECT_EQ(filler[0]->promptedValues[0].Value, QStringLiteral("L42"));
    EXPECT_EQ(filler[0]->promptedValues[1].Value, QStringLiteral("B"));
    EXPECT_EQ(capper[0]->promptedValues[0].Value, QStringLiteral("L42"));
    EXPECT_FALSE(filler[0]->cancelled());
    EXPECT_FALSE(printerNamed(QStringLiteral("filler")).FileAssigned());
    EXPECT_FALSE(m_view.itemText(idOf(QStringLiteral("filler"))).contains(QLatin1Char('[')));
}

TEST_F(SendTest, APrinterWithoutAFileStopsTheSendAndACancelDropsEveryJob)
{
    printerNamed(QStringLiteral("filler")).SetAssignedFile(QStringLiteral("Filler.FMT"));
    forgetJobs();
    EXPECT_EQ(m_control->sendEngine().DoSendFilesToPrinters(QString()),
              SendEngine::Outcome::NotAllAssigned);
    EXPECT_EQ(m_dialogs->texts().last(), QStringLiteral("Not every printer has a file."));
    EXPECT_TRUE(jobsOf(QStringLiteral("filler")).isEmpty());
    EXPECT_TRUE(printerNamed(QStringLiteral("filler")).FileAssigned());

    // From the group: one job for its label set; the marks go before the form shows.
    printerNamed(QStringLiteral("filler")).ClearAssignedFile();
    m_application->promptedValuesOf.insert(QStringLiteral("/labels/Line.LBS"), {prompt("Lot", "")});
    m_line->m_colGroupIdentifiers = GroupIdentifiers{{"FILLER", "filler"}};
    m_line->SetAssignedFile(QStringLiteral("Line.LBS"));
    m_form.cancel = true;
    forgetJobs();
    bool markedWhileOpen = true;
    m_form.whileOpen = [&] {
        markedWhileOpen = printerNamed(QStringLiteral("filler")).FileAssigned();
    };
    EXPECT_EQ(m_control->sendEngine().DoSendFilesToPrinters(m_line->m_sID),
              SendEngine::Outcome::Cancelled);
    EXPECT_FALSE(markedWhileOpen);
    const auto jobs = jobsOf(QStringLiteral("filler"));
    ASSERT_EQ(jobs.size(), 1);
    EXPECT_EQ(jobs[0]->path, QStringLiteral("/labels/Line.LBS"));
    EXPECT_EQ(jobs[0]->groupIdentifiers,
              (QList<std::pair<QString, QString>>{{"FILLER", "filler"}}));
    EXPECT_TRUE(jobs[0]->cancelled());
    EXPECT_FALSE(m_line->FileAssigned());
}

TEST_F(SendTest, ASecondSendWhileTheFormIsOpenBringsItForward)
{
    m_application->promptedValuesOf.insert(QStringLiteral("/labels/Filler.FMT"),
                                           {prompt("Lot", "")});
    printerNamed(QStringLiteral("filler")).SetAssignedFile(QStringLiteral("Filler.FMT"));
    printerNamed(QStringLiteral("capper")).SetAssignedFile(QStringLiteral("Capper.FMT"));
    printerNamed(QStringLiteral("office")).SetAssignedFile(QStringLiteral("Capper.FMT"));
    forgetJobs();
    SendEngine::Outcome second = SendEngine::Outcome::Sent;
    m_form.whileOpen = [&] {
        second = m_control->sendEngine().DoSendFilesToPrinters(QString());
    };
    EXPECT_EQ(m_control->sendEngine().DoSendFilesToPrinters(QString()), SendEngine::Outcome::Sent);
    EXPECT_EQ(second, SendEngine::Outcome::Busy);
    EXPECT_EQ(m_form.raised, 1);
    EXPECT_EQ(jobsOf(QStringLiteral("filler")).size(), 1);
    EXPECT_FALSE(m_control->sendEngine().SendInProgress());
}

TEST_F(SendTest, FilesDropOnTheTreeByTheirKindAndTheItemsText)
{
    const QString filler = idOf(QStringLiteral("filler"));
    m_view.placeItemAt(100, 100, filler);
    m_view.placeItemAt(100, 300, m_line->m_sID);
    int effect = -1;
    DragData formats;
    formats.files = QStringList{"/home/op/a.FMT", "/home/op/b.fmt"};
    m_control->treePrinters_OLEDragOver(formats, effect, 100, 100, DragOver);
    EXPECT_EQ(effect, DropEffectCopy);
    formats.files->append("/home/op/notes.txt");
    m_control->treePrinters_OLEDragOver(formats, effect, 100, 100, DragOver);
    EXPECT_EQ(effect, DropEffectNone);

    const DragData set{QStringLiteral("MSFileDir_ ID/labels/Line.LBS"), std::nullopt};
    const DragData format{QStringLiteral("MSFileDir_ ID/labels/Filler.FMT"), std::nullopt};
    m_control->treePrinters_OLEDragOver(set, effect, 100, 100, DragOver);
    EXPECT_EQ(effect, DropEffectNone);
    m_control->treePrinters_OLEDragOver(format, effect, 100, 300, DragOver);
    EXPECT_EQ(effect, DropEffectNone);
    m_control->treePrinters_OLEDragOver(format, effect, 100, 100, DragOver);
    EXPECT_EQ(effect, DropEffectCopy);
    m_control->treePrinters_OLEDragDrop(format, 100, 100);
    EXPECT_EQ(printerNamed(QStringLiteral("filler")).AssignedFilename(),
              QStringLiteral("Filler.FMT"));
    EXPECT_TRUE(m_view.itemText(filler).endsWith(QStringLiteral("[Filler.FMT]")));
    // An item whose text ends in "]" takes nothing more.
    m_control->treePrinters_OLEDragOver(format, effect, 100, 100, DragOver);
    EXPECT_EQ(effect, DropEffectNone);
}

TEST_F(SendTest, IdentifiersAreSavedWithTheGroupAndOutliveTheirPrinter)
{
    m_line->m_colGroupIdentifiers = GroupIdentifiers{{"FILLER", "filler"}, {"CAP", "capper"}};
    m_line->m_bUseAllPrinterForGroupID = true;
    m_control->Save();
    auto fresh = std::make_shared<clsComponents>();
    group(QStringLiteral("GP2"), QStringLiteral("Empty"), *g_oComponents);
    m_control->Save();
    fresh->LoadState(QStringLiteral("Printers\\GP1"));
    EXPECT_EQ(fresh->m_colGroupIdentifiers, m_line->m_colGroupIdentifiers);
    EXPECT_TRUE(fresh->m_bUseAllPrinterForGroupID);
    EXPECT_EQ(storedValue(DefaultRootKey + "\\Printers\\GP2", "NoOfIdentifiers").toInt(), 0);
    fresh->LoadState(QStringLiteral("Printers\\GP2"));
    ASSERT_TRUE(fresh->m_colGroupIdentifiers.has_value());
    EXPECT_TRUE(fresh->m_colGroupIdentifiers->isEmpty());

    m_application->queues.remove(QStringLiteral("capper"));
    EXPECT_EQ(m_line->m_colGroupIdentifiers,
              (GroupIdentifiers{{"FILLER", "filler"}, {"CAP", g_sNoPrinter}}));
}

TEST_F(SendTest, GoingDownWhileTheFormIsOpenSendsNothing)
{
    m_application->promptedValuesOf.insert(QStringLiteral("/labels/Filler.FMT"),
                                           {prompt("Lot", "")});
    for (const QString& name :
         {QStringLiteral("filler"), QStringLiteral("capper"), QStringLiteral("office")})
        printerNamed(name).SetAssignedFile(QStringLiteral("Filler.FMT"));
    forgetJobs();
    m_form.whileOpen = [] {
        g_bExiting = true;
    };
    EXPECT_EQ(m_control->sendEngine().DoSendFilesToPrinters(QString()),
              SendEngine::Outcome::Cancelled);
    for (const QString& name :
         {QStringLiteral("filler"), QStringLiteral("capper"), QStringLiteral("office")}) {
        ASSERT_EQ(jobsOf(name).size(), 1);
        EXPECT_TRUE(jobsOf(name)[0]->cancelled());
    }
}
