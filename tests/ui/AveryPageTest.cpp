// The Avery page against a real handler whose queue is fed status frames written out by hand.

#include "core/ErrorColours.h"
#include "drivers/HandlerFixture.h"
#include "drivers/clsAveryErrorCodes.h"
#include "drivers/clsAveryHandler.h"
#include "pages/ctlAveryPage1.h"
#include "platform/qt/QtTreeView.h"
#include "ui/WidgetApplication.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {
class AveryPageTest : public HandlerFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(480, {{9, "no answer %1 at %2"},
                             {102, "Name"},
                             {465, "EPROM version"},
                             {469, "&Start"},
                             {472, "No format"},
                             {473, "Format being received"},
                             {474, "Format ready"},
                             {475, "Error"}});
        writeFile(QStringLiteral("MSGen/AveryErrors.txt"),
                  "01,0,Material low\n02,1,Ribbon end, replace the ribbon\n");
        clsAveryErrorCodes::reset();
        m_labeller = &node<clsAveryHandler>(QStringLiteral("Labeller"), 123);
        m_queue->friendlyName = QStringLiteral("Avery 64-04");
        m_queue->portName = QStringLiteral("10.0.0.9:9100");
        m_page.resize(400, 300);
        m_page.show();
        m_page.Setup(QStringLiteral("Labeller"), m_labeller);
    }

    void TearDown() override
    {
        clsAveryErrorCodes::reset();
        HandlerFixture::TearDown();
    }

    QString text(const char* label) const { return ChildOf<QLabel>(m_page, label).text(); }
    QLabel& error() const { return ChildOf<QLabel>(m_page, "lblError"); }
    // The colours of the state as the tree shows them.
    QPair<QColor, QColor> stateColours(qint32 state) const
    {
        return {QtTreeView::toColor(LookUpColour(state, TreePalette, false), m_page.palette()),
                QtTreeView::toColor(LookUpColour(state, TreePalette, true), m_page.palette())};
    }
    QPair<QColor, QColor> errorColours() const
    {
        return {error().palette().color(QPalette::Window),
                error().palette().color(QPalette::WindowText)};
    }

    clsAveryHandler* m_labeller = nullptr;
    ctlAveryPage1 m_page;
};

TEST_F(AveryPageTest, ShowsThePrinterAndItsCountersAndAnErrorOnlyWhenThereIsOne)
{
    EXPECT_EQ(text("lblName"), QStringLiteral("Name"));
    EXPECT_EQ(text("lblEPROMVersion"), QStringLiteral("EPROM version"));
    EXPECT_EQ(ChildOf<QPushButton>(m_page, "cmdStart").text(), QStringLiteral("&Start"));
    // Not answering yet, with nothing to tell: no error line.
    EXPECT_FALSE(error().isVisible());

    m_queue->inject("S00Ax01M001");
    m_queue->inject("23F04096K12");
    const char* const values[] = {"lblNameData",           "lblTypeData",
                                  "lblPortData",           "lblEPROMVersionData",
                                  "lblLabelsToPrintData",  "lblFreeBytesInBufferData",
                                  "lblFormatInPrinterData"};
    QStringList shown;
    for (const char* value : values)
        shown.append(text(value));
    EXPECT_EQ(shown, (QStringList{"Labeller", "Avery 64-04", "10.0.0.9:9100", "12", "123", "4096",
                                  "Format being received"}));
    EXPECT_FALSE(error().isVisible());

    const std::pair<const char*, const char*> formats[] = {
        {"S00Ax00M00001F00001K12", "No format"},
        {"S00Ax02M00001F00001K12", "Format ready"},
        {"S00Ax03M00001F00001K12", ""}};
    for (const auto& [frame, format] : formats) {
        m_queue->inject(frame);
        EXPECT_EQ(text("lblFormatInPrinterData"), QString::fromLatin1(format)) << frame;
    }
}

TEST_F(AveryPageTest, TheErrorLineTakesTheColoursOfThePrintersState)
{
    m_queue->inject("S02Ax11M00007F00100K13"); // level 1: a fault
    EXPECT_TRUE(error().isVisible());
    EXPECT_EQ(error().text(), QStringLiteral("Error: Ribbon end, replace the ribbon"));
    EXPECT_EQ(errorColours(), stateColours(StateFault));
    EXPECT_EQ(errorColours(), qMakePair(QColor(255, 0, 0), QColor(255, 255, 255)));

    // Gone quiet since: the old error stays in sight, in the colours of no answer.
    m_labeller->Process();
    later(5);
    m_labeller->ProcessTimeout(5);
    ASSERT_EQ(m_labeller->GetErrorState(), StateNoAnswer);
    EXPECT_TRUE(error().isVisible());
    EXPECT_EQ(error().text(), QStringLiteral("Error: Ribbon end, replace the ribbon"));
    EXPECT_EQ(errorColours(), stateColours(StateNoAnswer));

    // A code the table doesn't know is a warning without words.
    m_queue->inject("S99Ax11M00007F00100K13");
    EXPECT_EQ(error().text(), QStringLiteral("Error: "));
    EXPECT_EQ(errorColours(), stateColours(StateWarning));

    m_queue->inject("S00Ax01M00007F00100K13");
    EXPECT_FALSE(error().isVisible());
}
} // namespace
