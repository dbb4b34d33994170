#include "platform/lbx/PortAddress.h"
#include "platform/lbx/UserRights.h"
#include "platform/wire/FloodGuard.h"
#include "platform/wire/ReconnectDelay.h"

#include <gtest/gtest.h>

namespace {
using Kind = PortAddress::Kind;

TEST(PortAddressTest, EachSchemeIsReadWithItsParts)
{
    const PortAddress tcp = PortAddress::parse(" coder-7.line:9100 ");
    EXPECT_EQ(tcp.kind, Kind::Tcp);
    EXPECT_EQ(tcp.host, QStringLiteral("coder-7.line"));
    EXPECT_EQ(tcp.port, 9100);
    EXPECT_EQ(PortAddress::parse("[::1]:9100").host, QStringLiteral("::1"));

    const PortAddress serial = PortAddress::parse("/dev/ttyUSB0:19200:7E2");
    EXPECT_EQ(serial.kind, Kind::Serial);
    EXPECT_EQ(serial.device, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(serial.baud, 19200);
    EXPECT_EQ(serial.dataBits, 7);
    EXPECT_EQ(serial.parity, PortAddress::Parity::Even);
    EXPECT_EQ(serial.stopBits, 2);
    EXPECT_EQ(PortAddress::parse("/dev/ttyS1").baud, 9600);
    EXPECT_EQ(PortAddress::parse("/dev/ttyS1").parity, PortAddress::Parity::None);

    EXPECT_EQ(PortAddress::parse("SIM:echo?delay=5").kind, Kind::Simulated);
    EXPECT_EQ(PortAddress::parse("SIM:echo?delay=5").simAddress, QStringLiteral("echo?delay=5"));
}

TEST(PortAddressTest, WhatNamesNothingUsableSaysWhy)
{
    const struct
    {
        const char* portName;
        const char* problemPart;
    } cases[] = {
        {"", "no port"},
        {"printer", "neither host:port"},
        {"host:0", "no TCP port"},
        {"host:70000", "no TCP port"},
        {"host:ninety", "no TCP port"},
        {":9100", "neither host:port"},
        {"/dev/ttyS0:fast", "no baud rate"},
        {"/dev/ttyS0:9600:9X1", "no framing"},
        {"/dev/ttyS0:9600:8N1:x", "a serial port is"},
        {"sim:", "needs a kind"},
    };
    for (const auto& c : cases) {
        const PortAddress address = PortAddress::parse(QString::fromUtf8(c.portName));
        EXPECT_EQ(address.kind, Kind::Unusable) << c.portName;
        EXPECT_TRUE(address.problem.contains(QString::fromUtf8(c.problemPart)))
            << c.portName << ": " << address.problem.toStdString();
    }
}

TEST(UserRightsTest, AnEmptyListOrANameOrAGroupGivesTheRight)
{
    const QStringList groups{"operators", "line-a"};
    EXPECT_TRUE(UserRights::isAdministrator("", "ann", groups));
    EXPECT_TRUE(UserRights::isAdministrator(" ; ", "ann", groups));
    EXPECT_TRUE(UserRights::isAdministrator("bob, ann", "ann", groups));
    EXPECT_TRUE(UserRights::isAdministrator("bob;@line-a", "ann", groups));
    EXPECT_FALSE(UserRights::isAdministrator("bob @admins", "ann", groups));
    EXPECT_FALSE(UserRights::isAdministrator("line-a", "ann", groups)); // a group needs its @
    EXPECT_FALSE(UserRights::isAdministrator("@ann", "ann", groups));   // and a user has none
    EXPECT_FALSE(UserRights::isAdministrator("Ann", "ann", groups));    // login names are exact
    EXPECT_FALSE(UserRights::isAdministrator("bob", "", groups));
}

TEST(ReconnectDelayTest, DoublesFromOneSecondToHalfAMinute)
{
    ReconnectDelay delay;
    for (const int wait : {1000, 2000, 4000, 8000, 16000, 30000, 30000})
        EXPECT_EQ(delay.next(), wait);
    delay.reset();
    EXPECT_EQ(delay.next(), 1000);
}

TEST(FloodGuardTest, BytesBeyondTheCapOfASecondAreDroppedAndReportedOnce)
{
    FloodGuard guard;
    bool began = false;
    const QByteArray half(FloodGuard::BytesPerSecond / 2, 'x');
    EXPECT_EQ(guard.admit(half, 0, began).size(), half.size());
    EXPECT_FALSE(began);
    EXPECT_EQ(guard.admit(half, 100, began).size(), half.size());
    EXPECT_EQ(guard.admit("abc", 200, began).size(), 0);
    EXPECT_TRUE(began);
    EXPECT_EQ(guard.admit("abc", 300, began).size(), 0);
    EXPECT_FALSE(began); // said once

    // The next second takes up to the cap again; the flood is still on, so no new report.
    const QByteArray more(FloodGuard::BytesPerSecond + 10, 'y');
    EXPECT_EQ(guard.admit(more, 1000, began).size(), FloodGuard::BytesPerSecond);
    EXPECT_FALSE(began);
    // A second within the cap ends it; the next flood is reported again.
    EXPECT_EQ(guard.admit("ok", 2000, began), QByteArray("ok"));
    EXPECT_EQ(guard.admit("ok", 3000, began), QByteArray("ok"));
    guard.admit(more, 3100, began);
    EXPECT_TRUE(began);

    // So does a flood that comes after a quiet spell, however full the last second was.
    guard.admit(more, 4000, began);
    EXPECT_FALSE(began);
    EXPECT_EQ(guard.admit(more, 9000, began).size(), FloodGuard::BytesPerSecond);
    EXPECT_TRUE(began);
}
} // namespace
