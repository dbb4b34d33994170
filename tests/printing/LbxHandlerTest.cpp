#include "core/Globals.h"
#include "drivers/Application.h"
#include "printing/clsLBXHandler.h"
#include "services/VigilError.h"
#include "support/FakeApplication.h"
#include "support/ServicesFixture.h"

namespace {
const QString NotRunningText = QStringLiteral("The print application is not running.");

FakePrintJob* fake(const std::shared_ptr<PrintJob>& job)
{
    return static_cast<FakePrintJob*>(job.get());
}

// A site with a default queue, a queue whose name differs only in case, and some files.
class LbxHandlerTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(
            410, {{33, "message 33 %1"}, {34, "message 34 %1"}, {407, NotRunningText.toUtf8()}});
        InstallApplicationFactory([this]() -> std::shared_ptr<Application> {
            ++m_attaches;
            return m_running ? m_application : nullptr;
        });
        m_application->labelRootFolder = QStringLiteral("/srv/labels");
        m_application->defaultQueueName = QStringLiteral("Line1");
        m_upper = &m_application->queues.add(QStringLiteral("Line1"), 2001);
        m_lower = &m_application->queues.add(QStringLiteral("line1"), 2002);
        m_application->addFormat(QStringLiteral("/srv/labels/Carton.FMT"), 2001);
        m_application->addLabelSet(QStringLiteral("/srv/sets/Shift.LBS"));
        m_application->addLabelSet(QStringLiteral("/srv/sets/Other.LBS"), false);
    }

    void TearDown() override
    {
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        ServicesFixture::TearDown();
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    bool m_running = true;
    int m_attaches = 0;
    FakeQueue* m_upper = nullptr;
    FakeQueue* m_lower = nullptr;
};

TEST_F(LbxHandlerTest, OneAdapterServesEveryCallerUntilReleased)
{
    clsLBXHandler& first = GetGlobalLBX();
    EXPECT_EQ(&GetGlobalLBX(), &first);
    EXPECT_EQ(g_oLBX.get(), &first);
    EXPECT_EQ(m_attaches, 1);
    EXPECT_EQ(&first.LBX_App(), m_application.get());
    m_application->administrator = true;
    EXPECT_TRUE(first.IsAdministrator());
    m_application->administrator = false;
    EXPECT_FALSE(first.IsAdministrator());
    EXPECT_GE(m_application->probes, 4); // each use probes the connection first

    ReleaseGlobalLBX();
    EXPECT_EQ(g_oLBX, nullptr);
    GetGlobalLBX();
    EXPECT_NE(g_oLBX, nullptr);
    EXPECT_EQ(m_attaches, 2);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(LbxHandlerTest, AnAbsentApplicationOffersRetryAndCancelRaisesTheSameError)
{
    m_running = false;
    m_dialogs->answerNext(IDialogs::Answer::Retry);
    m_dialogs->answerNext(IDialogs::Answer::Cancel);
    try {
        GetGlobalLBX();
        FAIL() << "Cancel must raise";
    } catch (const VigilError& error) {
        EXPECT_EQ(error.number(), clsLBXHandler::NotRunning);
        EXPECT_EQ(error.source(), QStringLiteral("clsLbxHandler.GetLbx"));
        EXPECT_EQ(error.description(), NotRunningText);
    }
    EXPECT_EQ(g_oLBX, nullptr);
    EXPECT_EQ(m_attaches, 2);
    ASSERT_EQ(m_dialogs->boxes().size(), 2);
    const IDialogs::Box& box = m_dialogs->boxes().first();
    EXPECT_EQ(box.title, QStringLiteral("GetGlobalLbx - clsLbxHandler.GetLbx"));
    EXPECT_EQ(box.text, NotRunningText + QStringLiteral(" (-2147220991)"));
    EXPECT_EQ(box.icon, IDialogs::Icon::Stop);
    EXPECT_EQ(box.buttons, IDialogs::Buttons::RetryCancel);

    // No factory at all is the same as no application, and so is one that answers but is
    // dead from the start.
    m_application->alive = false;
    for (const auto& factory : {ApplicationFactory(), FakeApplication::attachTo(m_application)}) {
        InstallApplicationFactory(factory);
        m_dialogs->answerNext(IDialogs::Answer::Cancel);
        EXPECT_THROW(GetGlobalLBX(), VigilError);
        EXPECT_EQ(g_oLBX, nullptr);
    }
    EXPECT_EQ(m_application->attaches, 2);
}

TEST_F(LbxHandlerTest, PrintMSFormatKeepsOnlyAJobOfTheRightType)
{
    clsLBXHandler& lbx = GetGlobalLBX();
    const auto job = lbx.PrintMSFormat(QStringLiteral("Carton"), 30, QStringLiteral("Line1"), 2001);
    ASSERT_NE(job, nullptr);
    EXPECT_EQ(fake(job)->quantity, 30);
    EXPECT_FALSE(fake(job)->pause);
    EXPECT_FALSE(fake(job)->cancelled());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    EXPECT_EQ(lbx.PrintMSFormat(QStringLiteral("Carton"), 30, QStringLiteral("line1"), 2002),
              nullptr);
    ASSERT_EQ(m_lower->jobs.size(), 1);
    EXPECT_EQ(m_lower->jobs.first()->cancelCount, 1);
    EXPECT_EQ(m_dialogs->boxes().last().icon, IDialogs::Icon::Stop);

    EXPECT_EQ(lbx.PrintMSFormat(QStringLiteral("Missing"), 1, QStringLiteral("Line1"), 2001),
              nullptr);
    EXPECT_EQ(m_dialogs->texts(),
              (QStringList{"message 34 Carton", "Cannot open /srv/labels/Missing.FMT",
                           "message 33 Missing"}));
}

TEST_F(LbxHandlerTest, ALabelSetGoesThroughTheDefaultQueueWithItsIdentifiers)
{
    clsLBXHandler& lbx = GetGlobalLBX();
    const QString set = QStringLiteral("/srv/sets/Shift.LBS");
    // An identifier that is the word for "no printer" passes none; a printer field that is
    // that word passes it as it stands.
    g_sNoPrinter = QStringLiteral("(none)");
    const GroupIdentifiers identifiers{{"A", "line1"}, {"B", "(none)"}, {"(none)", "line2"}};
    const auto job = lbx.PrintMSDAGLabelSet(set, identifiers);
    ASSERT_NE(job, nullptr);
    EXPECT_EQ(m_upper->jobs.size(), 1);
    EXPECT_EQ(fake(job)->quantity, 1);
    EXPECT_FALSE(fake(job)->pause);
    EXPECT_EQ(fake(job)->groupIdentifiers, (QList<std::pair<QString, QString>>{
                                               {"A", "line1"}, {"B", "(none)"}, {"(none)", ""}}));
    const auto plain = lbx.PrintMSDAGLabelSet(set, std::nullopt);
    ASSERT_NE(plain, nullptr);
    EXPECT_TRUE(fake(plain)->groupIdentifiers.isEmpty());

    // The application refuses a set made for another group.
    EXPECT_EQ(lbx.PrintDAGLabelSet(QStringLiteral("/srv/sets/Other.LBS"), false), nullptr);
    EXPECT_EQ(lbx.PrintDAGLabelSet(QStringLiteral("/srv/sets/Gone.LBS"), false), nullptr);
    EXPECT_EQ(m_dialogs->texts(), (QStringList{"Label Set is not valid for this group",
                                               "Cannot open /srv/sets/Gone.LBS"}));
    EXPECT_TRUE(m_dialogs->boxes()[0].title.startsWith(QStringLiteral("PrintDAGLabelSet - ")));
}
} // namespace
