// The four-box address editor.

#include "pages/ctlIPAddress.h"
#include "ui/WidgetApplication.h"

#include <QLineEdit>
#include <QTest>

namespace {
class IPAddressTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    QLineEdit& box(int index) const
    {
        return *m_address.findChildren<QLineEdit*>(QStringLiteral("txtAddress")).at(index);
    }

    ctlIPAddress m_address;
};

TEST_F(IPAddressTest, ABoxKeepsOnlyANumberFrom0To255)
{
    EXPECT_EQ(m_address.findChildren<QLineEdit*>(QStringLiteral("txtAddress")).size(), 4);
    EXPECT_EQ(m_address.Address(), QStringLiteral("0.0.0.0"));
    box(1).setText(QStringLiteral("25"));
    for (const char* bad : {"25a", "256", "-1", ""}) {
        box(1).setText(QString::fromLatin1(bad));
        EXPECT_EQ(box(1).text(), QStringLiteral("25")) << bad;
    }
    // Typed key by key, as a user does.
    box(2).selectAll();
    QTest::keyClicks(&box(2), QStringLiteral("1x9"));
    EXPECT_EQ(box(2).text(), QStringLiteral("19"));
    EXPECT_EQ(m_address.Address(), QStringLiteral("0.25.19.0"));
}

TEST_F(IPAddressTest, UpAndDownStepAndWrapRound)
{
    box(0).setText(QStringLiteral("250"));
    QTest::keyClick(&box(0), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(box(0).text(), QStringLiteral("0"));
    QTest::keyClick(&box(0), Qt::Key_Down);
    EXPECT_EQ(box(0).text(), QStringLiteral("255"));
    QTest::keyClick(&box(0), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(box(0).text(), QStringLiteral("245"));
    box(3).setText(QStringLiteral("5"));
    QTest::keyClick(&box(3), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(box(3).text(), QStringLiteral("255"));
}

TEST_F(IPAddressTest, AnAddressIsTakenWholeAndComparedOctetByOctet)
{
    m_address.setAddress(QStringLiteral("10.1.20.3"));
    EXPECT_EQ(m_address.Address(), QStringLiteral("10.1.20.3"));
    EXPECT_TRUE(m_address.IsValid());
    for (const char* unread : {"10.1.2", "a.b.c.d", ""}) {
        m_address.setAddress(QString::fromLatin1(unread));
        EXPECT_EQ(m_address.Address(), QStringLiteral("10.1.20.3")) << unread;
    }
    // Each box still refuses what it can't hold.
    m_address.setAddress(QStringLiteral("300.2.2.2"));
    EXPECT_EQ(m_address.Address(), QStringLiteral("10.2.2.2"));

    EXPECT_TRUE(m_address.IsNotLessThan(QStringLiteral("10.2.2.2")));
    EXPECT_TRUE(m_address.IsNotLessThan(QStringLiteral("10.1.255.255")));
    EXPECT_FALSE(m_address.IsNotLessThan(QStringLiteral("10.2.2.3")));
    EXPECT_FALSE(m_address.IsNotLessThan(QStringLiteral("10.10.0.0")));
    EXPECT_FALSE(m_address.IsNotLessThan(QStringLiteral("not an address")));
}
} // namespace
